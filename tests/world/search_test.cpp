// A search: what each draw decides, and what an ambush changes.
#include "walkers.h"
#include "world/search.h"

using namespace morvek;
using namespace morvek::test;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(Search, FindsAChestByItsSecondDrawOnceAndShowsTheRoomAnewEachTime) {
    beginCall(true);
    game.world.searched(2) = 0;
    game.player.level = 2;
    game.player.gold = 7;
    chance.script({0, 999, 25 + 6, 4, 5});
    walk(2, "sxsxf");
    EXPECT_EQ(game.player.gold, 77);
    EXPECT_THAT(
        screens(),
        HasSubstr("{|`red`Searching area`bright red`...||}"
                  "{`red`You found a treasure chest.||}{`bright white`}<70>"
                  "{ `bright red`gp`red`.||}{`red`Press any key!|}[key][clear]{||}{`red`F"));
    EXPECT_THAT(screens(), HasSubstr("{||`red`Area already searched.||}"
                                     "{Press a key to continue...}[key][clear]{||}{`red`F"));
    EXPECT_THAT(chance.seededBefore, ElementsAre(0, 5, 6)) << "a group for each time it is shown";
}

TEST(Search, AnAmbushWinsTiesPaysSilentlyAndRollsAGroupWithANewSeed) {
    beginCall();
    chance.script({0, 24, 25, 5, 2});
    caller.type("x");
    search();
    EXPECT_EQ(screens(), "{|`red`Searching area`bright red`...||}{You have been ambushed!||}"
                         "{`red`Press any key!|}[key]");
    EXPECT_EQ(game.player.gold, 125);
    EXPECT_EQ(game.encounter.monsterCount, 3);
    EXPECT_EQ(game.encounter.groupActive, 1);
    EXPECT_THAT(chance.seededBefore, ElementsAre(4));
}
