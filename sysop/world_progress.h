// What a character has done to the world, as a record holds it: flags that are 0 or 1. They go by
// the names searched.12 and cleared.12 for the numbered places, castle1.3, castle2.3, mortuary1.3
// and cavern1.3 for the cleared rooms of the levels.
#pragma once

#include "state/player_record.h"
#include "state/world_words.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace morvek {

struct LevelName {
    const char* key;
    const char* title;
};

// A level as it is called in flags and on maps.
const LevelName& nameOf(Level level);

// The numbers of what is done.
struct Progress {
    std::vector<int> searched;
    std::vector<int> cleared;
    std::array<std::vector<int>, levelWords.size()> levels;
};

Progress progressOf(const PlayerRecord& slot);

// One of the 307 words of a record's world: the flag that it holds, if any, and whether it is the
// copy of one that the game never reads.
struct WorldFlag {
    std::string name;
    bool isCopy = false;
};

// Of all words, in the order of the record.
const std::vector<WorldFlag>& worldFlags();

// Sets the flag of that name, wherever the record holds it; false when there is none.
bool setWorldFlag(PlayerRecord& slot, std::string_view name, std::int32_t value);

} // namespace morvek
