#include "support/scripted_chance.h"

#include <cstdlib>
#include <utility>

namespace morvek::test {

ScriptedChance chance;

void ScriptedChance::script(std::deque<int> next) {
    draws = std::move(next);
    drawn = 0;
    seededBefore.clear();
}

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
    if (result != nullptr) {
        *result = chance.now;
    }
    return chance.now;
}
}
