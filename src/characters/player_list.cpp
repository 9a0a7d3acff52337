#include "characters/player_list.h"

#include "characters/character_file.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "state/roster.h"

namespace morvek {
namespace {

void copyToList(PlayerListEntry& entry, const PlayerRecord& slot) {
    entry.slotIndex = slot.slotIndex;
    entry.lastPlayedDay = slot.lastPlayedDay;
    entry.name = slot.name;
    entry.className = slot.className;
    entry.level = slot.level;
    entry.experience = slot.experience;
    entry.gold = slot.gold;
    entry.bankGold = slot.bankGold;
    entry.experienceNeeded = slot.experienceNeeded;
    entry.hitPoints = slot.hitPoints;
    entry.maxHitPoints = slot.maxHitPoints;
    entry.strength = slot.strength;
    entry.constitution = slot.constitution;
    entry.dexterity = slot.dexterity;
    entry.intelligence = slot.intelligence;
    entry.wisdom = slot.wisdom;
    entry.charisma = slot.charisma;
    entry.weaponNumber = slot.weaponNumber;
    entry.weapon = slot.weapon;
    entry.armourNumber = slot.armourNumber;
    entry.armour = slot.armour;
    entry.turnsLeft = slot.turnsLeft;
    entry.turnsPerDay = slot.turnsPerDay;
    entry.reservedCounter = slot.reservedCounter;
    entry.currentLocation = slot.currentLocation;
}

void showListed(const TextSlot& name, std::size_t slot) {
    say("`bright red`");
    show(name.view());
    say(" `red`#`bright white`");
    show(static_cast<std::int32_t>(slot + 1));
    say("\n\r");
}

} // namespace

void loadRoster() {
    clearAnsiOnly();
    if (!readRoster()) {
        return;
    }
    for (std::size_t slot = 0; slot < searchedSlots; ++slot) {
        const PlayerRecord& stored = game.roster.slots()[slot];
        if (!stored.ownerName.view().empty()) {
            copyToList(game.roster.list()[slot], stored);
        }
    }
}

void showPlayerList() {
    clearScreen();
    say("`red`Player List\n\r");
    say("`bright white`-----------\n\r");
    say("\n\r");
    for (std::size_t slot = 0; slot < searchedSlots; ++slot) {
        const TextSlot& name = game.roster.list()[slot].name;
        if (!name.view().empty()) {
            showListed(name, slot);
            game.roster.playerCount = static_cast<std::int32_t>(slot + 2);
        }
    }
}

void showUsersOnline() {
    clearScreen();
    say("`red`Users currently on-line`bright red`:\n\r");
    say("`bright white`------------------------\n\r\n\r");
    for (std::size_t slot = 0; slot < searchedSlots; ++slot) {
        const PlayerRecord& stored = game.roster.slots()[slot];
        if (stored.onlineFlag == 1) {
            showListed(stored.name, slot);
        }
    }
    say("\n\r");
    pressAnyKey();
}

} // namespace morvek
