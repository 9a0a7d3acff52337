// Fights, for tests.
#pragma once

#include "state/encounter.h"
#include "support/temporary_directory.h"

// Begins a call: a player of 30 hit points out of 40 meets an opponent of 10, as quick as he is.
inline void meet(const std::string& opponent) {
    newCall();
    game.player = {
        .hitPoints = 30, .maxHitPoints = 40, .dexterity = 15, .turnsLeft = 5, .weaponDamage = 8};
    game.encounter.monsterCount = game.encounter.groupActive = game.encounter.ambushPending = 1;
    Monster& monster = game.encounter.monster;
    monster = {.damage = 6, .initiative = 15, .gold = 75, .experience = 25, .name = opponent};
    monster.hitPoints = monster.maxHitPoints = 10;
}
