// Chance and the clock as a test sets them: rand() answers the scripted draws in order, then keeps
// answering 0; srand() counts; time() answers the scripted second.
#pragma once

#include <ctime>
#include <deque>
#include <vector>

namespace morvek::test {

struct ScriptedChance {
    std::deque<int> draws;         // answers still to come
    int drawn = 0;                 // how often rand() was called
    std::vector<int> seededBefore; // for each srand(), how many draws had been made by then
    std::time_t now = 1794744000;  // 15 November 2026, 12:00 UTC

    // Scripts these draws, and counts from 0 again.
    void script(std::deque<int> next);
};

extern ScriptedChance chance;

} // namespace morvek::test
