// Rounds of the arena, and the fight against another player.
#include "combat/arena.h"

#include "combat/fighters.h"
#include "combat/player_fight.h"
#include "files/game_lock.h"
#include "screen/screen.h"
#include "state/encounter.h"
#include "state/roster.h"
#include "support/stored.h"

namespace {

const std::string& playRound(std::deque<int> draws) {
    chance.script(std::move(draws));
    return caller.visit([] { arenaRound([] { arenaAttack([] { say("Won!"); }); }); }, "xx");
}

using PlayerFight = InTemporaryDirectory;

} // namespace

TEST(Arena, PlayerDrawsOf25WithoutArmour) {
    meet("Bartholomew");
    game.player.armourValue = 5;
    EXPECT_THAT(playRound({24, 39, 14, 7, 27, 5}), HasSubstr("hit `W`}<Bartholom>"));
    EXPECT_EQ(game.player.hitPoints, 24);
    EXPECT_EQ(game.encounter.monster.hitPoints, 3);
}

TEST(Arena, BeatenPlayerStrikesAtWhatIsLeft) {
    meet("Bartholomew");
    game.encounter.monster.initiative = 16;
    game.player.hitPoints = 2;
    EXPECT_THAT(playRound({0, 0, 1}),
                HasSubstr("has beaten you!||}{Press a key!}[key]{`r`You hit `W`}"));
    EXPECT_THAT(caller.screen, EndsWith("{Won!}"));
    EXPECT_EQ(game.player.hitPoints, 40);
    EXPECT_EQ(game.encounter.monster.maxHitPoints, 0);
}

TEST_F(PlayerFight, WinnerTakesTheGoldAndSlotZero) {
    meet("Bartholomew the Elder of Morvek");
    game.session.targetSlot = 4;
    game.roster.slots()[4].gold = 1000;
    game.player.gold = 5;
    game.player.weaponNumber = 6;
    chance.script({6, 0, 0, 15});                  // the weapon's d8, then the blow
    EXPECT_THAT(caller.visit(fightPlayer, "yxAk"), // the status goes on with the fight
                HasSubstr("[any key][clear]{`r`Your HP"));
    EXPECT_TRUE(caller.saw("{`r`}<Bartholomew the Elder of Morv>{'s HP`R`: `W`}"));
    EXPECT_TRUE(caller.saw("{`r`You took `W`}<1000>{ `R`gold `r`from `W`}"));
    EXPECT_EQ(double{storedSlot(4).gold}, 0);
    EXPECT_EQ(double{storedSlot(0).gold}, 1005);
}

TEST_F(PlayerFight, GoldIsTakenAsItIsInTheFileNow) {
    const auto rob = [] {
        meet("Bartholomew");
        game.encounter.monster.hitPoints = 1;
        game.session.targetSlot = 4;
        own(4, "Cid", "Bartholomew");
        game.roster.slots()[4].gold = 1000;
        return caller.visit(fightPlayer, "ak");
    };
    own(4, "Cid", "Bartholomew"); // another robber was quicker
    const std::string robbed = rosterBytes();
    writeFile("morchars.dat", robbed);
    EXPECT_THAT(rob(), HasSubstr("'s pockets are `W`empty`r`.}"));
    EXPECT_EQ(readFile("morchars.dat"), robbed) << "nothing is saved";
    GameLock hisCall(lockFileName);
    hisCall.enter("Cid");
    EXPECT_THAT(rob(), HasSubstr("{ `r`has come into the game meanwhile and keeps the gold.}"));
    EXPECT_EQ(double{game.player.gold}, 0);
}
