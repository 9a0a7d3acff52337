#include "sysop/backup.h"

#include "files/data_file.h"
#include "files/scroll_file.h"
#include "state/roster.h"
#include "sysop/charset.h"
#include "sysop/failure.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace morvek {
namespace {

constexpr std::size_t backupsKept = 50;
constexpr std::size_t stampLength = std::string_view("20261115-120000").size();
constexpr const char* unfinished = ".new";

// A backup's name in the order of time: the second, and its number within the second.
struct BackupName {
    std::string stamp;
    int number = 0; // 0: no name of a backup

    bool operator<(const BackupName& other) const {
        return std::tie(stamp, number) < std::tie(other.stamp, other.number);
    }

    [[nodiscard]] std::string text() const {
        return number > 1 ? stamp + "." + std::to_string(number) : stamp;
    }
};

BackupName parseName(const std::string& name) {
    BackupName parsed{name.substr(0, stampLength), 1};
    if (name.size() > stampLength && name[stampLength] == '.') {
        parsed.number = std::atoi(name.c_str() + stampLength + 1);
    }
    const bool digits = parsed.stamp.find_first_not_of("0123456789-") == std::string::npos;
    return digits && parsed.text() == name ? parsed : BackupName{};
}

fs::path directoryOf(const GameDirectory& home, const std::string& name) {
    return (home.data / name).lexically_normal();
}

std::set<BackupName> backupsIn(const fs::path& directory) {
    std::set<BackupName> names;
    std::error_code notThere;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory, notThere)) {
        const BackupName name = parseName(entry.path().filename().string());
        if (name.number > 0) {
            names.insert(name);
        }
    }
    return names;
}

// Removes what a program has left that was killed while it made a backup: whoever makes one has
// the game's lock, so nobody makes one now.
void removeUnfinished(const fs::path& directory) {
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        const fs::path& path = entry.path();
        if (path.extension() == unfinished && parseName(path.stem().string()).number > 0) {
            fs::remove_all(path);
        }
    }
}

// Removes all but the newest ones, and the two that the operator was told of.
void removeOldest(const fs::path& directory, const fs::path& made, const fs::path& kept) {
    const std::set<BackupName> names = backupsIn(directory);
    std::size_t surplus = names.size() - std::min(names.size(), backupsKept);
    for (const BackupName& name : names) {
        const fs::path path = directory / name.text();
        std::error_code ignored;
        if (surplus > 0 && path != made && !fs::equivalent(path, kept, ignored)) {
            fs::remove_all(path, ignored);
            --surplus;
        }
    }
}

// The content as the game has it. Of the board, also what a caller who types has taken out of it.
std::string contentOf(const GameDirectory& home, const std::string& name) {
    return name == scrollFileName ? readBoard(home) : readData(home, name);
}

std::size_t playersIn(const Contents& files) {
    const auto content = files.find(characterFileName);
    return content == files.end() ? 0 : takenPlaces(charactersIn(content->second));
}

} // namespace

fs::path makeBackup(const GameDirectory& home, const std::string& in, const fs::path& kept) {
    const fs::path directory = directoryOf(home, in);
    createDirectories(directory);
    removeUnfinished(directory);
    BackupName name{localTime("%Y%m%d-%H%M%S"), 1};
    for (const BackupName& other : backupsIn(directory)) {
        name.number = other.stamp == name.stamp ? other.number + 1 : name.number;
    }
    const fs::path made = makeBackupIn(home, directory / name.text());
    removeOldest(directory, made, kept);
    return made;
}

fs::path makeBackupIn(const GameDirectory& home, const fs::path& directory) {
    const fs::path staged = directory.string() + unfinished;
    for (const fs::path& path : {directory, staged}) {
        if (fs::exists(fs::symlink_status(path))) {
            throw Failure(path.string() + " already exists");
        }
    }
    createDirectories(staged);
    try {
        for (const std::string& name : dataFiles(home)) {
            const std::string path = (staged / name).string();
            if (const int error = replaceFile(path, contentOf(home, name))) {
                throw cannot(path, "written", error);
            }
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

void listBackups(const GameDirectory& home, bool asJson, std::ostream& out) {
    Json list = Json::array();
    for (const std::string in : {automaticBackups, ownBackups}) {
        for (const BackupName& name : backupsIn(directoryOf(home, in))) {
            const std::string path = (directoryOf(home, in) / name.text()).string();
            Json row{{"path", path}, {"automatic", in == automaticBackups}};
            try {
                const Contents files = readBackup(path);
                row.update({{"files", files.size()}, {"players", playersIn(files)}});
                out << (asJson ? "" : path + "  " + summaryOf(files) + "\n");
            } catch (const Failure& failure) {
                row["fault"] = failure.what();
                out << (asJson ? "" : path + "  cannot be restored\n");
            }
            list.push_back(row);
        }
    }
    if (asJson) {
        out << list.dump(2) << '\n';
    } else if (list.empty()) {
        out << "There are no backups yet.\n";
    }
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

Contents readBackup(const fs::path& path) {
    const GameDirectory saved(path, path);
    Contents files;
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
        const std::string name = entry.path().filename().string();
        if (!isDataFileName(name) || !entry.is_regular_file()) {
            throw Failure(path.string() + " contains \"" + name + "\", which is not a data file");
        }
        files[name] = readData(saved, name);
    }
    if (files.empty()) {
        throw Failure(path.string() + " is empty");
    }
    const auto characters = files.find(characterFileName);
    if (characters != files.end() &&
        characters->second.size() != slotCount * sizeof(PlayerRecord)) {
        throw Failure((path / characterFileName).string() + " has " +
                      counted(characters->second.size(), "byte") + "; must be 75000");
    }
    return files;
}

std::string summaryOf(const Contents& files) {
    return counted(files.size(), "file") + ", " + counted(playersIn(files), "player");
}

} // namespace morvek
