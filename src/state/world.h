#pragma once

#include "state/world_words.h"

#include <cstdint>

namespace morvek {

// Where the player is, and what he has done there.
struct World {
    WorldWords words{};
    std::int32_t currentLocation = 0;
    std::int32_t previousLocation = 0;
    std::int32_t leavingWorld = 0;
    std::int32_t exhaustedShown = 0; // 1: shown; a save sets 50, which counts as not shown
    std::int32_t playerDead = 0;
    std::int32_t foundMorvek = 0;

    std::int32_t& searched(int location) { return words[searchedWord(location)]; }
    std::int32_t& cleared(int location) { return words[clearedWord(location)]; }
    std::int32_t& position(Level level) { return words[wordsOf(level).positionWord]; }
    std::int32_t& levelCleared(Level level, int room) {
        return words[levelClearedWord(level, room)];
    }
};

} // namespace morvek
