// A character file for calls of the real program.
#pragma once

#include "state/player_record.h"
#include "state/roster.h"

#include <string>

// Ace's character, who has been everywhere, or whom the first blow kills; and one to rob.
inline std::string rosterOf(bool strong) {
    morvek::Roster::Slots slots;
    slots.fill(morvek::emptySlot());
    morvek::PlayerRecord& own = slots[0];
    own.ownerName.assign("Ace");
    own.name.assign("Aldur");
    own.className.assign("Fighter");
    own.level = own.weaponNumber = own.armourNumber = 1;
    own.experience = own.experienceNeeded = 1000;
    own.gold = 100000;
    own.hitPoints = strong ? 5 : 1;
    own.maxHitPoints = 20;
    own.dexterity = strong ? 10 : 1;
    own.worldState.fill(strong ? 1 : 0);
    slots[1].ownerName.assign("Other");
    slots[1].name.assign("Bors");
    slots[1].gold = 70;
    slots[1].hitPoints = 1;
    return {reinterpret_cast<const char*>(slots.data()), sizeof slots};
}
