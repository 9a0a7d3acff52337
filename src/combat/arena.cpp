// The rules of the arena.
//
// The player strikes first unless the opponent's initiative is above his dexterity, and whoever is
// still standing strikes back. The opponent hits when one draw of 20 is at least another; the
// player draws of 25 against 20. Damage is 1 to the die of the weapon, or of the opponent; there
// are no critical blows, and armour counts for nothing.
//
// A beaten player has all his hit points back, so where the opponent struck first he strikes still,
// at an opponent without hit points: a hit then wins.

#include "combat/arena.h"

#include "combat/opponent.h"
#include "screen/screen.h"
#include "state/dice.h"
#include "state/encounter.h"
#include "state/game_state.h"

namespace morvek {
namespace {

std::string_view name() { return opponentName(maxNameInArena); }

Blow drawPlayerBlow() {
    const std::int32_t skill = draw(25);
    const std::int32_t luck = draw(20);
    const std::int32_t damage = draw(game.player.weaponDamage) + 1;
    return {skill >= luck, damage};
}

void beatPlayer() {
    say("\n\r\n\r`bright white`");
    show(name());
    say(" `red`has beaten you!\n\r\n\r");
    removeOpponent();
    game.player.hitPoints = game.player.maxHitPoints;
}

} // namespace

void drawArena() {
    const Monster& monster = game.encounter.monster;
    clearScreen();
    say("`red`Your HP`bright red`: `bright white`");
    showPair(game.player.hitPoints, "`red`\\`bright white`", game.player.maxHitPoints);
    say("\n\r");
    say("`red`");
    show(opponentName(maxNameInFight));
    say("'s HP`bright red`: `bright white`");
    showPair(monster.hitPoints, "`red`\\`bright white`", monster.maxHitPoints);
    say("\n\r\n\r");
    say("`red`A`bright red`)`bright white`ttack\n\r");
    say("`red`Y`bright red`)`bright white`our Status\n\r");
    say("`red`R`bright red`)`bright white`eturn to Towne\n\r");
}

void leaveArena() {
    say("\n\r\n\r");
    say("`red`Returning to Towne`bright red`...\n\r\n\r");
    game.encounter.monster.hitPoints = 0;
}

void arenaRound(void (*playersAttack)()) {
    game.session.inTraining = 0;
    say("\n\r\n\r");
    arenaFirstStrike();
    if (game.encounter.attackOrder == playerStrikesFirst) {
        playersAttack();
        if (game.encounter.monster.hitPoints > 0) {
            arenaOpponentAttack();
        }
    } else {
        arenaOpponentAttack();
        if (game.player.hitPoints > 0) {
            playersAttack();
        }
    }
}

void arenaFirstStrike() {
    setAttackOrder();
    if (game.encounter.attackOrder == playerStrikesFirst) {
        say("`red`You attack first!\n\r\n\r");
    } else {
        sayOf(name(), " `red`attacks first.\n\r\n\r");
    }
}

void arenaAttack(void (*win)()) {
    const Blow blow = drawPlayerBlow();
    if (!blow.hits) {
        say("`red`You Missed!\n\r\n\r");
        return;
    }
    sayPlayerHits("`red`You hit `bright white`", name(), blow.damage);
    woundOpponent(blow.damage);
    if (game.encounter.monster.hitPoints < 1) {
        win();
    }
}

void arenaOpponentAttack() {
    const Blow blow = drawOpponentBlow();
    if (blow.hits) {
        sayOpponentHits(name(), blow.damage);
        pressAnyKey();
        woundPlayer(blow.damage);
        if (game.player.hitPoints > 0) {
            return;
        }
        beatPlayer();
    } else {
        sayOpponentMissed(name());
    }
    say("Press a key!");
    waitForKey();
}

} // namespace morvek
