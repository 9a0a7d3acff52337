// morvek.cfg, in the directory that the program is started in: three lines of text, each at most
// 253 characters and taken as it is, a carriage return before the line feed included.
//
//   1  free text, no use in the game
//   2  the board's name, shown behind "Hosted by"
//   3  the directory of the game's data and display files
//
// Lines that are missing are empty; so are all three when there is no such file.
#pragma once

#include <string_view>

namespace morvek {

inline constexpr const char* configurationFileName = "morvek.cfg";

// Takes host name and game directory from the file; false when one of its three lines is too long.
bool readConfiguration();

} // namespace morvek
