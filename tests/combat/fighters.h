// Fights, for tests.
#pragma once

#include "support/game_test.h"

#include <cstdio>

namespace morvek::test {

// Begins a call: a player of 30 hit points out of 40 meets an opponent of 10, as quick as he is.
inline void meet(const std::string& opponent) {
    newCall();
    game.session.characterFileName =
        testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name();
    std::remove(game.session.characterFileName.c_str());
    game.player.hitPoints = 30;
    game.player.maxHitPoints = 40;
    game.player.dexterity = 15;
    game.player.weaponDamage = 8;
    game.player.turnsLeft = 5;
    game.encounter.monsterCount = game.encounter.groupActive = game.encounter.ambushPending = 1;
    Monster& monster = game.encounter.monster;
    monster.name = opponent;
    monster.hitPoints = monster.maxHitPoints = 10;
    monster.initiative = 15;
    monster.damage = 6;
    monster.experience = 25;
    monster.gold = 75;
}

// All that a lost fight takes from the opponent.
inline double leftOfOpponent() {
    const Monster& monster = game.encounter.monster;
    return monster.maxHitPoints + monster.experience + monster.initiative + monster.damage +
           monster.gold;
}

} // namespace morvek::test
