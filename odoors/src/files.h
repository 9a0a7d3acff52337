#pragma once

#include <optional>
#include <string>

namespace odoors {

// The path under which the file is there: as it is given, else with its last part in any other
// letter case; none when there is no such file.
std::optional<std::string> findFile(const std::string& path);

// All bytes of a file; none when it cannot be read (errno says why; ESPIPE: a pipe or a device).
std::optional<std::string> readFile(const std::string& path);

// Whether the path is a directory.
bool isDirectory(const std::string& path);

// The part of a path after its last slash.
std::string lastPart(const std::string& path);

} // namespace odoors
