// Walks and fights as callers have them: out of Towne, through the world, and home again.
#include "state/encounter.h"
#include "support/stored.h"
#include "world/walkers.h"
#include "world/world_entry.h"

using DeadlyJourney = InTemporaryDirectory;

// A group of three fought to the end costs one turn, and then the way is free.
TEST(WorldJourney, AGroupOfThree) {
    beginCall(false, 2);
    chance.script({2});
    play(enterWorld, "axaxax4f");
    EXPECT_THAT(caller.screen, HasSubstr("encountered `R`}<3>{ `W`}<Kobold"));
    EXPECT_THAT(caller.screen, HasSubstr("encountered `R`}<1>{ `W`}<Kobold"));
    EXPECT_EQ(inARow(game.player.turnsLeft, game.player.experience), "29 3");
    EXPECT_EQ(inARow(game.world.cleared(2), game.world.currentLocation), "1 3");
}

// Death ends all visits without a word.
TEST_F(DeadlyJourney, IsSavedWithFullHitPoints) {
    beginCall(true, 2);
    game.world.cleared(4) = 0;
    game.player.hitPoints = 1;
    game.player.dexterity = 0;
    EXPECT_THAT(play(enterWorld, "47a"), EndsWith("{ `r`has killed you!||}"));
    EXPECT_EQ(inARow(game.world.playerDead, game.world.leavingWorld, storedSlot(0).hitPoints),
              "1 0 25");
}

// Who flees comes home through the location he fled from, when its number is the higher, and
// resumes at the one before it.
TEST(WorldJourney, AFlightAndTheResumption) {
    beginCall(true);
    game.world.cleared(3) = 0;
    EXPECT_THAT(play(enterWorld, "84f"), EndsWith("<1>{`r`/`W`}<1>")) << "met, and gone on home";
    EXPECT_EQ(inARow(caller.times("Forest 1|"), caller.times("Forest 3|")), "1 2");
    play(enterWorld, "4axf");
    EXPECT_THAT(caller.screen, HasSubstr("{`r`Forest 2|}{|}{`r`Directions"));
    EXPECT_THAT(caller.screen, EndsWith("[clear]{||}{`r`Forest 3|}")) << "seen, and gone on home";

    for (const int location : {40, 77, 2'000'000'000}) { // where nobody comes out
        game.world.leavingWorld = 1;
        game.world.previousLocation = location;
        EXPECT_EQ(play(enterWorld, ""), "") << location;
    }
}

// An ambush finds its monsters in a cleared room and, when he flees, where he comes out next.
TEST(WorldJourney, AnAmbushInAClearedRoom) {
    beginCall(true, 9);
    game.world.searched(9) = 0;
    game.world.previousLocation = 10;
    game.encounter.monster.monsterReady = 1; // as after a group slain here
    chance.script({0, 0, 0, 0, 1, 2});
    EXPECT_THAT(play(enterWorld, "sxaxf"), HasSubstr("encountered `R`}<3>")) << "rolled anew";
    EXPECT_EQ(game.encounter.ambushPending, 1);
    EXPECT_THAT(play(enterWorld, "axax3f"), HasSubstr("encountered `R`}<2>"));
    EXPECT_EQ(inARow(game.encounter.ambushPending, game.world.currentLocation), "0 11");
}

// The last turn, far out: both messages once, also by one who heard them before, and nothing else
// on the way home.
TEST(WorldJourney, ExhaustionFarFromHome) {
    beginCall(true);
    game.player.turnsLeft = 1;
    game.world.exhaustedShown = 1;
    game.world.cleared(4) = 0;
    EXPECT_THAT(play(enterWorld, times(100, "82") + "847axxx"),
                EndsWith("[any key]{||`W`You are out of turns for today.|}"
                         "{`r`Come back tomorrow...}{||}[any key]"
                         "{|}{`r`You are `W`exhausted`r`.||}[any key]"));
    EXPECT_EQ(inARow(game.world.previousLocation, game.world.leavingWorld), "3 1");
}

// Through both levels of the castle to its last room, where a guard is slain.
TEST(WorldJourney, TheCastleToItsLastRoom) {
    beginCall(true, 43);
    game.player.hitPoints = 1000;
    game.world.levelCleared(Level::castle2, 24) = 0;
    play(enterWorld, "6e848866687872d242622661422x" + times(47, "ax") + "82f");
    EXPECT_EQ(caller.times("{`r`Congratulations!!!}"), 1) << "not when he comes again";
    EXPECT_THAT(caller.screen, HasSubstr("{`r`Castle Level 2|}{|}{`r`Congratulations!!!}"
                                         "{`r`You found `R`Morvek`r`!||}"
                                         "[any key]{|}{`r`You've encountered"));
    EXPECT_EQ(inARow(game.world.levelCleared(Level::castle2, 24),
                     game.world.position(Level::castle1), game.world.position(Level::castle2),
                     game.world.previousLocation),
              "1 22 1 56");
}

// A day's thirty turns at the one location that never counts as cleared.
TEST(WorldJourney, ADaysThirtyTurns) {
    beginCall(true, 46);
    game.world.cleared(46) = 0;
    game.world.cleared(47) = 0;
    play(enterWorld, times(29, "ax28") + "axxx");
    EXPECT_EQ(caller.times("Cedar River 45|"), 29);
    EXPECT_EQ(inARow(game.player.turnsLeft, game.player.experience), "0 30");
    EXPECT_EQ(inARow(game.world.cleared(46), game.world.cleared(47)), "0 1");
}
