// Backups are plain tar archives (POSIX ustar), so that any tar can list and unpack them: for each
// file a header of 512 bytes and the content, filled up with zeros to a multiple of 512; two
// blocks of zeros at the end. In the header, numbers are octal digits:
//
//     0  name, at most 99       124  size, 11 digits        157  link name, zeros
//   100  mode "0000644"         136  time, 11 digits        257  "ustar", zero, "00"
//   108  user and group, zero   148  checksum               265  zeros
//                               156  "0", a plain file
//
// The checksum is the sum of the header's 512 bytes, its own eight taken as blanks: six digits, a
// zero, a blank.
#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvek {

struct ArchivedFile {
    std::string name;
    std::string content;
};

std::string tarOf(const std::vector<ArchivedFile>& files, std::time_t when);

// The plain files of an archive; nothing when the bytes are no whole archive, or hold anything
// else.
std::optional<std::vector<ArchivedFile>> readTar(std::string_view bytes);

} // namespace morvek
