// The inn ends the game but does not save the character: the file keeps what the last save wrote,
// so the fee and the day's stamp reach it only if some later save writes the roster.

#include "towne/inn.h"

#include "screen/screen.h"
#include "state/game_state.h"
#include "state/roster.h"
#include "state/wrapping.h"
#include "towne/player_reset.h"
#include "towne/scores.h"

#include <cstdint>

namespace morvek {
namespace {

constexpr std::int32_t goldPerLevel = 50;

void welcome(std::int32_t price) {
    say("\n\r\n\r`bright white`Welcome to the Tavern's Inn!");
    say("\n\r\n\r`red`Renting a room is: `bright red`");
    show(price);
    say("`red` gold.");
}

void refuse() {
    say("\n\r\n\r`red`You don't have enough gold in your pocket.");
    say("\n\r\n\r`red`Maybe another time...");
    waitForKey();
    game.session.roomRented = 0;
}

bool wantsRoom(std::int32_t price) {
    say("\n\r\n\r`red`Rent a room for `bright red`");
    show(price);
    say("`red`? (`bright red`y`red`/`bright red`n`red`): ");
    return answer("YN") == 'Y';
}

void stampDay() {
    game.session.today = dayNumber();
    if (PlayerRecord* slot = game.roster.slotAt(game.session.currentSlot)) {
        slot->lastPlayedDay = game.session.today;
    }
}

void moveIn(std::int32_t price) {
    say("\n\r\n\r");
    game.world.currentLocation = 0;
    say("`red`Getting your room ready... ");
    game.player.gold -= price;
    stampDay();
    prepareScore();
    updateScores();
    clearPlayer();
    clearScores();
    say("`bright white`DONE`red`!\n\r\n\r");
    pressAnyKey();
    game.session.roomRented = 1;
}

} // namespace

void rentRoom() {
    const std::int32_t price = wrappingMultiply(game.player.level, goldPerLevel);
    welcome(price);
    if (price > game.player.gold) {
        refuse();
    } else if (wantsRoom(price)) {
        moveIn(price);
    }
}

} // namespace morvek
