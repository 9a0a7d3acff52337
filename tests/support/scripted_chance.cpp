#include "support/scripted_chance.h"

#include <cstdlib>

namespace morvek::test {

ScriptedChance chance;

} // namespace morvek::test

using morvek::test::chance;

extern "C" {

int rand() noexcept {
    ++chance.drawn;
    if (chance.draws.empty()) {
        return 0;
    }
    const int answer = chance.draws.front();
    chance.draws.pop_front();
    return answer;
}

void srand(unsigned) noexcept {
    chance.seededBefore.push_back(chance.drawn);
}

std::time_t time(std::time_t* result) noexcept {
    const std::time_t now = 1794744000; // 15 November 2026, 12:00 UTC
    if (result != nullptr) {
        *result = now;
    }
    return now;
}
}
