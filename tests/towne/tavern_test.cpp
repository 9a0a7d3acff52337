// The tavern's menu, its drinks, and the inn that ends a game without saving it.
#include "towne/tavern.h"

#include "characters/character_file.h"
#include "door/screen.h"
#include "state/game_state.h"
#include "support/temporary_directory.h"
#include "towne/drinks.h"
#include "towne/inn.h"
#include "towne/said.h"

using namespace morvek;
using namespace morvek::test;
using testing::HasSubstr;

class Tavern : public InTemporaryDirectory {
protected:
    Tavern() {
        game.session.dateStamp = "111526";
        game.player.name = "Arwen";
        game.player.className = "Ranger";
        game.player.level = 3;
        game.player.experience = 1500;
        game.player.hitPoints = 10;
        game.player.turnsPerDay = 20;
    }
};

TEST_F(Tavern, ShowsItsMenuAndLeadsEverywhere) {
    caller.type("ol tr lc g y r");
    visitTavern();
    const std::string menu = said("", "`red`Order");
    EXPECT_EQ(menu, "`red`Tavern|`bright white`----------------------------------||"
                    "`red`O`bright red`)`bright white`rder Drink|"
                    "`red`T`bright red`)`bright white`raining|"
                    "`red`L`bright red`)`bright white`ook at Morvek's Scroll|"
                    "`red`G`bright red`)`bright white`et a Room|"
                    "`red`Y`bright red`)`bright white`our Status|"
                    "`red`R`bright red`)`bright white`eturn to Towne||");
    for (const char* place : {"Order a Drink", "Training Hall", "lose Scroll", "Maybe another"}) {
        EXPECT_THAT(said(), HasSubstr(place));
    }
    EXPECT_THAT(said(), testing::EndsWith(menu + "`bright white`Return to Towne!"));
    EXPECT_THAT(caller.screen(), HasSubstr("key\nsay |\nclear\nclear\nsay `red`Tavern"));
}

TEST_F(Tavern, EachDrinkHasItsPriceAndItsLimit) {
    struct Drink {
        char key;
        const char* name;
        double price;
        std::int32_t limit; // turns left, of 20, with which it gives none
        const char* cheer;
    };
    for (const Drink& drink :
         std::vector<Drink>{{'1', "Ale", 10, 20, "You are feeling a little frisky.||"},
                            {'2', "Brew", 25, 20, "You are feeling a little lightheaded!||"},
                            {'3', "Whiskey", 50, 17, "Just one more...||"}}) {
        const std::string question = "||`red`" + std::string(drink.name) + " for `bright white`" +
                                     moneyText(drink.price) + "`red` gold" + yesNo;
        const auto order = [&](double gold, std::int32_t turns, const std::string& keys) {
            game.player.gold = gold;
            game.player.turnsLeft = turns;
            caller.type(drink.key + keys + "l ");
            orderDrink();
            return said("`bright white`" + moneyText(gold) + "|", "`red`Order");
        };
        EXPECT_EQ(order(drink.price, drink.limit - 1, "y"), question + drink.cheer);
        EXPECT_EQ(game.player.gold, 0);
        EXPECT_EQ(game.player.turnsLeft, drink.limit);
        order(drink.price, drink.limit, "y");
        EXPECT_EQ(game.player.gold, 0);
        EXPECT_EQ(game.player.turnsLeft, drink.limit);
        EXPECT_EQ(order(drink.price, 5, "n "), question + "||That's too bad.|");
        EXPECT_EQ(order(drink.price - 1, 5, " "), "||`bright white`You don't have enough gold.|");
        EXPECT_EQ(game.player.turnsLeft, 5);
    }
}

TEST_F(Tavern, TheBarSavesTheCharacterOnTheWayOut) {
    game.player.gold = 60;
    caller.type("1yl ");
    orderDrink();
    // clang-format off
    EXPECT_EQ(said("frisky.||"),
        "`red`Order a Drink|`bright white`----------------------------------|"
        "`red`[`bright red`1`red`] `bright white`Ale                     `bright red`10 `red`gold |"
        "`red`[`bright red`2`red`] `bright white`Brew                    `bright red`25 `red`gold |"
        "`red`[`bright red`3`red`] `bright white`Whiskey                 `bright red`50 `red`gold |"
        "|`red`L`bright red`)`bright white`eave                            ||"
        "`red`Gold`bright red`: `bright white`50|||`red`Maybe next time, eh? ");
    // clang-format on
    game.roster = Roster{};
    ASSERT_TRUE(readRoster());
    EXPECT_DOUBLE_EQ(game.roster.slots[0].gold, 50);
}

TEST_F(Tavern, ARoomEndsTheGameButSavesNothing) {
    game.player.gold = 150;
    game.session.currentSlot = 2; // not the caller's own
    game.world.currentLocation = 9;
    savePlayer();
    const std::string saved = readFile("morchars.dat");
    caller.type("gy ");
    visitTavern();
    EXPECT_EQ(said("`bright white`eturn to Towne||"),
              "||`bright white`Welcome to the Tavern's Inn!||`red`Renting a room is: "
              "`bright red`150`red` gold.||`red`Rent a room for `bright red`150`red`? "
              "(`bright red`y`red`/`bright red`n`red`): ||`red`Getting your room ready... |"
              "`bright white`DONE`red`!||" +
                  anyKey);
    EXPECT_EQ(game.session.roomRented, 1);
    EXPECT_EQ(game.session.today, 111526);
    EXPECT_EQ(game.roster.slots[2].lastPlayedDay, 111526);
    EXPECT_EQ(game.world.currentLocation, 0);
    EXPECT_EQ(game.player.hitPoints, 0);
    EXPECT_EQ(game.player.gold, 0);
    EXPECT_EQ(game.scores.table[0].name, "");
    EXPECT_EQ(readFile("scores.dat"), "Arwen#1500Ranger\n");
    EXPECT_EQ(readFile("morchars.dat"), saved);
    caller.type("g"); // with a room, the inn sends him straight back to Towne
    visitTavern();
    EXPECT_EQ(said("`bright white`eturn to Towne||"), "");
}

TEST_F(Tavern, WhoCannotPayOrWillNotGetsNoRoom) {
    game.player.gold = 149;
    game.session.roomRented = 1;
    caller.type(" ");
    rentRoom();
    EXPECT_THAT(said(), testing::EndsWith("||`red`You don't have enough gold in your pocket."
                                          "||`red`Maybe another time..."));
    EXPECT_EQ(game.session.roomRented, 0);
    game.player.gold = 200;
    caller.type("gnr");
    visitTavern();
    EXPECT_EQ(game.session.roomRented, 0);
    EXPECT_EQ(game.player.gold, 200);
    game.player.level = 2147483647; // forged: the price wraps
    game.session.currentSlot = 50;
    caller.type("y ");
    rentRoom();
    EXPECT_THAT(said(), HasSubstr("`bright red`-50`red` gold."));
    EXPECT_EQ(game.session.roomRented, 1);
}
