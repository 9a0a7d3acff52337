#include "sysop/backup.h"

#include "files/data_file.h"
#include "sysop/failure.h"
#include "sysop/tar_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <tuple>

namespace morvek {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view ending = ".tar";
constexpr std::size_t stampLength = std::string_view("20261115-120000").size();

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
        return name.append(ending);
    }
};

BackupName parseName(const std::string& name) {
    BackupName parsed{name.substr(0, stampLength), 1};
    if (name.size() > stampLength + ending.size() && name[stampLength] == '.') {
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

std::string newBackupFile(const GameDirectory& home) {
    std::error_code failed;
    fs::create_directories(backupDirectory(home), failed);
    if (failed) {
        throw Failure(backupDirectory(home).string() + " cannot be created: " + failed.message() +
                      "; nothing was changed");
    }
    BackupName name{localTime("%Y%m%d-%H%M%S"), 1};
    for (const BackupName& other : backupsOf(home)) {
        if (other.stamp == name.stamp) {
            name.number = other.number + 1;
        }
    }
    return (backupDirectory(home) / name.text()).string();
}

void forgetOldest(const GameDirectory& home) {
    const std::vector<BackupName> names = backupsOf(home);
    for (std::size_t i = 0; i + backupsKept < names.size(); ++i) {
        std::error_code ignored;
        fs::remove(backupDirectory(home) / names[i].text(), ignored);
    }
}

// The backup of that name, which may lie in the backup directory and lack its ending.
std::string findBackup(const GameDirectory& home, const std::string& named) {
    for (const fs::path& path : {fs::path(named), backupDirectory(home) / named,
                                 backupDirectory(home) / (named + std::string(ending))}) {
        if (fs::is_regular_file(path)) {
            return path.string();
        }
    }
    throw Failure(named + ": no such backup; `backup --list` lists them");
}

std::vector<ArchivedFile> readBackup(const std::string& path) {
    const std::optional<std::string> bytes = readWhole(path);
    if (!bytes) {
        throw Failure(path + " cannot be read: " + std::strerror(errno));
    }
    std::optional<std::vector<ArchivedFile>> files = readTar(*bytes);
    if (!files) {
        throw Failure(path + " is not a complete backup; nothing was changed");
    }
    for (const ArchivedFile& file : *files) {
        if (!isDataFileName(file.name)) {
            throw Failure(path + " contains \"" + file.name +
                          "\", which is not a data file; nothing was changed");
        }
    }
    return *files;
}

bool holds(const std::vector<ArchivedFile>& files, const std::string& name) {
    return std::any_of(files.begin(), files.end(),
                       [&](const ArchivedFile& file) { return file.name == name; });
}

void removeData(const GameDirectory& home, const std::string& name) {
    std::error_code failed;
    if (!fs::remove(home.file(name), failed)) {
        throw Failure(home.file(name) + " cannot be removed: " + failed.message());
    }
}

std::size_t playersIn(const std::vector<ArchivedFile>& files) {
    std::size_t players = 0;
    for (const ArchivedFile& file : files) {
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

std::string makeBackup(const GameDirectory& home, const std::string& file) {
    if (!file.empty() && fs::exists(file)) {
        throw Failure(file + " already exists");
    }
    std::vector<ArchivedFile> files;
    for (const std::string& name : dataFiles(home)) {
        files.push_back({name, readData(home, name)});
    }
    std::string path = file.empty() ? newBackupFile(home) : file;
    if (const int error = replaceFile(path, tarOf(files, std::time(nullptr)))) {
        throw Failure(path + " cannot be written: " + std::strerror(error) +
                      "; nothing was changed");
    }
    if (file.empty()) {
        forgetOldest(home);
    }
    return path;
}

void backUp(const GameDirectory& home, std::ostream& out, const std::string& file) {
    const std::string made = makeBackup(home, file);
    out << "Backup: " << made << '\n';
}

void listBackups(const GameDirectory& home, std::ostream& out) {
    const std::vector<BackupName> names = backupsOf(home);
    for (const BackupName& name : names) {
        const std::string path = (backupDirectory(home) / name.text()).string();
        const auto files = readTar(readWhole(path).value_or(std::string()));
        out << path << "  "
            << (files ? counted(files->size(), "file") + ", " + counted(playersIn(*files), "player")
                      : "damaged")
            << '\n';
    }
    if (names.empty()) {
        out << "There are no backups yet.\n";
    }
}

void restoreBackup(const GameDirectory& home, const std::string& named, std::ostream& out) {
    const std::string path = findBackup(home, named);
    const std::vector<ArchivedFile> files = readBackup(path);
    backUp(home, out);
    for (const ArchivedFile& file : files) {
        writeData(home, file.name, file.content);
    }
    for (const std::string& name : dataFiles(home)) {
        if (!holds(files, name)) {
            removeData(home, name);
        }
    }
    out << "Restored " << path << ": " << counted(files.size(), "file") << ", "
        << counted(playersIn(files), "player") << ".\n";
}

void resetGame(const GameDirectory& home, std::ostream& out) {
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
