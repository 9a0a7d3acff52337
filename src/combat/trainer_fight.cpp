// The rules of a trainer. For a player of level L, from 1 to 29:
//
//   hit points   5 L + 5
//   initiative   2 L, but never above 20
//   damage       a die of 1 to a draw of 2 L + 4, drawn once
//
// A trainer gives no experience and no gold, and costs no turn. Above level 1 chance is seeded
// from the clock before he is drawn, and the first draw is thrown away.
//
// The opponent at hand when the fight begins is fought, be it a trainer or a monster
// left behind in the world. Asking for the status ends the fight.

#include "combat/trainer_fight.h"

#include "combat/arena.h"
#include "combat/fight.h"
#include "combat/levels.h"
#include "combat/opponent.h"
#include "screen/screen.h"
#include "state/dice.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "status/status_screen.h"

#include <algorithm>
#include <cstdlib>

namespace morvek {
namespace {

constexpr std::int32_t highestInitiative = 20;

bool opponentStands() { return game.encounter.monster.hitPoints > 0; }

void sayEncounter() {
    const Monster& monster = game.encounter.monster;
    const std::string_view name = opponentName(maxNameInFight);
    say("`red`You've encountered the `bright white`");
    show(name);
    // The full stop stands inside the colour's backquotes.
    say("`red.`\n\r");
    say("`red`Your HP`bright red`: `bright white`");
    showPair(game.player.hitPoints, "`red`\\`bright white`", game.player.maxHitPoints);
    say("\n\r");
    sayOf(name, "'s `red`HP`bright red`: `bright white`");
    showPair(monster.hitPoints, "`red`\\`bright white`", monster.maxHitPoints);
    say("\n\r");
    say("`red`A`bright red`)`bright white`ttack\n\r");
}

void drawEntrance() {
    clearScreen();
    say("`red`Training Hall\n\r");
    say("`bright white`----------------------------------\n\r\n\r");
    if (opponentStands()) {
        sayEncounter();
    } else {
        say("`red`T`bright red`)`bright white`ime to Train!\n\r");
    }
    say("`red`R`bright red`)`bright white`eturn to Towne\n\r`red`");
}

// A lost round leads back to the entrance as a won one does: the trainer has no hit points left.
void attackTrainer() {
    rollPlayerCombatValues();
    arenaRound(trainerAttack);
    if (!opponentStands()) {
        trainingFight();
    }
}

// Shows the status, and the fight once more before the player leaves it.
void showStatusAndLeave() {
    showStatus();
    drawArena();
    leaveArena();
}

void winAgainstTrainer() {
    clearScreen();
    sayOf(game.encounter.monster.name, " `red`has been beaten!\n\r\n\r");
    levelUp();
}

} // namespace

void trainingFight() {
    if (game.world.playerDead == 1) {
        return;
    }
    drawEntrance();
    if (!opponentStands()) {
        if (menu("command", "tr") == 't') {
            prepareTrainer();
        } else {
            leaveArena();
        }
        return;
    }
    while (opponentStands() && game.player.hitPoints > 0) {
        drawArena();
        switch (menu("command", "ayr")) {
        case 'a':
            attackTrainer();
            break;
        case 'y':
            showStatusAndLeave();
            break;
        default:
            leaveArena();
        }
    }
}

void prepareTrainer() {
    Monster& monster = game.encounter.monster;
    monster.name.clear();
    monster.hitPoints = 0;
    monster.maxHitPoints = 0;
    setUpTrainer();
}

void setUpTrainer() {
    const std::int32_t level = game.player.level;
    if (!levelHasTrainer() || game.player.experience < game.player.experienceNeeded) {
        return;
    }
    if (level > firstLevel) {
        seedFromClock();
        static_cast<void>(std::rand());
    }
    Monster& monster = game.encounter.monster;
    monster.name = "Trainer";
    monster.maxHitPoints = 5 * level + 5;
    monster.hitPoints = monster.maxHitPoints;
    monster.initiative = std::min(2 * level, highestInitiative);
    monster.damage = draw(2 * level + 4) + 1;
}

void trainerAttack() { arenaAttack(winAgainstTrainer); }

} // namespace morvek
