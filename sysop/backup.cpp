#include "sysop/backup.h"

#include "files/data_file.h"
#include "files/scroll_file.h"
#include "state/roster.h"
#include "sysop/charset.h"
#include "sysop/failure.h"

#include <algorithm>
#include <deque>

namespace morvek {
namespace {

constexpr const char* ownBackups = "backup";
constexpr const char* automaticBackups = "backup/auto";
constexpr const char* unfinished = ".new";
constexpr std::size_t backupsKept = 50;
constexpr std::size_t stampLength = std::string_view("20261115-120000").size();

fs::path directoryOf(const GameDirectory& home, const std::string& name) {
    return (home.data / name).lexically_normal();
}

// The number of the backup within its second; 0 when it is no backup's name.
int numberIn(const std::string& name) {
    const bool isFirst = name.size() == stampLength;
    const int number =
        isFirst || name.size() < stampLength + 2 ? 1 : std::atoi(&name[stampLength + 1]);
    const std::string stamp = name.substr(0, stampLength);
    const bool isStamp = stamp.find_first_not_of("0123456789-") == std::string::npos;
    return isStamp && (isFirst || name == stamp + "." + std::to_string(number)) ? number : 0;
}

// The backups in the directory, in the order of time.
std::vector<std::string> backupsIn(const fs::path& directory) {
    std::vector<std::string> names =
        fs::exists(directory) ? namesIn(directory) : std::vector<std::string>();
    std::erase_if(names, [](const std::string& name) { return numberIn(name) == 0; });
    std::sort(names.begin(), names.end(), [](const std::string& one, const std::string& other) {
        const int order = one.compare(0, stampLength, other, 0, stampLength);
        return order != 0 ? order < 0 : numberIn(one) < numberIn(other);
    });
    return names;
}

fs::path makeBackupIn(const GameDirectory& home, const fs::path& directory) {
    const fs::path staged = directory.string() + unfinished;
    for (const fs::path& path : {directory, staged}) {
        failIf(fs::exists(fs::symlink_status(path)), path.string() + " already exists");
    }
    createDirectories(staged);
    try {
        for (const std::string& name : dataFiles(home)) {
            const std::string path = (staged / name).string();
            const std::string content =
                name == scrollFileName ? readBoard(home) : readData(home, name);
            failWith(replaceFile(path, content), path, "written");
            fs::permissions(path, fs::status(home.file(name)).permissions());
        }
        fs::rename(staged, directory);
    } catch (...) {
        std::error_code ignored;
        fs::remove_all(staged, ignored);
        throw;
    }
    return directory;
}

// Makes a backup of a name of its own, and removes the oldest ones but `kept`. Whoever makes one
// has the game's lock, so what is unfinished was left by a program that was killed.
fs::path makeBackup(const GameDirectory& home, const std::string& in, const fs::path& kept = {}) {
    const fs::path directory = directoryOf(home, in);
    createDirectories(directory);
    for (const fs::path path : namesIn(directory)) {
        if (path.extension() == unfinished && numberIn(path.stem().string()) > 0) {
            fs::remove_all(directory / path);
        }
    }
    std::string name = localTime("%Y%m%d-%H%M%S");
    const std::vector<std::string> names = backupsIn(directory);
    const auto last = std::find_if(names.rbegin(), names.rend(),
                                   [&](const auto& other) { return other.starts_with(name); });
    if (last != names.rend()) {
        name += "." + std::to_string(numberIn(*last) + 1);
    }
    makeBackupIn(home, directory / name);
    std::error_code ignored;
    for (std::size_t i = 0; i + backupsKept <= names.size(); ++i) {
        if (!fs::equivalent(directory / names[i], kept, ignored)) {
            fs::remove_all(directory / names[i], ignored);
        }
    }
    return directory / name;
}

fs::path findBackup(const GameDirectory& home, const std::string& named) {
    for (const fs::path& path : {fs::path(named), directoryOf(home, ownBackups) / named,
                                 directoryOf(home, automaticBackups) / named}) {
        if (fs::is_directory(path)) {
            return path;
        }
    }
    throw Failure(named + ": no such backup; `backup --list` lists them");
}

// What the backup holds; throws Failure when it is no backup of a game.
Contents readBackup(const fs::path& path) {
    const GameDirectory saved(path, path);
    Contents files;
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
        const std::string name = entry.path().filename().string();
        failIf(!isDataFileName(name) || !entry.is_regular_file(),
               path.string() + " contains \"" + name + "\", which is not a data file");
        files[name] = readData(saved, name);
        failIf(name == characterFileName && files[name]->size() != slotCount * sizeof(PlayerRecord),
               saved.file(name) + " has " + counted(files[name]->size(), "byte") +
                   "; must be 75000");
    }
    failIf(files.empty(), path.string() + " is empty");
    return files;
}

Contents everythingGone(const GameDirectory& home) {
    Contents files;
    for (const std::string& name : dataFiles(home)) {
        files.try_emplace(name);
    }
    return files;
}

Json summaryOf(const fs::path& path) {
    const GameDirectory saved(path, path);
    return {{"path", path.string()},
            {"files", dataFiles(saved).size()},
            {"players", takenPlaces(readCharacters(saved))}};
}

std::string shownSummary(const Json& summary) {
    return summary["path"].get<std::string>() + ": " + counted(summary["files"], "file") + ", " +
           counted(summary["players"], "player");
}

} // namespace

Change::Change(const GameDirectory& home) : home_(home), transaction_(*home.lock) {
    failIf(!transaction_.mayWrite(), "another program holds the game's files (" +
                                         home.file(lockFileName) + "); nothing was changed");
}

void Change::refuseWhilePlayed(bool forced) const {
    std::string names;
    for (const PlayerRecord& slot : readCharacters(home_)) {
        if (home_.isInside(slot)) {
            names.append(names.empty() ? "" : ", ").append(toUtf8(slot.name.view()));
        }
    }
    failIf(!forced && home_.lock->isAnybodyInside(),
           "in the game now: " + (names.empty() ? "a new caller" : names) +
               "; the next save would undo the change (--force changes nevertheless)");
}

void Change::commit(const Contents& files, std::ostream& out, const fs::path& kept) const {
    std::deque<Replacement> staged;
    try {
        if (!dataFiles(home_).empty()) {
            const fs::path made = makeBackup(home_, automaticBackups, kept);
            out << "Backup: " << made.string() << '\n';
        }
        for (const auto& [name, content] : files) {
            if (content) {
                const std::string path = home_.file(name);
                failWith(staged.emplace_back(transaction_, path).stage(*content), path, "written");
            }
        }
    } catch (const std::exception& error) {
        throw Failure(reasonOf(error) + "; nothing was changed");
    }
    auto next = staged.begin();
    for (const auto& [name, content] : files) {
        if (content) {
            failWith((next++)->commit(), home_.file(name), "replaced");
        } else {
            fs::remove(home_.file(name));
        }
    }
}

void Change::backUp(const std::string& directory, std::ostream& out) const {
    if (dataFiles(home_).empty()) {
        out << "There is nothing to back up yet.\n";
        return;
    }
    const fs::path made =
        directory.empty() ? makeBackup(home_, ownBackups) : makeBackupIn(home_, directory);
    out << "Backup: " << made.string() << '\n';
}

void listBackups(const GameDirectory& home, bool asJson, std::ostream& out) {
    Json list = Json::array();
    for (const char* in : {automaticBackups, ownBackups}) {
        for (const std::string& name : backupsIn(directoryOf(home, in))) {
            list.push_back(summaryOf(directoryOf(home, in) / name));
            out << (asJson ? "" : shownSummary(list.back()) + "\n");
        }
    }
    if (asJson) {
        out << list.dump(2) << '\n';
    } else if (list.empty()) {
        out << "There are no backups yet.\n";
    }
}

void restoreBackup(const GameDirectory& home, const std::string& named, bool forced,
                   std::ostream& out) {
    const Change change(home);
    const fs::path path = findBackup(home, named);
    Contents files = readBackup(path);
    files.merge(everythingGone(home));
    change.refuseWhilePlayed(forced);
    change.commit(files, out, path);
    out << "Restored " << shownSummary(summaryOf(path)) << ".\n";
}

void beginSeason(const GameDirectory& home, bool forced, std::ostream& out) {
    const Change change(home);
    const Contents files = everythingGone(home);
    if (files.empty()) {
        out << "There is nothing to reset: nobody has played yet.\n";
        return;
    }
    change.refuseWhilePlayed(forced);
    change.commit(files, out);
    out << "A new season: " << counted(files.size(), "data file") << " removed.\n";
}

} // namespace morvek
