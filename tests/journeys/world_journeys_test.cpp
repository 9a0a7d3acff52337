// Walks and fights as callers have them: out of Towne, through the world, and home again.
#include "state/encounter.h"
#include "support/stored.h"
#include "world/walkers.h"
#include "world/world_entry.h"

using DeadlyJourney = InTemporaryDirectory;

TEST_F(DeadlyJourney, EndsWithoutAWordAndIsSavedHealed) {
    beginCall(true, 2);
    game.world.cleared(4) = 0;
    game.player.hitPoints = 1;
    game.player.dexterity = 0;
    EXPECT_THAT(play(enterWorld, "47a"), EndsWith("{ `r`has killed you!||}"));
    EXPECT_EQ(game.world.playerDead, 1);
    EXPECT_EQ(storedSlot(0).hitPoints, 25);
}

// Who flees comes home through the location he fled from, when its number is the higher, and
// resumes at the one before it.
TEST(WorldJourney, FlightAndResumption) {
    beginCall(true);
    game.world.cleared(3) = 0;
    EXPECT_THAT(play(enterWorld, "84f"), EndsWith("<1>{`r`/`W`}<1>")) << "met, and gone on home";
    EXPECT_EQ(caller.times("Forest 3|"), 2);
    play(enterWorld, "4axf");
    EXPECT_THAT(caller.screen, HasSubstr("{`r`Forest 2|}{|}{`r`Directions"));
    EXPECT_THAT(caller.screen, EndsWith("[clear]{||}{`r`Forest 3|}")) << "seen, and gone on home";
}

TEST(WorldJourney, NobodyArrivesAtAClosedLocation) {
    beginCall(true, 40);
    EXPECT_EQ(play(enterWorld, ""), "");
}

// An ambush finds its monsters in a cleared room and, when he flees, where he comes out next.
TEST(WorldJourney, AmbushInAClearedRoom) {
    beginCall(true, 9);
    game.world.searched(9) = 0;
    game.world.previousLocation = 10;
    game.encounter.monster.monsterReady = 1; // as after a group slain here
    chance.script({0, 0, 0, 0, 1, 2});
    EXPECT_THAT(play(enterWorld, "sxaxf"), HasSubstr("encountered `R`}<3>")) << "rolled anew";
    EXPECT_EQ(game.encounter.ambushPending, 1);
    EXPECT_THAT(play(enterWorld, "axax3f"), HasSubstr("encountered `R`}<2>"));
    EXPECT_EQ(game.encounter.ambushPending, 0);
    EXPECT_EQ(game.world.currentLocation, 11);
}

// Both messages come once, also for one who heard them before, and nothing else on the way home.
TEST(WorldJourney, ExhaustionFarFromHome) {
    beginCall(true);
    game.player.turnsLeft = 1;
    game.world.exhaustedShown = 1;
    game.world.cleared(4) = 0;
    EXPECT_THAT(play(enterWorld, times(100, "82") + "847axxx"),
                EndsWith("[any key]{||`W`You are out of turns for today.|}"
                         "{`r`Come back tomorrow...}{||}[any key]"
                         "{|}{`r`You are `W`exhausted`r`.||}[any key]"));
    EXPECT_EQ(game.world.previousLocation, 3);
}

TEST(WorldJourney, CastleToItsLastRoom) {
    beginCall(true, 43);
    game.player.hitPoints = 1000;
    game.world.levelCleared(Level::castle2, 24) = 0;
    play(enterWorld, "6e848866687872d242622661422x" + times(47, "ax") + "82f");
    EXPECT_EQ(caller.times("{`r`Congratulations!!!}"), 1) << "not when he comes again";
    EXPECT_THAT(caller.screen, HasSubstr("{`r`Castle Level 2|}{|}{`r`Congratulations!!!}"
                                         "{`r`You found `R`Morvek`r`!||}"
                                         "[any key]{|}{`r`You've encountered"));
    EXPECT_EQ(game.world.levelCleared(Level::castle2, 24), 1);
}
