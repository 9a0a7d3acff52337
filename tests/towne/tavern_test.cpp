// The tavern's menu, its drinks, and the inn that ends a game without saving it.
#include "towne/tavern.h"

#include "support/stored.h"
#include "towne/drinks.h"

struct Tavern : InTemporaryDirectory {
    Tavern() {
        game.player = {.name = "Arwen", .className = "Ranger", .level = 3, .experience = 1500};
        game.player.turnsPerDay = 20;
    }

    // What is said to these keys at the bar, until the drinks are shown again.
    static std::string order(double gold, int turnsLeft, const std::string& keys) {
        game.player.gold = gold;
        game.player.turnsLeft = turnsLeft;
        caller.visit(orderDrink, keys + "l ");
        return caller.between("[menu drink 123l]", "[clear]");
    }
};

TEST_F(Tavern, DrinkGivesATurn) {
    const std::string question = "{||}{`r`Brew for `W`25`r` gold" + yesNo;
    for (const int turns : {19, 20}) {
        EXPECT_EQ(order(25, turns, "2y"), question + "{You are feeling a little lightheaded!||}");
        EXPECT_EQ(game.player.turnsLeft, 20);
        EXPECT_EQ(game.player.gold, 0);
    }
    EXPECT_EQ(order(25, 5, "2n "), question + "{||}{That's too bad.|}[key]");
    EXPECT_EQ(order(24, 5, "2 "), "{||}{`W`You don't have enough gold.|}[key]");
    EXPECT_EQ(game.player.turnsLeft, 5);
}

TEST_F(Tavern, WhiskeyStopsThreeTurnsBelow) {
    for (const int turns : {16, 17}) {
        EXPECT_THAT(order(50, turns, "3y"), EndsWith("{Just one more...||}"));
        EXPECT_EQ(game.player.turnsLeft, 17);
    }
}

TEST_F(Tavern, MenuLeadsEverywhereAndTheBarSaves) {
    game.player.gold = 149;
    caller.visit(visitTavern, "g tr lc y ol r");
    for (const char* shown : {"{||`r`Maybe another time...}[key]", "Training Hall", "lose Scroll",
                              "[any key]{|}[clear][clear]{`r`Tavern|}", "Order a Drink"}) {
        EXPECT_TRUE(caller.saw(shown)) << shown;
    }
    EXPECT_EQ(double{storedSlot(0).gold}, 149);
}

TEST_F(Tavern, RoomEndsTheGameWithoutSaving) {
    game.player.gold = 150;
    game.world.currentLocation = 9;
    caller.visit(visitTavern, "gngy ");
    EXPECT_TRUE(caller.saw("[answer YN][clear]{`r`Tavern|}")) << "after a no";
    EXPECT_EQ(game.world.currentLocation, 0);
    EXPECT_EQ(game.player.name, "");
    EXPECT_EQ(readFile("scores.dat"), "Arwen#1500Ranger\n");
    EXPECT_FALSE(fs::exists("morchars.dat"));
    EXPECT_THAT(caller.visit(visitTavern, "g"), EndsWith("otlrgy]"))
        << "who has a room is sent back to Towne";
}
