// The tavern's menu, its drinks, and the inn that ends a game without saving it.
#include "towne/tavern.h"

#include "state/roster.h"
#include "state/scores.h"
#include "support/stored.h"
#include "towne/drinks.h"

struct Tavern : InTemporaryDirectory {
    Tavern() {
        game.player = {.name = "Arwen", .className = "Ranger", .level = 3, .experience = 1500};
    }
};

TEST_F(Tavern, EachDrinkHasItsPriceAndItsLimit) {
    game.player.turnsPerDay = 20;
    // Key, name, price, turns left with which it gives none, and what is said.
    const Cases<std::string, std::string, int, int, std::string> drinks{
        {"1", "Ale", 10, 20, "{You are feeling a little frisky.||}"},
        {"2", "Brew", 25, 20, "{You are feeling a little lightheaded!||}"},
        {"3", "Whiskey", 50, 17, "{Just one more...||}"}};
    for (const auto& [key, name, price, limit, cheer] : drinks) {
        const auto order = [&, &number = key](double gold, int turns, const std::string& keys) {
            game.player.gold = gold;
            game.player.turnsLeft = turns;
            caller.visit(orderDrink, number + keys + "l ");
            return caller.between("[menu drink 123l]", "[clear]") +
                   std::to_string(game.player.turnsLeft);
        };
        const std::string question =
            "{||}{`r`" + name + " for `W`" + std::to_string(price) + "`r` gold" + yesNo;
        for (const int turns : {limit - 1, limit}) {
            EXPECT_EQ(order(price, turns, "y"), question + cheer + std::to_string(limit));
            EXPECT_EQ(game.player.gold, 0);
        }
        EXPECT_EQ(order(price, 5, "n "), question + "{||}{That's too bad.|}[key]5");
        EXPECT_EQ(order(price - 1, 5, " "), "{||}{`W`You don't have enough gold.|}[key]5");
    }
}

TEST_F(Tavern, TheBarSavesTheCharacterOnTheWayOutAndARoomEndsTheGameWithoutSaving) {
    game.player.gold = 149;
    game.session.currentSlot = 2; // not the caller's own
    game.world.currentLocation = 9;
    caller.visit(visitTavern, "g tr lc y ol r");
    for (const char* shown : {"{||`r`Maybe another time...}[key]", "Training Hall", "lose Scroll",
                              "[any key]{|}[clear][clear]{`r`Tavern|}", "Order a Drink"}) {
        EXPECT_TRUE(caller.saw(shown)) << shown;
    }
    const std::string saved = readFile("morchars.dat");
    EXPECT_EQ(storedSlot(0).gold + 0, 149);
    game.player.gold = 150;
    caller.visit(visitTavern, "gnr");
    EXPECT_EQ(game.player.gold, 150);
    caller.visit(visitTavern, "gy ");
    EXPECT_EQ(game.session.today, 111526);
    EXPECT_EQ(game.roster.slots()[2].lastPlayedDay, 111526);
    EXPECT_EQ(game.world.currentLocation, 0);
    EXPECT_EQ(game.player.name + game.scores.table[0].name, "");
    EXPECT_EQ(readFile("scores.dat"), "Arwen#1500Ranger\n");
    EXPECT_EQ(readFile("morchars.dat"), saved);
    EXPECT_THAT(caller.visit(visitTavern, "g"), EndsWith("otlrgy]"))
        << "who has a room is sent back to Towne";
}
