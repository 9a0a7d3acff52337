// One room at a time: its screens to the letter, its draws in their order, and its oddities.
#include "walkers.h"

namespace {

const char* const statusTitle = "`r`Your Status`bright red:";
constexpr RoomNumber castle = roomOf(Level::castle1, 1);

} // namespace

TEST(RoomScreen, AnEncounterWithItsMenu) {
    beginCall();
    chance.script({4});
    walk(1, "cxf"); // the misspelt colour and the "c", another "y", are this location's own
    EXPECT_THAT(caller.screen,
                StartsWith("[clear]{||}{`r`Forest 1|}{|}{`r`You've encountered `R`}<2>"
                           "{ `W`}<Kobold Minion>{s}{`red.`|}{|}"
                           "{`r`Your HP`R`: `W`}<20>{`r`/`W`}<25>{|}"
                           "{`W`}<Kobold Minion>{'s `r`HP`R`: `W`}<1>"
                           "{`r`/`W`}<1>{|\n}{`r`A`R`)`W`ttack|}"
                           "{`r`Y`R`)`W`our Status|`r`}"
                           "{`r`F`R`)`W`lee to Towne|`r`}[menu areaone acyf]"));
    EXPECT_EQ(caller.times(statusTitle), 1);
    EXPECT_EQ(game.world.previousLocation, 99) << "flight from a fight notes nothing";

    beginCall();
    game.world.position(Level::castle1) = 9;
    walk(castle, "y"); // in a level it is flight
    EXPECT_EQ(game.world.position(Level::castle1), 1);
    EXPECT_THAT(caller.screen, HasSubstr("<1>{ `W`}<Human Rabble>{|}{`r`Your HP"));
    EXPECT_THAT(caller.screen, EndsWith("lee to Towne||`r`}[menu areaone ayf]"));
}

TEST(RoomScreen, DirectionsOfALocationAndOfALevel) {
    beginCall(true, false);
    walk(5, "f");
    EXPECT_EQ(caller.screen, "{||}{||}{`r`Rattlehead Pathway 5|}{|}{`r`Directions`R`:||}"
                             "{`r`2`R`) `W`South|}"
                             "{`r`7`R`) `W`North West|}"
                             "{`r`8`R`) `W`North|}"
                             "{`r`9`R`) `W`North East|}{|}"
                             "{`r`H`R`)`W`ealing Shrine|`r`}"
                             "{`r`S`R`)`W`earch Area|`red}"
                             "{`r`Y`R`)`W`our Status|`r`}"
                             "{`r`F`R`)`W`lee to Towne|`r`}{|}"
                             "[menu areaone 2789shyf]");
    beginCall(true);
    walk(roomOf(Level::castle1, 22), "yxdf"); // the status, the room anew, and on from there
    EXPECT_THAT(caller.screen, HasSubstr("[any key][clear]{||}{`r`Castle Level 1-22|}{|}{`r`Dir"));
    EXPECT_THAT(caller.screen, HasSubstr("{`r`D`R`) `W`Down to Level 2|}{|}"
                                         "{`r`H`R`)`W`ealing Shrine|`r`}"
                                         "{`r`Y`R`)`W`our Status|`r`}"));
    EXPECT_EQ(game.world.position(Level::castle1), 1) << "the status led home from there too";
}

TEST(Room, DrawsAGroupThenTheKindThenTheMonster) {
    beginCall();
    chance.script({5, 3, 149, 7}); // group, kind, experience, damage
    walk(castle, "f");
    EXPECT_EQ(game.encounter.monsterCount, 3);
    EXPECT_EQ(game.encounter.monster.name, "Human Bandit");
    EXPECT_EQ(game.encounter.monster.experience, 150);
    EXPECT_THAT(chance.seededBefore, ElementsAre(0, 1, 3));
    EXPECT_EQ(game.encounter.groupActive, 0) << "only a location's roll sets it";

    beginCall(true); // no kind is drawn where nobody is set up
    walk(castle, "f");
    EXPECT_EQ(chance.drawn, 1);

    beginCall(true); // no group where the count is kept; an ambush needs no count
    game.encounter.ambushPending = 1;
    walk(roomOf(Level::mortuary1, 29), "f");
    EXPECT_EQ(game.encounter.monster.name, "Zombie");
    EXPECT_THAT(chance.seededBefore, ElementsAre(1)) << "its damage, after its experience";
    EXPECT_FALSE(caller.saw("encountered"));
}

TEST(Room, TheStatusInAFightComesBackToTheSameWoundedMonsterButTheDeadAndTheTiredSeeNothing) {
    for (std::int32_t* end : {&game.world.playerDead, &game.player.turnsLeft}) {
        beginCall();
        *end = *end == 0 ? 1 : 0;
        walk(7, "");
        EXPECT_EQ(game.world.currentLocation * 10 + game.encounter.groupActive, 71);
        EXPECT_EQ(caller.screen, "");
    }
    beginCall();
    walk(30, "axyxf");
    EXPECT_EQ(caller.times(statusTitle), 1);
    EXPECT_THAT(caller.screen, HasSubstr("<Kobold Skirmisher>{'s `r`HP`R`: `W`}"
                                         "<26>{`r`/`W`}<27>{|\n}"));
    EXPECT_EQ(chance.drawn, 1 + 3 + 4 + 3) << "one group, one monster, one round, no more";
    EXPECT_EQ(game.encounter.monster.hitPoints, 0);
}

TEST(Exits, LeaveTheTrailThatTheirRowsSay) {
    const Cases<RoomNumber, const char*, int> cases{
        {5, "8f", 5},   {5, "2f", 99},  {5, "9f", 99},       {12, "8f", 12},      {12, "17f", 6},
        {56, "ef", 56}, {58, "ef", 99}, {castle, "82f", 99}, {castle, "l4f", 56}, {1, "8f", 1},
    };
    for (const auto& [from, keys, trail] : cases) {
        beginCall(true);
        game.encounter.monster.monsterReady = 1;
        walk(from, keys);
        EXPECT_EQ(game.world.previousLocation, trail) << int{from} << " " << keys;
        EXPECT_EQ(game.encounter.monster.monsterReady, 0);
    }
}

TEST(Exits, SomeLeadNowhereOrHome) {
    beginCall(true);
    walk(roomOf(Level::mortuary1, 14), "26f"); // "2" is refused, "6" does nothing
    EXPECT_THAT(caller.screen, HasSubstr(":||}{`r`6`R`) `W`East|}{|}"));
    EXPECT_THAT(caller.screen, EndsWith("{|}[menu areaone 6hyf][menu areaone 6hyf]"));

    beginCall(true); // this one announces a flight and will have the player back
    game.encounter.monster.monsterReady = 1;
    walk(1, "f");
    EXPECT_THAT(caller.screen, EndsWith("[menu areaone 846shyf]{||}"
                                        "{`r`Returning to Towne`R`...||}"));
    EXPECT_EQ(game.world.previousLocation, 1);
    EXPECT_EQ(game.encounter.monster.monsterReady, 0);

    beginCall(true);
    walk(roomOf(Level::cavern1, 7), "exf");
    EXPECT_THAT(caller.screen, HasSubstr("{`r`E`R`)`W`xit Rattlehead Cavern|}"));
    EXPECT_THAT(caller.screen, HasSubstr("[menu areaone e2hyf]{||}{`r`Under Development}{||}"
                                         "[any key][clear]"));
}

TEST(SpecialRooms, TheCastleGateTakesItsHiddenKeyInAVisitsFirstMenuOfAnActiveGroup) {
    beginCall();
    walk(56, "cf"); // without a status: he is on his way home
    EXPECT_EQ(game.encounter.groupActive, 0);
    EXPECT_EQ(timesShown("Cedar River 56"), 2);
    EXPECT_THAT(caller.screen, EndsWith("[menu areaone ayf]"));
    EXPECT_EQ(caller.times(statusTitle), 0);

    beginCall();
    chance.script({0, 0, 0, 0, 1}); // the first blow misses
    walk(56, "axcf");
    EXPECT_THAT(caller.screen, HasSubstr("[menu areaone acyf]"));
    EXPECT_THAT(caller.screen, EndsWith("[menu areaone ayf]")) << "refused from the second menu on";

    beginCall(); // whoever dies in the room shown anew is not on his way home
    game.session.characterFileName = testing::TempDir() + "no/such/place";
    game.player.hitPoints = 1;
    game.player.dexterity = 0;
    walk(56, "ca");
    EXPECT_EQ(game.world.playerDead, 1);
    EXPECT_EQ(game.world.leavingWorld, 0);
    EXPECT_EQ(game.player.hitPoints + game.encounter.monster.maxHitPoints, 0);
}

TEST(SpecialRooms, TheMortuarysEntranceShowsItsDirectionsWhoeverIsAlive) {
    beginCall();
    game.encounter.monster.hitPoints = 9; // a trainer, left alive in the hall
    walk(26, "sxey");                     // an ambush, which finds its monster inside
    EXPECT_EQ(caller.times("{`r`E`R`)`W`nter Mortuary|}"), 2);
    EXPECT_EQ(game.encounter.monster.name, "Zombie Rotter");
    EXPECT_EQ(game.encounter.ambushPending, 1);
}
