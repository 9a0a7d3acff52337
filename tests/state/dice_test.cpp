#include "state/dice.h"
#include "state/encounter.h"

#include "support/game_test.h"

TEST(Dice, SeedFromTheClockBeforeTheyDraw) {
    const Cases<void (*)(), std::deque<int>, int> dice{
        {rollD2, {5}, 2},    {rollD3, {5}, 3},     {rollD4, {6}, 3},
        {rollD6, {11}, 6},   {rollD8, {15}, 8},    {rollD10, {19}, 10},
        {rollD12, {23}, 12}, {roll2D4, {7, 2}, 7}, {roll2D6, {11, 5}, 12}};
    for (const auto& [roll, draws, result] : dice) {
        chance.script(draws);
        roll();
        EXPECT_EQ(game.encounter.lastRoll, result);
        EXPECT_EQ(chance.drawn, static_cast<int>(draws.size()));
        EXPECT_THAT(chance.seededBefore, ElementsAre(0));
    }
}

TEST(Dice, GoldDieDoesNotSeed) {
    chance.script({35});
    game.encounter.goldDie = 12;
    rollGoldDie();
    EXPECT_EQ(game.encounter.lastRoll, 12);
    EXPECT_TRUE(chance.seededBefore.empty());
}
