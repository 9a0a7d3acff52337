// The drinks. Each gives one turn back while fewer than a day's turns are left; a Whiskey is
// stricter and never lifts the player above three turns below that. One who has his turns pays
// and drinks all the same.

#include "towne/drinks.h"

#include "characters/character_file.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "state/wrapping.h"

#include <array>
#include <cstdint>

namespace morvek {
namespace {

struct Drink {
    const char* name;
    std::int32_t price;
    std::int32_t turnsShort; // gives a turn to who has less than a day's turns minus these
    const char* cheer;
};

constexpr std::array<Drink, 3> drinks{{
    {"Ale", 10, 0, "You are feeling a little frisky.\n\r\n\r"},
    {"Brew", 25, 0, "You are feeling a little lightheaded!\n\r\n\r"},
    {"Whiskey", 50, 3, "Just one more...\n\r\n\r"},
}};

void drawDrinks() {
    clearScreen();
    say("`red`Order a Drink\n\r");
    say("`bright white`----------------------------------\n\r");
    int number = 0;
    for (const Drink& drink : drinks) {
        say("`red`[`bright red`%d`red`] `bright white`%-24s`bright red`%d `red`gold \n\r", ++number,
            drink.name, drink.price);
    }
    say("\n\r");
    say("`red`L`bright red`)`bright white`eave                            \n\r\n\r");
    say("`red`Gold`bright red`: `bright white`");
    showMoney(game.player.gold);
    say("\n\r");
}

void take(const Drink& drink) {
    Player& player = game.player;
    player.gold -= drink.price;
    if (player.turnsLeft < wrappingSubtract(player.turnsPerDay, drink.turnsShort)) {
        ++player.turnsLeft;
    }
    say("%s", drink.cheer);
}

void offer(const Drink& drink) {
    say("\n\r\n\r");
    say("`red`%s for `bright white`%d`red` gold [`bright red`y`red`/`bright red`n`red`]"
        "`bright red`: `bright white`",
        drink.name, drink.price);
    if (answer("YN") == 'Y') {
        take(drink);
        return;
    }
    say("\n\r\n\r");
    say("That's too bad.\n\r");
    waitForKey();
}

void refuse() {
    say("\n\r\n\r");
    say("`bright white`You don't have enough gold.\n\r");
    waitForKey();
}

void leaveBar() {
    say("\n\r\n\r");
    say("`red`Maybe next time, eh? ");
    waitForKey();
    savePlayer();
}

} // namespace

void orderDrink() {
    while (true) {
        drawDrinks();
        const char key = menu("drink", "123l");
        if (key == 'l') {
            leaveBar();
            return;
        }
        const Drink& drink = drinks.at(static_cast<std::size_t>(key - '1'));
        if (game.player.gold >= drink.price) {
            offer(drink);
        } else {
            refuse();
        }
    }
}

} // namespace morvek
