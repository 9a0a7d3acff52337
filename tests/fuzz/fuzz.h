// What all targets share.
#pragma once

#include "support/folder.h"

#include <algorithm>
#include <cstdint>
#include <functional>

#include <unistd.h>

namespace fuzz {

// Takes any bytes; FUZZED names the one that an executable is built for.
using Target = void (*)(std::string_view input);

// Ends the run with a finding unless the condition holds.
inline void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

// Takes so many bytes off the input's front, fewer where it ends.
inline std::string_view take(std::string_view& input, std::size_t size) {
    const std::string_view taken = input.substr(0, size);
    input.remove_prefix(taken.size());
    return taken;
}

// Takes one byte as a number; 0 at the input's end.
inline unsigned takeNumber(std::string_view& input) {
    return input.empty() ? 0U : static_cast<unsigned char>(take(input, 1).front());
}

// The directory of this process's own in which it works from now on, in memory where there is such
// a place.
inline const Folder& workFolder() {
    static const Folder folder(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp");
    require(chdir(folder.self.c_str()) == 0);
    return folder;
}

// A caller whose every byte comes from the input, at the door toolkit's own session: the bits of
// the input's first byte, and what he types.
struct Call {
    unsigned bits;
    std::string_view keys{}; // the line is lost behind the last one
    bool ansi = (bits & 1) != 0;
    bool utf8 = (bits & 2) != 0;
    bool telnet = (bits & 4) != 0;    // and, unless he has ANSI graphics, asked whether he has
    bool slow = (bits & 8) != 0;      // types no key ahead; for a NUL he waits a minute
    bool hurried = (bits & 16) != 0;  // has 7 minutes left
    bool measured = (bits & 32) != 0; // the character set is asked for
    bool trusted = true; // whether what he is shown must be free of foreign control bytes
    std::string name = "Alice";
};

// Holds one call in a new session, until the door comes to its end or the session ends.
void hold(const Call& next, const std::function<void()>& door);

} // namespace fuzz
