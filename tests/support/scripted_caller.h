// A caller who types what the test says and keeps what he saw, at dice that fall as it says. His
// od_... functions take the place of the door toolkit's; it is always noon, in UTC, of 15 November
// 2026.
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
    std::string keys; // still to be typed; '\r' ends a line

    // All that the program said and did, in a row: {a text with colours} <a value shown as it is>
    // [anything else], such as [clear], [key], [menu NAME KEYS], [answer OPTIONS],
    // [line LONGEST LOWEST HIGHEST INITIAL], and [any key] for "Press any key!" in red and the wait
    // for one. In a text "|" stands for "\n\r", and `r`, `R` and `W` for the colours `red`,
    // `bright red` and `bright white`.
    std::string screen;

    // Forgets what was seen, and types these keys from now on.
    void type(std::string_view newKeys) {
        keys = newKeys;
        screen.clear();
    }

    // Types these keys in a place of the game until it is left; what he saw there.
    const std::string& visit(const std::function<void()>& place, std::string_view newKeys = {}) {
        type(newKeys);
        place();
        return screen;
    }

    // How often something is on the screen.
    [[nodiscard]] int times(std::string_view what) const;
    [[nodiscard]] bool saw(std::string_view what) const { return times(what) > 0; }

    // The screen behind the first such text, up to the one that follows it.
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
