// morvek.cfg, in the directory that the program is started in: three lines of text, each at most
// 253 characters and taken as it is, a carriage return before the line feed included.
//
//   1  free text, no use in the game
//   2  the board's name, shown behind "Hosted by"
//   3  the directory of the game's data and display files
//
// Lines that are missing are empty; so are all three when there is no such file. What follows the
// third line is not read.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace morvek {

inline constexpr const char* configurationFileName = "morvek.cfg";
constexpr std::size_t configurationLines = 3;
constexpr std::size_t longestConfigurationLine = 253;

struct Configuration {
    std::string hostName;
    std::string gameDirectory;
};

// The file's lines; nothing when one of the three is too long.
std::optional<Configuration> parseConfiguration(std::string_view text);

// Sets the session's host name and game directory from the file in the current directory; false
// when one of its three lines is too long.
bool readConfiguration();

} // namespace morvek
