#pragma once

#include <cstdint>
#include <string>

namespace morvek {

// The caller's character.
struct Player {
    std::string name{};
    std::string className{};
    std::int32_t level = 0;
    std::int32_t experience = 0;
    double gold = 0.0; // money on hand
    double bankGold = 0.0;
    std::int32_t experienceNeeded = 0;
    std::int32_t hitPoints = 0;
    std::int32_t maxHitPoints = 0;
    std::int32_t strength = 0;
    std::int32_t constitution = 0;
    std::int32_t dexterity = 0;
    std::int32_t intelligence = 0;
    std::int32_t wisdom = 0;
    std::int32_t charisma = 0;
    std::int32_t weaponNumber = 0;
    std::string weapon{};
    std::int32_t armourNumber = 0;
    std::string armour{};
    std::int32_t turnsLeft = 0;
    std::int32_t turnsPerDay = 0;
    std::int32_t reservedCounter = 0;
    std::int32_t weaponDamage = 0; // die size of this round's blows
    std::int32_t armourValue = 0;  // armour of this round
    std::int32_t strengthGain = 0; // the last level's gains
    std::int32_t dexterityGain = 0;
    std::int32_t intelligenceGain = 0;
    std::int32_t hitPointGain = 0;
    std::int32_t restoredTurns = 0; // set by a level gained; nothing reads them
    std::int32_t restoredTurnsPerDay = 0;
};

} // namespace morvek
