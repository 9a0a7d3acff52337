#pragma once

#include "state/monster.h"

#include <cstdint>

namespace morvek {

// The opponent at hand and his group.
struct Encounter {
    Monster monster;
    std::int32_t lastRoll = 0;
    std::int32_t goldDie = 0;
    std::int32_t monsterCount = 0;
    std::int32_t attackOrder = 0; // 0: the player strikes first this round
    std::int32_t groupActive = 0;
    std::int32_t ambushPending = 0;
    double lastTreasure = 0.0;
};

} // namespace morvek
