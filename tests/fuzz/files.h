#pragma once

#include <map>
#include <string>

namespace fuzz {

// The game's files by their names.
extern std::map<std::string, std::string> files;

// What the next draws of chance follow from.
extern unsigned seed;

} // namespace fuzz
