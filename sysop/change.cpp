#include "sysop/change.h"

#include "files/data_file.h"
#include "sysop/charset.h"
#include "sysop/failure.h"

#include <cerrno>
#include <deque>
#include <unistd.h>

namespace morvek {

Change::Change(const GameDirectory& home) : home_(home), transaction_(*home.lock) {
    if (!transaction_.mayWrite()) {
        throw Failure("another program holds the game's files (" + home.file(lockFileName) +
                      "); nothing was changed");
    }
}

void Change::refuseWhilePlayed() const {
    if (!home_.lock->isAnybodyInside()) {
        return;
    }
    std::string names;
    for (const PlayerRecord& slot : readCharacters(home_)) {
        if (home_.isInside(slot)) {
            names.append(names.empty() ? "" : ", ").append(toUtf8(slot.name.view()));
        }
    }
    throw Failure("in the game now: " + (names.empty() ? "a new caller" : names) +
                  "; a caller's next save would undo the change (--force changes nevertheless)");
}

void Change::write(const std::string& name, std::string content) {
    written_[name] = std::move(content);
}

void Change::remove(const std::string& name) { removed_.insert(name); }

void Change::commit(std::ostream& out, const fs::path& kept) {
    std::deque<Replacement> files;
    try {
        if (!dataFiles(home_).empty()) {
            const fs::path made = makeBackup(home_, automaticBackups, kept);
            out << "Backup: " << made.string() << '\n';
        }
        for (const auto& [name, content] : written_) {
            const std::string path = home_.file(name);
            if (const int error = files.emplace_back(transaction_, path).stage(content)) {
                throw cannot(path, "written", error);
            }
        }
    } catch (const std::exception& error) {
        throw Failure(reasonOf(error) + "; nothing was changed");
    }
    auto file = files.begin();
    for (const auto& [name, content] : written_) {
        if (const int error = (file++)->commit()) {
            throw cannot(home_.file(name), "replaced", error);
        }
    }
    for (const std::string& name : removed_) {
        if (::unlink(home_.file(name).c_str()) != 0 && errno != ENOENT) {
            throw cannot(home_.file(name), "removed", errno);
        }
    }
}

} // namespace morvek
