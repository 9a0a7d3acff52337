// A character, for the files of a test.
#pragma once

#include "state/roster.h"

#include <string_view>

// A character as the game makes them.
inline morvek::PlayerRecord character(std::string_view owner, std::string_view name) {
    morvek::PlayerRecord slot = morvek::emptySlot();
    slot.bbsName.assign(owner);
    slot.ownerName.assign(owner);
    slot.name.assign(name);
    slot.className.assign("Ranger");
    slot.weapon.assign("Club");
    slot.armour.assign("Cloth");
    slot.level = slot.weaponNumber = slot.armourNumber = 1;
    slot.inUse = 1;
    slot.gold = 25;
    slot.experienceNeeded = 1000;
    slot.hitPoints = slot.maxHitPoints = 24;
    slot.strength = slot.constitution = slot.dexterity = 12;
    slot.intelligence = slot.wisdom = slot.charisma = 12;
    slot.turnsLeft = slot.turnsPerDay = 30;
    return slot;
}
