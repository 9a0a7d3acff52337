// Replaces the door toolkit by a caller who types the test's keys and keeps what he saw, and chance
// by the test's draws. The time is always noon, in UTC, of 15 November 2026. tests/README.md
// describes the notation.
#pragma once

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace morvek::test {

// The script ran out of keys at a wait for one.
using OutOfKeys = std::underflow_error;

// The program ended the call.
struct CallEnded {
    int status;
};

struct ScriptedCaller {
    std::string keys;   // still to be typed; '\r' ends a line
    std::string screen; // all that the game said and did

    // Forgets the screen, and types these keys from now on.
    void type(std::string_view newKeys) {
        keys = newKeys;
        screen.clear();
    }

    // Runs a place of the game with these keys until it returns; what was seen there.
    const std::string& visit(const std::function<void()>& place, std::string_view newKeys = {}) {
        type(newKeys);
        place();
        return screen;
    }

    // How often something is on the screen.
    [[nodiscard]] int times(std::string_view what) const;
    [[nodiscard]] bool saw(std::string_view what) const { return times(what) > 0; }

    // The screen between the first such texts; "nowhere" without the first.
    [[nodiscard]] std::string between(std::string_view from, std::string_view to) const;
};

extern ScriptedCaller caller;

// rand() answers the scripted draws in order, then keeps answering 0.
struct ScriptedChance {
    std::deque<int> draws;         // the first answers
    int drawn = 0;                 // how often rand() was called
    std::vector<int> seededBefore; // for each srand(), how many draws had been made by then

    // Scripts these draws, and counts from 0 again.
    void script(std::deque<int> next) { *this = {std::move(next), 0, {}}; }
};

extern ScriptedChance chance;

// The end of every question of a shop.
inline const std::string yesNo = " [`R`y`r`/`R`n`r`]`R`: `W`}[answer YN]";

// Begins a test: a new game on this day, a caller with that name, with or without ANSI graphics, no
// keys.
void newCall(bool ansi = true, std::string_view name = "Alice");

} // namespace morvek::test
