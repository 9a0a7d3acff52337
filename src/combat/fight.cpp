// The rules of a fight in the world.
//
// Before a round the player's weapon and armour are rolled, each with the die of its number; both
// dice seed chance from the clock, so equal numbers fall alike. Fists and a T-shirt keep what the
// round before had.
//
// The player strikes first unless the monster's initiative is above his dexterity. Whoever is
// still standing strikes back. A blow hits when one draw of 20 is at least another: ties hit. All
// its draws are made first, whether it hits or not.
//
//   player's damage    1 to weaponDamage; a critical blow adds half of it, rounded down
//   critical           when a draw of weaponDamage + 20 is above 9: the larger the weapon, the
//                      likelier, and never less than one in two
//   monster's damage   1 to its damage die, after armour
//   armour             A against the die D: D becomes D - A where D is the larger, for the rest of
//                      the fight; then A becomes A - D where A is the larger, for this round
//
// A killed monster gives its experience and gold and leaves its group. With the last of the group
// the place counts as cleared, and so does, in each of the four levels, the room last entered,
// wherever the player stands. A kill at location 46 clears 47 instead: 46 is never cleared.
//
// A blow struck while no group is left costs a turn: the one that kills its last monster, and any
// struck at a monster without a group. The player's last turn sends him home. His death is saved
// at once.

#include "combat/fight.h"

#include "characters/character_file.h"
#include "combat/opponent.h"
#include "screen/screen.h"
#include "state/dice.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "state/wrapping.h"

#include <array>

namespace morvek {
namespace {

// What a weapon and an armour of one number roll.
struct KitRow {
    void (*roll)();
    std::int32_t weaponPlus;
    std::int32_t armourPlus;
};

// Numbers 1 to 7; no shop sells the seventh.
constexpr std::array<KitRow, 7> kit{{
    {rollD3, 1, 1},
    {rollD4, 2, 2},
    {rollD4, 4, 3},
    {rollD6, 5, 4},
    {rollD6, 7, 5},
    {rollD8, 9, 6},
    {rollD8, 10, 7},
}};

struct PlayerBlow {
    Blow blow;
    bool critical;
};

PlayerBlow drawPlayerBlow() {
    const std::int32_t die = game.player.weaponDamage;
    const std::int32_t skill = draw(20);
    const std::int32_t luck = draw(20);
    const std::int32_t damage = draw(die) + 1;
    const bool critical = draw(die + 20) > 9;
    return {{skill >= luck, critical ? damage + damage / 2 : damage}, critical};
}

std::string_view name() { return opponentName(maxNameInFight); }

void sayHitPoints() {
    const Monster& monster = game.encounter.monster;
    if (game.world.playerDead != 1) {
        say("`red`Your HP`bright red`: `bright white`");
    }
    showPair(game.player.hitPoints, "`red`/`bright white`", game.player.maxHitPoints);
    say("\n\r");
    sayOf(name(), "'s `red`HP`bright red`: `bright white`");
    showPair(monster.hitPoints, "`red`/`bright white`", monster.maxHitPoints);
    say("\n\r\n\r");
}

void markLocationCleared() {
    const std::int32_t here = game.world.currentLocation;
    if (here >= 1 && here <= locationCount) {
        game.world.cleared(here == 46 ? 47 : here) = 1;
    }
}

void markLevelsCleared() {
    for (const LevelWords& words : levelWords) {
        const std::int32_t room = game.world.position(words.level);
        if (room >= 1 && room <= words.rooms) {
            game.world.levelCleared(words.level, room) = 1;
        }
    }
}

void endGroup() {
    game.encounter.groupActive = 0;
    game.encounter.monster.monsterReady = 1;
    markLocationCleared();
    markLevelsCleared();
}

void killMonster() {
    Player& player = game.player;
    const Monster& monster = game.encounter.monster;
    sayOf(name(), " `red`has been slained!\n\r\n\r");
    player.experience = wrappingAdd(player.experience, monster.experience);
    player.gold += monster.gold;
    --game.encounter.monsterCount;
    if (game.encounter.monsterCount < 1) {
        endGroup();
    }
    say("`red`You earned `bright white`");
    show(monster.experience);
    say(" `red`experience and `bright white`");
    showMoney(monster.gold);
    say(" `red`gold`red`.\n\r\n\r");
    pressAnyKey();
    if (game.encounter.monsterCount < 1) {
        game.encounter.ambushPending = 0;
    }
}

void spendTurn() {
    if (game.encounter.monsterCount > 0) {
        return;
    }
    Player& player = game.player;
    player.turnsLeft = wrappingSubtract(player.turnsLeft, 1);
    if (player.turnsLeft < 1) {
        player.turnsLeft = 0;
        say("\n\r\n\r`bright white`You are out of turns for today.\n\r");
        say("`red`Come back tomorrow...");
        say("\n\r\n\r");
        pressAnyKey();
        game.world.leavingWorld = 1;
    }
}

void applyArmour() {
    std::int32_t& damage = game.encounter.monster.damage;
    std::int32_t& armour = game.player.armourValue;
    if (damage > armour) {
        damage -= armour;
    }
    if (armour > damage) {
        armour -= damage;
    }
}

void killPlayer() {
    sayOf(name(), " `red`has killed you!\n\r\n\r");
    removeOpponent();
    game.world.playerDead = 1;
    game.player.hitPoints = 0;
    savePlayerHealed();
}

} // namespace

void rollPlayerCombatValues() {
    Player& player = game.player;
    std::int32_t number = 0;
    for (const KitRow& row : kit) {
        ++number;
        if (player.weaponNumber == number) {
            row.roll();
            player.weaponDamage = game.encounter.lastRoll + row.weaponPlus;
        }
        if (player.armourNumber == number) {
            row.roll();
            player.armourValue = game.encounter.lastRoll + row.armourPlus;
        }
    }
}

void fightRound() {
    sayHitPoints();
    decideFirstStrike();
    if (game.world.playerDead == 1) {
        return;
    }
    const Monster& monster = game.encounter.monster;
    if (game.encounter.attackOrder == playerStrikesFirst) {
        playerAttack();
        if (monster.hitPoints > 0) {
            monsterAttack();
        }
    } else {
        monsterAttack();
        if (game.player.hitPoints > 0) {
            playerAttack();
        }
    }
    if (monster.hitPoints > 0) {
        pressAnyKey();
    }
}

void decideFirstStrike() {
    setAttackOrder();
    if (game.encounter.attackOrder == playerStrikesFirst) {
        say("`red`You attack first!\n\r");
    } else {
        sayOf(name(), " `red`attacks first.\n\r\n\r");
    }
}

void playerAttack() {
    const PlayerBlow drawn = drawPlayerBlow();
    if (drawn.blow.hits) {
        say("\n\r");
        sayPlayerHits(drawn.critical ? "`red`You critically hit `bright white`"
                                     : "`red`You hit `bright white`",
                      name(), drawn.blow.damage);
        woundOpponent(drawn.blow.damage);
        if (game.encounter.monster.hitPoints < 1) {
            killMonster();
        }
    } else {
        say("\n\r`red`You Missed!\n\r\n\r");
    }
    spendTurn();
}

void monsterAttack() {
    applyArmour();
    const Blow blow = drawOpponentBlow();
    if (!blow.hits) {
        sayOpponentMissed(name());
        return;
    }
    sayOpponentHits(name(), blow.damage);
    woundPlayer(blow.damage);
    if (game.player.hitPoints < 1) {
        killPlayer();
    }
}

} // namespace morvek
