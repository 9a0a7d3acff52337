// Where a game lives, its files there, and who plays it.
#pragma once

#include "files/configuration_file.h"
#include "files/game_lock.h"
#include "state/player_record.h"
#include "state/scroll.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace morvek {

namespace fs = std::filesystem;

inline constexpr const char* characterFileName = "morchars.dat";

// The display files that the game asks for, without their endings.
extern const std::vector<std::string> menuNames;

struct GameDirectory {
    GameDirectory(fs::path startedIn, const fs::path& dataIn)
        : start(std::move(startedIn)), data(dataIn),
          lock(std::make_shared<GameLock>((dataIn / lockFileName).string())) {}

    // A file's path in the data directory.
    [[nodiscard]] std::string file(const std::string& name) const { return (data / name).string(); }

    // Whether the character's owner is in the game now.
    [[nodiscard]] bool isInside(const PlayerRecord& slot) const {
        return lock->isInside(slot.ownerName.view());
    }

    fs::path start; // where the program is started: holds morvek.cfg, if any does
    fs::path data;  // where all other files lie
    Configuration configuration;
    std::shared_ptr<GameLock> lock;
};

// Finds the game as the program does that is started in this directory: the third line of
// morvek.cfg leads to the data, if it leads anywhere. Throws Failure when no game is there.
GameDirectory openGame(const std::string& directory);

// The names of everything in the directory, sorted.
std::vector<std::string> namesIn(const fs::path& directory);

// The file's name as the directory has it, in whatever letter case; empty when it has none.
std::string nameInAnyCase(const GameDirectory& home, const std::string& name);

// Creates the directory and those above it. What root creates belongs to the owner of the directory
// that it is created in. Returns the uppermost directory that was created; empty when all are
// there.
fs::path createDirectories(const fs::path& path);

// The text in the local clock's form of std::strftime.
std::string localTime(const char* format);

// Whether the name is that of a day's news: six digits and ".txt".
bool isNewsFileName(std::string_view name);

// The day of a stamp, MMDDYY, as 2026-11-15; empty when there is no such day.
std::string dayOf(std::string_view stamp);
std::string dayOf(std::int32_t stamp);

// The data files that are there: characters, board, scores, bulletins, news. Not the display files
// and not the configuration, which are the operator's.
std::vector<std::string> dataFiles(const GameDirectory& home);

// Whether a data file may have that name.
bool isDataFileName(std::string_view name);

// The file's content, empty when there is none; throws Failure when it cannot be read.
std::string readData(const GameDirectory& home, const std::string& name);

// The whole board, with what a caller who types a message has taken out of its file.
std::string readBoard(const GameDirectory& home);

// The entries of a board's file, each as its bytes; always ten.
std::vector<std::string> boardEntries(const std::string& content);

// Their texts.
ScrollEntry textsOf(const std::string& entry);

// The records of a character file as the game reads it: always 50, empty ones where it ends early.
using Characters = std::vector<PlayerRecord>;

Characters charactersIn(std::string_view content);
Characters readCharacters(const GameDirectory& home);
std::string bytesOf(const Characters& characters);

// Whether the slot belongs to nobody.
bool isFree(const PlayerRecord& slot);

// The number of slots that belong to somebody, among those that the game searches.
std::size_t takenPlaces(const Characters& characters);

} // namespace morvek
