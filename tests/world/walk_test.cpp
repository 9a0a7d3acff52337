// One room at a time: its screens to the letter, its draws in their order, and its oddities.
#include "walkers.h"

constexpr RoomNumber castle = roomOf(Level::castle1, 1);

TEST(RoomScreen, ShowsAnEncounterWithItsMenu) {
    beginCall();
    chance.script({4});
    // The misspelt colour and the "c", another "y", are this location's own.
    EXPECT_THAT(walk(1, "cxf"),
                StartsWith("[clear]{||}{`r`Forest 1|}{|}{`r`You've encountered `R`}<2>"
                           "{ `W`}<Kobold Minion>{s}{`red.`|}{|}"
                           "{`r`Your HP`R`: `W`}<20>{`r`/`W`}<25>{|}"
                           "{`W`}<Kobold Minion>{'s `r`HP`R`: `W`}<1>{`r`/`W`}<1>{|\n}"
                           "{`r`A`R`)`W`ttack|}{`r`Y`R`)`W`our Status|`r`}"
                           "{`r`F`R`)`W`lee to Towne|`r`}[menu areaone acyf]"));
    EXPECT_EQ(caller.times("Your Status"), 1);
    EXPECT_EQ(game.world.previousLocation, 99) << "flight from a fight notes nothing";
}

TEST(RoomScreen, ShowsTheDirectionsOfALocation) {
    beginCall(true);
    EXPECT_EQ(walk(5, "f"), "[clear]{||}{`r`Rattlehead Pathway 5|}{|}{`r`Directions`R`:||}"
                            "{`r`2`R`) `W`South|}{`r`7`R`) `W`North West|}"
                            "{`r`8`R`) `W`North|}{`r`9`R`) `W`North East|}{|}"
                            "{`r`H`R`)`W`ealing Shrine|`r`}{`r`S`R`)`W`earch Area|`red}"
                            "{`r`Y`R`)`W`our Status|`r`}{`r`F`R`)`W`lee to Towne|`r`}{|}"
                            "[menu areaone 2789shyf]");
}

TEST(RoomScreen, HasNoSearchInALevel) {
    beginCall(true);
    walk(roomOf(Level::castle1, 22), "yxdf"); // the status, the room anew, and on from there
    EXPECT_THAT(caller.screen, HasSubstr("[any key][clear]{||}{`r`Castle Level 1-22|}{|}{`r`Dir"));
    EXPECT_THAT(caller.screen, HasSubstr("{`r`D`R`) `W`Down to Level 2|}{|}"
                                         "{`r`H`R`)`W`ealing Shrine|`r`}{`r`Y`R`)`W`our St"));
    EXPECT_EQ(game.world.position(Level::castle1), 1) << "the status led home from there too";
}

TEST(Room, StatusInALevelsFightIsFlight) {
    beginCall();
    game.world.position(Level::castle1) = 9;
    EXPECT_THAT(walk(castle, "y"), EndsWith("lee to Towne||`r`}[menu areaone ayf]"));
    EXPECT_TRUE(caller.saw("<1>{ `W`}<Human Rabble>{|}{`r`Your HP"));
    EXPECT_EQ(game.world.position(Level::castle1), 1);
}

TEST(Room, DrawsGroupThenKindThenMonster) {
    beginCall();
    chance.script({5, 3, 149, 7}); // group, kind, experience, damage
    walk(castle, "f");
    EXPECT_EQ(game.encounter.monsterCount, 3);
    EXPECT_EQ(game.encounter.monster.name, "Human Bandit");
    EXPECT_EQ(game.encounter.monster.experience, 150);
    EXPECT_THAT(chance.seededBefore, ElementsAre(0, 1, 3));
    EXPECT_EQ(game.encounter.groupActive, 0) << "only a location's roll sets it";
}

TEST(Room, DrawsNoGroupWhereTheCountIsKept) {
    beginCall(true);
    game.encounter.ambushPending = 1; // needs no count
    chance.script({9});
    walk(roomOf(Level::mortuary1, 29), "f");
    EXPECT_EQ(game.encounter.monster.name, "Zombie");
    EXPECT_EQ(game.encounter.monster.experience, 10);
    EXPECT_FALSE(caller.saw("encountered"));
}

TEST(Room, DeadAndTiredSeeNothing) {
    for (std::int32_t* end : {&game.world.playerDead, &game.player.turnsLeft}) {
        beginCall();
        *end = *end == 0 ? 1 : 0;
        EXPECT_EQ(walk(7, ""), "");
        EXPECT_EQ(game.world.currentLocation, 7);
        EXPECT_EQ(game.encounter.groupActive, 1);
    }
}

TEST(Room, StatusInAFightKeepsTheWoundedMonster) {
    beginCall();
    EXPECT_THAT(walk(30, "axyxf"), HasSubstr("<Kobold Skirmisher>{'s `r`HP`R`: `W`}"
                                             "<26>{`r`/`W`}<27>{|\n}"));
    EXPECT_EQ(chance.drawn, 1 + 3 + 4 + 3) << "one group, one monster, one round, no more";
    EXPECT_EQ(game.encounter.monster.hitPoints, 0);
}

TEST(Room, SearchFindsAChestOnce) {
    beginCall(true);
    game.world.searched(2) = 0;
    game.player.level = 2;
    game.player.gold = 7;
    chance.script({0, 999, 25 + 6, 4, 5}); // a group; nothing, the amount, two for the ambush
    walk(2, "sxsxf");
    EXPECT_EQ(game.player.gold, 7 + 70);
    EXPECT_THAT(caller.screen,
                HasSubstr("{|`r`Searching area`R`...||}{`r`You found a treasure chest.||}{`W`}<70>"
                          "{ `R`gp`r`.||}{`r`Press any key!|}[key][clear]{||}{`r`F"));
    EXPECT_THAT(caller.screen, HasSubstr("{||`r`Area already searched.||}"
                                         "{Press a key to continue...}[key][clear]{||}{`r`F"));
    EXPECT_THAT(chance.seededBefore, ElementsAre(0, 5, 6)) << "a group for each time it is shown";
}

TEST(Exits, LeaveTheTrailThatTheirRowsSay) {
    const Cases<RoomNumber, const char*, int> cases{
        {5, "8f", 5},   {5, "2f", 99},  {5, "9f", 99},       {12, "8f", 12},      {12, "17f", 6},
        {56, "ef", 56}, {58, "ef", 99}, {castle, "82f", 99}, {castle, "l4f", 56}, {1, "f", 1}};
    for (const auto& [from, keys, trail] : cases) {
        beginCall(true);
        walk(from, keys);
        EXPECT_EQ(game.world.previousLocation, trail) << keys;
    }
}

TEST(Exits, SomeLeadNowhere) {
    beginCall(true);
    walk(roomOf(Level::mortuary1, 14), "26f"); // "2" is refused, "6" does nothing
    EXPECT_THAT(caller.screen, HasSubstr(":||}{`r`6`R`) `W`East|}{|}"));
    EXPECT_THAT(caller.screen, EndsWith("{|}[menu areaone 6hyf][menu areaone 6hyf]"));

    beginCall(true);
    walk(roomOf(Level::cavern1, 7), "exf");
    EXPECT_THAT(caller.screen, HasSubstr("{`r`E`R`)`W`xit Rattlehead Cavern|}"));
    EXPECT_THAT(caller.screen, HasSubstr("[menu areaone e2hyf]{||}{`r`Under Development}{||}"
                                         "[any key][clear]"));
}

TEST(Exits, ForestOneAnnouncesAFlight) {
    beginCall(true);
    game.encounter.monster.monsterReady = 1;
    EXPECT_THAT(walk(1, "f"),
                EndsWith("[menu areaone 846shyf]{||}{`r`Returning to Towne`R`...||}"));
    EXPECT_EQ(game.encounter.monster.monsterReady, 0);
}

TEST(CastleGate, HiddenKeyGivesTheGroupUp) {
    beginCall();
    EXPECT_THAT(walk(56, "cf"), EndsWith("[menu areaone ayf]"));
    EXPECT_EQ(game.encounter.groupActive, 0);
    EXPECT_EQ(caller.times("Cedar River 56|"), 2);
    EXPECT_FALSE(caller.saw("Your Status")) << "he is on his way home";
}

TEST(CastleGate, HiddenKeyIsForAVisitsFirstMenu) {
    beginCall();
    chance.script({0, 0, 0, 0, 1}); // the first blow misses
    EXPECT_THAT(walk(56, "axcf"), HasSubstr("[menu areaone acyf]"));
    EXPECT_EQ(game.encounter.groupActive, 1);
}

TEST(CastleGate, DeathBehindTheHiddenKey) {
    beginCall();
    game.session.characterFileName = testing::TempDir() + "no/such/place";
    game.player.hitPoints = 1;
    game.player.dexterity = 0;
    walk(56, "ca");
    EXPECT_EQ(game.world.playerDead, 1);
    EXPECT_EQ(game.world.leavingWorld, 0);
    EXPECT_EQ(game.player.hitPoints, 0);
}

// An ambush, which wins ties and pays silently, finds its monster inside.
TEST(MortuaryEntrance, ShowsDirectionsWhoeverIsAlive) {
    beginCall();
    game.encounter.monster.hitPoints = 9; // a trainer, left alive in the hall
    chance.script({0, 0, 24, 25, 5});
    EXPECT_THAT(walk(26, "sxey"),
                HasSubstr("{|`r`Searching area`R`...||}{You have been ambushed!||}"
                          "{`r`Press any key!|}[key][clear]{||}{`r`Underground Mortuary 26|}"));
    EXPECT_EQ(caller.times("{`r`E`R`)`W`nter Mortuary|}"), 2);
    EXPECT_EQ(game.encounter.monster.name, "Zombie Rotter");
    EXPECT_EQ(game.encounter.ambushPending, 1);
    EXPECT_EQ(game.player.gold, 125);
}
