// A caller who types what the test says and keeps what he saw. His od_... functions take the
// place of the door toolkit's.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace morvek::test {

// The script ran out of keys at a wait for one.
struct OutOfKeys : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The program ended the call.
struct CallEnded {
    int status;
};

struct ScriptedCaller {
    std::string keys;               // still to be typed; '\r' ends a line
    std::string seen;               // all texts in order, colour codes as written
    std::vector<std::string> calls; // "say TEXT", "show TEXT", "clear", "menu NAME KEYS", "key",
                                    // "answer OPTIONS", "line LONGEST LOWEST HIGHEST INITIAL",
                                    // "cursor ROW COLUMN", "colour F B", ...

    // Forgets what was seen, and types these keys from now on.
    void type(std::string_view newKeys);

    // All calls so far, one a line, with "\n\r" written as "|": for whole screens at a glance.
    [[nodiscard]] std::string screen() const;

    [[nodiscard]] bool saw(std::string_view text) const;
};

extern ScriptedCaller caller;

// Begins a test: a new game, a caller with that name, with or without ANSI graphics, no keys.
void newCall(bool ansi = true, std::string_view name = "Alice");

} // namespace morvek::test
