#include "state/dice.h"

#include "state/encounter.h"
#include "state/game_state.h"

#include <cstdlib>
#include <ctime>

namespace morvek {
namespace {

void rollSeeded(std::int32_t sides) {
    seedFromClock();
    game.encounter.lastRoll = draw(sides) + 1;
}

void rollPairSeeded(std::int32_t sides) {
    seedFromClock();
    const std::int32_t first = draw(sides);
    const std::int32_t second = draw(sides);
    game.encounter.lastRoll = first + second + 2;
}

} // namespace

void seedFromClock() { std::srand(static_cast<unsigned>(std::time(nullptr))); }

std::int32_t draw(std::int32_t sides) {
    const int drawn = std::rand();
    return sides < 1 ? 0 : drawn % sides;
}

std::int32_t roll3d6() {
    const std::int32_t first = draw(6);
    const std::int32_t second = draw(6);
    const std::int32_t third = draw(6);
    return first + second + 2 + third + 1;
}

void rollD2() { rollSeeded(2); }

void rollD3() { rollSeeded(3); }

void rollD4() { rollSeeded(4); }

void rollD6() { rollSeeded(6); }

void rollD8() { rollSeeded(8); }

void rollD10() { rollSeeded(10); }

void rollD12() { rollSeeded(12); }

void roll2D4() { rollPairSeeded(4); }

void roll2D6() { rollPairSeeded(6); }

void rollGoldDie() { game.encounter.lastRoll = draw(game.encounter.goldDie) + 1; }

} // namespace morvek
