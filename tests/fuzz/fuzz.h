// What all targets share. A target is a routine that takes any bytes; FUZZED names the one that an
// executable is built for.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace fuzz {

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

// Works from now on in a directory of this process's own, in memory where there is such a place;
// it is gone with the process.
void workInMemory();

// Writes a file there.
void writeFile(const char* name, std::string_view bytes);

} // namespace fuzz
