// Rounds of the arena, and the fight against another player.
#include "characters/character_file.h"
#include "combat/arena.h"
#include "combat/player_fight.h"
#include "fighters.h"

using namespace morvek;
using namespace morvek::test;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

int wins = 0;

void arenaRoundOf(std::deque<int> draws) {
    wins = 0;
    caller.type("xx");
    chance.script(std::move(draws));
    arenaRound([] { arenaAttack([] { ++wins; }); });
}

} // namespace

TEST(Arena, BothStrikeAndTheNameIsCutToNine) {
    meet("Bartholomew");
    game.session.inTraining = 1;
    game.player.armourValue = 5; // counts for nothing
    arenaRoundOf({24, 39, 14, 7, 27, 5});
    EXPECT_EQ(caller.screen(), "say ||\nsay `red`You attack first!||\n"
                               "say `red`You hit `bright white`\nshow Bartholom\n"
                               "say  `red`for`bright white` \nshow 7\nsay  `red`points!||\n"
                               "say `bright white`\nshow Bartholom\n"
                               "say  `red`hit you for `bright white`\nshow 6\n"
                               "say  `red`points!||\nsay `red`Press any key!\nkey\n");
    EXPECT_EQ(game.player.hitPoints, 24);
    EXPECT_EQ(game.encounter.monster.hitPoints, 3);
    EXPECT_EQ(game.session.inTraining + wins, 0);
}

TEST(Arena, AQuickerOpponentStrikesFirstAndABeatenPlayerStrikesAtWhatIsLeft) {
    meet("Bartholomew");
    game.encounter.monster.initiative = 16;
    game.player.hitPoints = 2;
    const std::string name = "`bright white`\nshow Bartholom\n";
    arenaRoundOf({3, 4, 5, 25, 1, 7}); // misses make all their draws
    EXPECT_EQ(caller.screen(), "say ||\nsay " + name + "say  `red`attacks first.||\nsay " + name +
                                   "say  `red`Missed!||\nsay Press a key!\nkey\n"
                                   "say `red`You Missed!||\n");
    EXPECT_EQ(chance.drawn, 6);
    arenaRoundOf({0, 0, 1});
    EXPECT_THAT(caller.screen(), HasSubstr("key\nsay ||" + name +
                                           "say  `red`has beaten you!||\nsay Press a key!\nkey\n"
                                           "say `red`You hit `bright white`\n"));
    EXPECT_EQ(game.player.hitPoints, 40) << "whole again";
    EXPECT_EQ(leftOfOpponent(), 0);
    EXPECT_EQ(game.encounter.monster.hitPoints, -1);
    EXPECT_EQ(wins, 1);
}

TEST(PlayerFight, ABeatenPlayerLosesHisGoldAndTheQuickSaveTakesSlotZero) {
    const std::string name = "Bartholomew the Elder of Morvek";
    meet(name);
    game.session.targetSlot = 4;
    game.roster.slots[4].gold = 1000;
    game.player.gold = 5;
    game.player.weaponNumber = 6;
    caller.type("Ak");
    chance.script({6, 0, 0, 15}); // the weapon's d8, then the blow
    fightPlayer();
    EXPECT_TRUE(caller.saw("`red`Bartholomew the Elder of Morv's HP"));
    EXPECT_THAT(caller.screen(),
                EndsWith("show 16\nsay  `red`points!||\nsay `red`The player `bright white`\nshow " +
                         name + "\nsay  `red`has been beaten!||\n" +
                         "say `red`You took `bright white`\nshow 1000\n" +
                         "say  `bright red`gold `red`from `bright white`\nshow " + name +
                         "\nsay `red`!\nsay ||`red`Press any key!\nkey\n"));
    game.roster = Roster{};
    ASSERT_TRUE(readRoster());
    EXPECT_EQ(0 + game.roster.slots[4].gold, 0); // a field of a packed record: by value
    EXPECT_EQ(0 + game.roster.slots[0].gold, 1005);
    std::remove(game.session.characterFileName.c_str());
}

TEST(PlayerFight, EmptyPocketsAreNamedAndNothingIsSaved) {
    for (const int slot : {5, -1, 50}) {
        meet("Bartholomew");
        game.session.targetSlot = slot;
        game.encounter.monster.hitPoints = 1;
        caller.type("ak");
        fightPlayer();
        EXPECT_THAT(caller.screen(), EndsWith("say `bright white`\nshow Bartholomew\n"
                                              "say `red`'s pockets are `bright white`empty`red`.\n"
                                              "say ||`red`Press any key!\nkey\n"));
        EXPECT_FALSE(readRoster());
    }
}

TEST(PlayerFight, TheStatusGoesOnWithTheFightAndReturningEndsIt) {
    meet("Bartholomew");
    caller.type("yxR");
    fightPlayer();
    EXPECT_THAT(caller.screen(), HasSubstr("menu command ayr\nclear\nsay `red`Your Status"));
    EXPECT_THAT(caller.screen(), EndsWith("menu command ayr\nsay ||\n"
                                          "say `red`Returning to Towne`bright red`...||\n"));
    EXPECT_EQ(game.encounter.monster.hitPoints, 0);
    caller.type("");
    fightPlayer();
    EXPECT_EQ(caller.screen(), "") << "nobody fights a target without hit points";
}
