// Characters and texts as the files hold them.
#pragma once

#include "state/roster.h"
#include "support/temporary_directory.h"

#include <cstring>

// The 24 bytes of a text of at most 15 characters.
inline std::string storedText(std::string text) {
    const std::string length{static_cast<char>(text.size()), '\0', '\0', '\0'};
    text.resize(16, '\0');
    return std::string(4, '\0') + length + text;
}

// Gives a slot of the roster in memory a character.
inline void own(std::size_t number, std::string_view owner, std::string_view name) {
    game.roster.slots()[number].ownerName.assign(owner);
    game.roster.slots()[number].name.assign(name);
}

// The roster in memory, as the character file holds it.
inline std::string rosterBytes() {
    return {reinterpret_cast<const char*>(game.roster.slots().data()), sizeof game.roster.slots()};
}

// A slot of the character file.
inline PlayerRecord storedSlot(std::size_t number) {
    PlayerRecord record;
    char* const bytes = reinterpret_cast<char*>(&record);
    readFile("morchars.dat").copy(bytes, sizeof record, number * sizeof record);
    return record;
}

// Begins a game with a player in whom every number differs, so that no two can be confused: his
// are 100, 101, ... in the order of the list, the world's words 1000, 1001, ...
inline void beginDistinctGame() {
    resetGame();
    Player& player = game.player;
    player = {.name = "Arwen",
              .className = "Ranger",
              .gold = 5e9,
              .bankGold = 6e10,
              .weapon = "Club",
              .armour = "Cloth"};
    std::int32_t number = 100;
    for (std::int32_t* field :
         {&player.level, &player.experience, &player.experienceNeeded, &player.hitPoints,
          &player.maxHitPoints, &player.strength, &player.constitution, &player.dexterity,
          &player.intelligence, &player.wisdom, &player.charisma, &player.weaponNumber,
          &player.armourNumber, &player.turnsLeft, &player.turnsPerDay, &player.reservedCounter,
          &game.world.currentLocation}) {
        *field = number++;
    }
    for (number = 1000; std::int32_t & word : game.world.words) {
        word = number++;
    }
}
