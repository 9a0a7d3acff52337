#pragma once

#include <cstdint>
#include <string>

namespace morvek {

// The one opponent at hand: a monster of the world, a trainer, or another player's character.
struct Monster {
    std::int32_t damage = 0; // die size of its blows; armour lowers it during a fight
    std::int32_t stat1 = 0;  // stat1 to stat9 come from its stat block; no rule reads them
    std::int32_t stat2 = 0;
    std::int32_t stat3 = 0;
    std::int32_t stat4 = 0;
    std::int32_t initiative = 0; // against the player's dexterity: who strikes first
    std::int32_t stat5 = 0;
    double gold = 0.0;
    std::string alignment{};
    std::int32_t stat6 = 0;
    std::int32_t stat7 = 0;
    std::int32_t monsterReady = 0; // 1 once set up, or the group wiped out, in this visit
    std::int32_t stat8 = 0;
    std::int32_t maxHitPoints = 0;
    std::int32_t hitPoints = 0; // beaten below 1
    std::int32_t experience = 0;
    std::string role{};
    std::int32_t stat9 = 0;
    std::string keyword{};
    std::string origin{};
    std::string size{};
    std::string name{};
};

} // namespace morvek
