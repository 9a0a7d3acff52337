// A search: what each draw decides, and what an ambush changes.
#include "walkers.h"
#include "world/search.h"

TEST(Search, FindsAChestByItsSecondDrawOnceAndShowsTheRoomAnewEachTime) {
    beginCall(true);
    game.world.searched(2) = 0;
    game.player.level = 2;
    game.player.gold = 7;
    chance.script({0, 999, 25 + 6, 4, 5});
    walk(2, "sxsxf");
    EXPECT_EQ(game.player.gold, 77);
    EXPECT_THAT(caller.screen,
                HasSubstr("{|`r`Searching area`R`...||}"
                          "{`r`You found a treasure chest.||}{`W`}<70>"
                          "{ `R`gp`r`.||}{`r`Press any key!|}[key][clear]{||}{`r`F"));
    EXPECT_THAT(caller.screen, HasSubstr("{||`r`Area already searched.||}"
                                         "{Press a key to continue...}[key][clear]{||}{`r`F"));
    EXPECT_THAT(chance.seededBefore, ElementsAre(0, 5, 6)) << "a group for each time it is shown";
}

TEST(Search, AnAmbushWinsTiesPaysSilentlyAndRollsAGroupWithANewSeed) {
    beginCall();
    chance.script({0, 24, 25, 5, 2});
    caller.type("x");
    search();
    EXPECT_EQ(caller.screen, "{|`r`Searching area`R`...||}{You have been ambushed!||}"
                             "{`r`Press any key!|}[key]");
    EXPECT_EQ(game.player.gold, 125);
    EXPECT_EQ(game.encounter.monsterCount, 3);
    EXPECT_EQ(game.encounter.groupActive, 1);
    EXPECT_THAT(chance.seededBefore, ElementsAre(4));
}
