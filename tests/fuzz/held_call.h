// A caller whose every byte comes from the input, at the door toolkit's own session: only the line
// to him, the clock and the process's end are replaced.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace fuzz {

// How he calls: the bits of the input's first byte, and what he types.
struct Call {
    explicit Call(unsigned bits, std::string_view typed = {}) : keys(typed) {
        ansi = (bits & 1) != 0;
        utf8 = (bits & 2) != 0;
        telnet = (bits & 4) != 0;
        slow = (bits & 8) != 0;
        hurried = (bits & 16) != 0;
    }

    bool ansi;
    bool utf8;
    bool telnet;         // and, unless he has ANSI graphics, asked whether he has
    bool slow;           // types no key ahead; for a NUL he waits a minute
    bool hurried;        // has 7 minutes left
    bool trusted = true; // whether what he is shown must be free of foreign control bytes
    std::string name = "Alice";
    std::string_view keys; // the line is lost behind the last one
};

// Holds one call in a new session, until the door comes to its end or the session ends.
void hold(const Call& next, const std::function<void()>& door);

} // namespace fuzz
