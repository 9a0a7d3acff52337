// The rules of a fight against another player: rounds of the arena, until one is beaten. The
// beaten player's money on hand goes to the attacker; then the quick save writes the attacker into
// slot 0 of the file, whoever owns that slot. A beaten attacker loses nothing.
//
// A player who has come into the game during the fight keeps his gold: his next save would bring
// it back.

#include "combat/player_fight.h"

#include "characters/character_file.h"
#include "combat/arena.h"
#include "combat/fight.h"
#include "combat/opponent.h"
#include "screen/screen.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "status/status_screen.h"

namespace morvek {
namespace {

void winAgainstPlayer() {
    const std::string& name = game.encounter.monster.name;
    say("`red`The player `bright white`");
    show(name);
    say(" `red`has been beaten!\n\r\n\r");
    const Robbery robbery = robPlayer(game.session.targetSlot);
    if (robbery.isPlaying) {
        sayOf(name, " `red`has come into the game meanwhile and keeps the gold.");
    } else if (robbery.gold > 0) {
        say("`red`You took `bright white`");
        showMoney(robbery.gold);
        say(" `bright red`gold `red`from `bright white`");
        show(name);
        say("`red`!");
    } else {
        sayOf(name, "`red`'s pockets are `bright white`empty`red`.");
    }
    say("\n\r\n\r`red`Press any key!");
    waitForKey();
}

void attackPlayer() { arenaAttack(winAgainstPlayer); }

} // namespace

void fightPlayer() {
    while (game.encounter.monster.hitPoints > 0 && game.player.hitPoints > 0) {
        drawArena();
        switch (menu("command", "ayr")) {
        case 'a':
            rollPlayerCombatValues();
            arenaRound(attackPlayer);
            break;
        case 'y':
            showStatus();
            break;
        default:
            leaveArena();
        }
    }
}

} // namespace morvek
