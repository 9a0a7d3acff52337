// Where a game lives, and its files there.
#pragma once

#include "files/configuration_file.h"
#include "state/player_record.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace morvek {

inline constexpr const char* characterFileName = "morchars.dat";

// The display files that the game asks for, without their endings.
extern const std::vector<std::string> menuNames;

struct GameDirectory {
    std::filesystem::path start; // where the program is started: holds morvek.cfg, if any does
    std::filesystem::path data;  // where all other files lie
    Configuration configuration;

    // A file's path in the data directory.
    [[nodiscard]] std::string file(const std::string& name) const { return (data / name).string(); }
};

// Finds the game as the program does that is started in this directory: the third line of
// morvek.cfg leads to the data, if it leads anywhere. Throws Failure when no game is there.
GameDirectory openGame(const std::string& directory);

// The text in the local clock's form of std::strftime.
std::string localTime(const char* format);

// Whether the name is that of a day's news: six digits and ".txt".
bool isNewsFileName(std::string_view name);

// The day of a stamp as its six digits in the order year, month, day; empty when there is no such
// day.
std::string sortableDay(std::string_view stamp);

// The data files that are there: characters, board, scores, bulletins, news. Not the display files
// and not the configuration, which are the operator's.
std::vector<std::string> dataFiles(const GameDirectory& home);

// Whether a data file may have that name.
bool isDataFileName(std::string_view name);

// The file's content, empty when there is none; throws Failure when it cannot be read.
std::string readData(const GameDirectory& home, const std::string& name);

// Replaces the file; throws Failure when it cannot be written.
void writeData(const GameDirectory& home, const std::string& name, std::string_view content);

// The records of a character file as the game reads it: always 50, empty ones where it ends early.
using Characters = std::vector<PlayerRecord>;

Characters charactersIn(std::string_view content);
Characters readCharacters(const GameDirectory& home);
void writeCharacters(const GameDirectory& home, const Characters& characters);

// Whether the slot belongs to nobody.
bool isFree(const PlayerRecord& slot);

// The names of all who are marked on-line, with commas between; empty when nobody is.
std::string namesOnline(const Characters& characters);

} // namespace morvek
