#include "sysop/backup.h"

#include "files/data_file.h"
#include "sysop/failure.h"

#include <algorithm>
#include <tuple>

namespace morvek {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t stampLength = std::string_view("20261115-120000").size();

struct SavedFile {
    std::string name;
    std::string content;
};

fs::path backupDirectory(const GameDirectory& home) {
    return (home.data / "backup").lexically_normal();
}

// A backup's name in the order of time: the second, and its number within the second.
struct BackupName {
    std::string stamp;
    int number = 0; // 0: no name of a backup

    bool operator<(const BackupName& other) const {
        return std::tie(stamp, number) < std::tie(other.stamp, other.number);
    }

    [[nodiscard]] std::string text() const {
        std::string name = stamp;
        if (number > 1) {
            name.append(".").append(std::to_string(number));
        }
        return name;
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

std::vector<BackupName> backupsOf(const GameDirectory& home) {
    std::vector<BackupName> names;
    std::error_code ignored;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(backupDirectory(home), ignored)) {
        const BackupName name = parseName(entry.path().filename().string());
        if (name.number > 0) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

void createDirectories(const fs::path& path) {
    std::error_code failed;
    fs::create_directories(path, failed);
    if (failed) {
        throw Failure(path.string() + " cannot be created: " + failed.message() +
                      "; nothing was changed");
    }
}

fs::path newBackup(const GameDirectory& home) {
    createDirectories(backupDirectory(home));
    BackupName name{localTime("%Y%m%d-%H%M%S"), 1};
    for (const BackupName& other : backupsOf(home)) {
        if (other.stamp == name.stamp) {
            name.number = other.number + 1;
        }
    }
    return backupDirectory(home) / name.text();
}

void removeOldest(const GameDirectory& home) {
    const std::vector<BackupName> names = backupsOf(home);
    for (std::size_t i = 0; i + backupsKept < names.size(); ++i) {
        std::error_code ignored;
        fs::remove_all(backupDirectory(home) / names[i].text(), ignored);
    }
}

// The backup of that name, which may lie in the backup directory.
fs::path findBackup(const GameDirectory& home, const std::string& named) {
    for (const fs::path& path : {fs::path(named), backupDirectory(home) / named}) {
        if (fs::is_directory(path)) {
            return path;
        }
    }
    throw Failure(named + ": no such backup; `backup --list` lists them");
}

std::vector<SavedFile> readBackup(const fs::path& path) {
    const GameDirectory saved{path, path, {}};
    std::vector<SavedFile> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
        const std::string name = entry.path().filename().string();
        if (!isDataFileName(name) || !entry.is_regular_file()) {
            throw Failure(path.string() + " contains \"" + name +
                          "\", which is not a data file; nothing was changed");
        }
        files.push_back({name, readData(saved, name)});
    }
    return files;
}

bool holds(const std::vector<SavedFile>& files, const std::string& name) {
    return std::any_of(files.begin(), files.end(),
                       [&](const SavedFile& file) { return file.name == name; });
}

void removeData(const GameDirectory& home, const std::string& name) {
    std::error_code failed;
    if (!fs::remove(home.file(name), failed)) {
        throw Failure(home.file(name) + " cannot be removed: " + failed.message());
    }
}

std::size_t playersIn(const std::vector<SavedFile>& files) {
    std::size_t players = 0;
    for (const SavedFile& file : files) {
        if (file.name == characterFileName) {
            const Characters characters = charactersIn(file.content);
            players = characters.size() - static_cast<std::size_t>(std::count_if(
                                              characters.begin(), characters.end(), isFree));
        }
    }
    return players;
}

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

std::string makeBackup(const GameDirectory& home, const std::string& directory) {
    if (!directory.empty() && fs::exists(directory)) {
        throw Failure(directory + " already exists");
    }
    const fs::path path = directory.empty() ? newBackup(home) : fs::path(directory);
    const fs::path staged = path.string() + ".new";
    createDirectories(staged);
    std::error_code failed;
    try {
        for (const std::string& name : dataFiles(home)) {
            writeData({staged, staged, {}}, name, readData(home, name));
        }
        fs::rename(staged, path);
    } catch (const std::exception& error) {
        fs::remove_all(staged, failed);
        throw Failure(std::string(error.what()) + "; nothing was changed");
    }
    if (directory.empty()) {
        removeOldest(home);
    }
    return path.string();
}

void backUp(const GameDirectory& home, std::ostream& out, const std::string& directory) {
    const std::string made = makeBackup(home, directory);
    out << "Backup: " << made << '\n';
}

void listBackups(const GameDirectory& home, std::ostream& out) {
    const std::vector<BackupName> names = backupsOf(home);
    for (const BackupName& name : names) {
        const fs::path path = backupDirectory(home) / name.text();
        const std::vector<SavedFile> files = readBackup(path);
        out << path.string() << "  " << counted(files.size(), "file") << ", "
            << counted(playersIn(files), "player") << '\n';
    }
    if (names.empty()) {
        out << "There are no backups yet.\n";
    }
}

void restoreBackup(const GameDirectory& home, const std::string& named, std::ostream& out) {
    const fs::path path = findBackup(home, named);
    const std::vector<SavedFile> files = readBackup(path);
    if (files.empty()) {
        throw Failure(path.string() + " is empty; nothing was changed");
    }
    backUp(home, out);
    for (const SavedFile& file : files) {
        writeData(home, file.name, file.content);
    }
    for (const std::string& name : dataFiles(home)) {
        if (!holds(files, name)) {
            removeData(home, name);
        }
    }
    out << "Restored " << path.string() << ": " << counted(files.size(), "file") << ", "
        << counted(playersIn(files), "player") << ".\n";
}

void beginSeason(const GameDirectory& home, std::ostream& out) {
    const std::vector<std::string> names = dataFiles(home);
    if (names.empty()) {
        out << "There is nothing to reset: nobody has played yet.\n";
        return;
    }
    backUp(home, out);
    for (const std::string& name : names) {
        removeData(home, name);
    }
    out << "A new season: " << counted(names.size(), "data file") << " removed.\n";
}

} // namespace morvek
