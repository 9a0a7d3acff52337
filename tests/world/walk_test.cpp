// One room at a time: its screens to the letter, its draws in their order, and its oddities.
#include "walkers.h"

using namespace morvek;
using namespace morvek::test;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const char* const statusTitle = "`red`Your Status`bright red:";
constexpr RoomNumber castle = roomOf(Level::castle1, 1);

} // namespace

TEST(RoomScreen, AnEncounterWithItsMenu) {
    beginCall();
    chance.script({4});
    walk(1, "cxf"); // the misspelt colour and the "c", another "y", are this location's own
    EXPECT_THAT(
        screens(),
        StartsWith("[clear]{||}{`red`Forest 1|}{|}{`red`You've encountered `bright red`}<2>"
                   "{ `bright white`}<Kobold Minion>{s}{`red.`|}{|}"
                   "{`red`Your HP`bright red`: `bright white`}<20>{`red`/`bright white`}<25>{|}"
                   "{`bright white`}<Kobold Minion>{'s `red`HP`bright red`: `bright white`}<1>"
                   "{`red`/`bright white`}<1>{|\n}{`red`A`bright red`)`bright white`ttack|}"
                   "{`red`Y`bright red`)`bright white`our Status|`red`}"
                   "{`red`F`bright red`)`bright white`lee to Towne|`red`}[menu areaone acyf]"));
    EXPECT_EQ(timesSaid(statusTitle), 1);
    EXPECT_EQ(game.world.previousLocation, 99) << "flight from a fight notes nothing";

    beginCall();
    game.world.position(Level::castle1) = 9;
    walk(castle, "y"); // in a level it is flight
    EXPECT_EQ(game.world.position(Level::castle1), 1);
    EXPECT_THAT(screens(), HasSubstr("<1>{ `bright white`}<Human Rabble>{|}{`red`Your HP"));
    EXPECT_THAT(screens(), EndsWith("lee to Towne||`red`}[menu areaone ayf]"));
}

TEST(RoomScreen, DirectionsOfALocationAndOfALevel) {
    beginCall(true, false);
    walk(5, "f");
    EXPECT_EQ(screens(), "{||}{||}{`red`Rattlehead Pathway 5|}{|}{`red`Directions`bright red`:||}"
                         "{`red`2`bright red`) `bright white`South|}"
                         "{`red`7`bright red`) `bright white`North West|}"
                         "{`red`8`bright red`) `bright white`North|}"
                         "{`red`9`bright red`) `bright white`North East|}{|}"
                         "{`red`H`bright red`)`bright white`ealing Shrine|`red`}"
                         "{`red`S`bright red`)`bright white`earch Area|`red}"
                         "{`red`Y`bright red`)`bright white`our Status|`red`}"
                         "{`red`F`bright red`)`bright white`lee to Towne|`red`}{|}"
                         "[menu areaone 2789shyf]");
    beginCall(true);
    walk(roomOf(Level::castle1, 22), "yxdf"); // the status, the room anew, and on from there
    EXPECT_THAT(screens(), HasSubstr("[key][clear]{||}{`red`Castle Level 1-22|}{|}{`red`Dir"));
    EXPECT_THAT(screens(), HasSubstr("{`red`D`bright red`) `bright white`Down to Level 2|}{|}"
                                     "{`red`H`bright red`)`bright white`ealing Shrine|`red`}"
                                     "{`red`Y`bright red`)`bright white`our Status|`red`}"));
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

TEST(Room, TheDeadAndThoseWithoutTurnsAreStoredAndDrawnForButSeeNothing) {
    for (std::int32_t* end : {&game.world.playerDead, &game.player.turnsLeft}) {
        beginCall();
        *end = *end == 0 ? 1 : 0;
        walk(7, "");
        EXPECT_EQ(game.world.currentLocation, 7);
        EXPECT_EQ(game.encounter.groupActive, 1);
        EXPECT_TRUE(caller.calls.empty());
    }
}

TEST(Room, TheStatusInAFightComesBackToTheSameWoundedMonster) {
    beginCall();
    walk(30, "axyxf");
    EXPECT_EQ(timesSaid(statusTitle), 1);
    EXPECT_THAT(screens(), HasSubstr("<Kobold Skirmisher>{'s `red`HP`bright red`: `bright white`}"
                                     "<26>{`red`/`bright white`}<27>{|\n}"));
    EXPECT_EQ(chance.drawn, 1 + 3 + 4 + 3) << "one group, one monster, one round, no more";
    EXPECT_EQ(game.encounter.monster.hitPoints, 0);
}

TEST(Exits, LeaveTheTrailThatTheirRowsSay) {
    const std::vector<std::tuple<RoomNumber, const char*, int>> cases{
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

TEST(Exits, SomeLeadNowhere) {
    beginCall(true);
    walk(roomOf(Level::mortuary1, 14), "26f"); // "2" is refused, "6" does nothing
    EXPECT_THAT(screens(), HasSubstr(":||}{`red`6`bright red`) `bright white`East|}{|}"));
    EXPECT_THAT(screens(), EndsWith("{|}[menu areaone 6hyf][menu areaone 6hyf]"));

    beginCall(true);
    walk(roomOf(Level::cavern1, 7), "exf");
    EXPECT_THAT(screens(), HasSubstr("{`red`E`bright red`)`bright white`xit Rattlehead Cavern|}"));
    EXPECT_THAT(screens(), HasSubstr("[menu areaone e2hyf]{||}{`red`Under Development}{||}"
                                     "{`red`Press any key!}[key][clear]"));
}

TEST(SpecialRooms, ForestOneAnnouncesAFlightAndWillHaveThePlayerBack) {
    beginCall(true);
    game.encounter.monster.monsterReady = 1;
    walk(1, "f");
    EXPECT_THAT(screens(), EndsWith("[menu areaone 846shyf]{||}"
                                    "{`red`Returning to Towne`bright red`...||}"));
    EXPECT_EQ(game.world.previousLocation, 1);
    EXPECT_EQ(game.encounter.monster.monsterReady, 0);
}

TEST(SpecialRooms, TheCastleGateTakesItsHiddenKeyInAVisitsFirstMenuOfAnActiveGroup) {
    beginCall();
    walk(56, "cf"); // without a status: he is on his way home
    EXPECT_EQ(game.encounter.groupActive, 0);
    EXPECT_EQ(timesShown("Cedar River 56"), 2);
    EXPECT_THAT(screens(), EndsWith("[menu areaone ayf]"));
    EXPECT_EQ(timesSaid(statusTitle), 0);

    beginCall();
    chance.script({0, 0, 0, 0, 1}); // the first blow misses
    walk(56, "axcf");
    EXPECT_THAT(screens(), HasSubstr("[menu areaone acyf]"));
    EXPECT_THAT(screens(), EndsWith("[menu areaone ayf]")) << "refused from the second menu on";

    beginCall(); // whoever dies in the room shown anew is not on his way home
    game.session.characterFileName = testing::TempDir() + "no/such/place";
    game.player.hitPoints = 1;
    game.player.dexterity = 0;
    walk(56, "ca");
    EXPECT_EQ(game.world.playerDead, 1);
    EXPECT_EQ(game.world.leavingWorld, 0);
}

TEST(SpecialRooms, TheMortuarysEntranceShowsItsDirectionsWhoeverIsAlive) {
    beginCall();
    game.encounter.monster.hitPoints = 9; // a trainer, left alive in the hall
    walk(26, "sxey");                     // an ambush, which finds its monster inside
    EXPECT_EQ(timesSaid("`red`E`bright red`)`bright white`nter Mortuary\n\r"), 2);
    EXPECT_EQ(game.encounter.monster.name, "Zombie Rotter");
    EXPECT_EQ(game.encounter.ambushPending, 1);
}
