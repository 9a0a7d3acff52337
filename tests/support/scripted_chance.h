// Chance as a test sets it, and a clock that stands still: rand() answers the scripted draws in
// order, then keeps answering 0; srand() is noted; it is always noon, in UTC, of 15 November 2026.
#pragma once

#include <ctime>
#include <deque>
#include <vector>

namespace morvek::test {

struct ScriptedChance {
    std::deque<int> draws;         // answers still to come
    int drawn = 0;                 // how often rand() was called
    std::vector<int> seededBefore; // for each srand(), how many draws had been made by then

    // Scripts these draws, and counts from 0 again.
    void script(std::deque<int> next) { *this = {std::move(next), 0, {}}; }
};

extern ScriptedChance chance;

} // namespace morvek::test
