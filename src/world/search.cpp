// The rules of a search. It draws four times. The first draw decides nothing; the second is the
// amount, 5 to 125 gold for each of the player's levels; of the other two, an ambush wins ties and
// comes in 210 of 400 cases, else there is a chest. The gold is the player's before that is known,
// also when he is ambushed and nothing tells him.
//
// An ambush has the room's inhabitants set up whether or not the room is cleared. It stays pending
// until its group is slain, in whatever room that is. The group is rolled again when the room is
// redrawn.

#include "world/search.h"

#include "screen/screen.h"
#include "state/dice.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "state/wrapping.h"
#include "world/encounter.h"

#include <cstdlib>

namespace morvek {
namespace {

void findGold() {
    std::rand();
    const std::int32_t share = draw(25) + 1;
    const std::int32_t amount = wrappingMultiply(share, wrappingMultiply(game.player.level, 5));
    game.encounter.lastTreasure = amount;
    game.player.gold += amount;
}

bool isAmbushed() {
    const std::int32_t lurking = draw(20);
    const std::int32_t wariness = draw(20);
    return lurking >= wariness;
}

void ambush() {
    say("You have been ambushed!\n\r\n\r");
    game.encounter.ambushPending = 1;
    game.encounter.monster.monsterReady = 0;
    rollGroup();
    game.encounter.groupActive = 1;
}

void showChest() {
    say("`red`You found a treasure chest.\n\r\n\r");
    say("`bright white`");
    showMoney(game.encounter.lastTreasure);
    say(" `bright red`gp`red`.\n\r\n\r");
}

} // namespace

void search() {
    findGold();
    say("\n\r`red`Searching area`bright red`...\n\r\n\r");
    if (isAmbushed()) {
        ambush();
    } else {
        showChest();
    }
    say("`red`Press any key!\n\r");
    waitForKey();
}

} // namespace morvek
