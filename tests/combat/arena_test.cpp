// Rounds of the arena, and the fight against another player.
#include "combat/arena.h"
#include "combat/fighters.h"
#include "combat/player_fight.h"
#include "screen/screen.h"
#include "state/encounter.h"
#include "state/roster.h"
#include "support/stored.h"

namespace {

std::string arenaRoundOf(std::deque<int> draws) {
    chance.script(std::move(draws));
    return caller.visit([] { arenaRound([] { arenaAttack([] { say("Won!"); }); }); }, "xx");
}

using PlayerFight = InTemporaryDirectory;

} // namespace

TEST(Arena, AQuickerOpponentStrikesFirstAndABeatenPlayerStrikesAtWhatIsLeft) {
    meet("Bartholomew");
    game.player.armourValue = 5; // counts for nothing
    EXPECT_THAT(arenaRoundOf({24, 39, 14, 7, 27, 5}), HasSubstr("hit `W`}<Bartholom>"));
    EXPECT_EQ(inARow(game.player.hitPoints, game.encounter.monster.hitPoints), "24 3");

    meet("Bartholomew");
    game.encounter.monster.initiative = 16;
    game.player.hitPoints = 2;
    EXPECT_THAT(arenaRoundOf({3, 4, 5, 25, 1, 7}), HasSubstr("`r`Missed!||}{Press a key!}[key]"));
    EXPECT_EQ(chance.drawn, 6) << "misses make all their draws";
    EXPECT_THAT(arenaRoundOf({0, 0, 1}),
                HasSubstr("has beaten you!||}{Press a key!}[key]{`r`You hit `W`}"));
    EXPECT_THAT(caller.screen, EndsWith("{Won!}"));
    EXPECT_EQ(inARow(game.player.hitPoints, game.encounter.monster.maxHitPoints), "40 0");
}

TEST_F(PlayerFight, ABeatenPlayerLosesHisGoldAndTheQuickSaveTakesSlotZero) {
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
    EXPECT_EQ(inARow(storedSlot(4).gold, storedSlot(0).gold), "0 1005");
}

TEST_F(PlayerFight, EmptyPocketsAreNamedAndNothingIsSavedNorByWhoReturns) {
    for (const int slot : {5, -1, 50}) {
        meet("Bartholomew");
        game.session.targetSlot = slot;
        game.encounter.monster.hitPoints = 1;
        EXPECT_THAT(caller.visit(fightPlayer, "ak"), HasSubstr("'s pockets are `W`empty`r`.}"));
        EXPECT_FALSE(fs::exists("morchars.dat"));
    }
    meet("Bartholomew");
    EXPECT_THAT(caller.visit(fightPlayer, "R"),
                EndsWith("[menu command ayr]{||}{`r`Returning to Towne`R`...||}"));
    EXPECT_EQ(caller.visit(fightPlayer), "") << "nobody fights a target without hit points";
}
