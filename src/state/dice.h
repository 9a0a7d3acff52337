// The game's dice. All chance is the C library's rand(). The dice d2 to d12, 2d4 and 2d6 seed it
// from the clock before each roll, so two rolls within one second are equal. Each routine leaves
// its result in game.encounter.lastRoll.
#pragma once

#include <cstdint>

namespace morvek {

void rollD2();
void rollD3();
void rollD4();
void rollD6();
void rollD8();
void rollD10();
void rollD12();
void roll2D4();
void roll2D6();

// A roll of game.encounter.goldDie, without a new seed; a die below 1 counts as 1.
void rollGoldDie();

// Seeds rand() from the clock.
void seedFromClock();

// One draw of rand() on a die of so many sides: 0 to sides - 1. A die below 1 counts as 1 and is
// drawn all the same.
std::int32_t draw(std::int32_t sides);

// 3 to 18 from three draws, without a new seed.
std::int32_t roll3d6();

} // namespace morvek
