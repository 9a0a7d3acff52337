// Rounds in the world: what each draw decides, what a kill brings, and what a round shows. Deaths
// are in tests/journeys.
#include "combat/fight.h"

#include "combat/fighters.h"

namespace {

const std::string& killOne() {
    game.encounter.monster.hitPoints = 1;
    return caller.visit(playerAttack, "xx");
}

} // namespace

TEST(Fight, KitRollsLowerNumberFirst) {
    const Cases<int, int, std::deque<int>, int, int> cases{
        {7, 1, {2, 15}, 8 + 10, 3 + 1}, // d3 for the armour, then d8
        {4, 4, {11, 6}, 6 + 5, 1 + 4},  // d6 for the weapon, then d6
        {0, 7, {15}, 0, 8 + 7}};        // fists draw nothing
    for (const auto& [weapon, armour, draws, damage, armourValue] : cases) {
        newCall();
        game.player.weaponNumber = weapon;
        game.player.armourNumber = armour;
        chance.script(draws);
        rollPlayerCombatValues();
        EXPECT_EQ(game.player.weaponDamage, damage);
        EXPECT_EQ(game.player.armourValue, armourValue);
        EXPECT_EQ(chance.seededBefore.size(), draws.size());
    }
}

TEST(Fight, PlayerWinsTiesAndIsStruckBack) {
    meet("Kobold");
    game.player.armourValue = 2;
    chance.script({7, 27, 13, 9, 3, 23, 7}); // 7 against 7, 6 points; 3 against 3, 4 points
    EXPECT_THAT(caller.visit(fightRound, "x"),
                EndsWith("{|}{`r`You hit `W`}<Kobold>{ `r`for`W` }<6>{ `r`points!||}"
                         "{`W`}<Kobold>{ `r`hit you for `W`}<4>{ `r`points!||}[any key]"));
    EXPECT_EQ(game.player.hitPoints, 26);
    EXPECT_EQ(game.encounter.monster.hitPoints, 4);
    EXPECT_EQ(game.player.turnsLeft, 5);
}

TEST(Fight, QuickerMonsterStrikesFirst) {
    meet("Thirty letters are one too many");
    game.encounter.monster.initiative = 16;
    game.encounter.monsterCount = 0;
    chance.script({6, 7, 5, 6, 27});
    const std::string name = "{`W`}<Thirty letters are one too ma>";
    EXPECT_THAT(caller.visit(fightRound, "x"),
                EndsWith(name + "{ `r`attacks first.||}" + name + "{ `r`Missed!||}" +
                         "{|`r`You Missed!||}[any key]"));
    EXPECT_EQ(chance.drawn, 7) << "misses make all their draws";
    EXPECT_EQ(game.player.turnsLeft, 4) << "without a group also a miss costs a turn";
}

TEST(Fight, FourthDrawDecidesACriticalBlow) {
    meet("Kobold");
    game.encounter.monster.hitPoints = 20;
    chance.script({0, 0, 6, 28 + 9, 0, 0, 6, 28 + 10});
    playerAttack();
    EXPECT_EQ(game.encounter.monster.hitPoints, 13);
    playerAttack();
    EXPECT_EQ(game.encounter.monster.hitPoints, 3) << "7, and half of it rounded down";
    EXPECT_TRUE(caller.saw("{`r`You critically hit `W`}<Kobold>"));
}

TEST(Fight, LastOfAGroupClearsThePlace) {
    meet("Kobold");
    game.encounter.monsterCount = 2;
    game.world.currentLocation = 3;
    EXPECT_THAT(killOne(), HasSubstr("{`r`You earned `W`}<25>{ `r`experience and `W`}<75>"));
    EXPECT_EQ(game.world.cleared(3), 0);
    EXPECT_EQ(game.encounter.groupActive, 1);
    EXPECT_EQ(game.encounter.ambushPending, 1);
    EXPECT_EQ(game.player.turnsLeft, 5);
    killOne();
    EXPECT_EQ(game.player.turnsLeft, 4) << "a group costs one turn";
    EXPECT_EQ(game.world.cleared(3), 1);
    EXPECT_EQ(game.encounter.groupActive, 0);
    EXPECT_EQ(game.encounter.ambushPending, 0);
    EXPECT_EQ(game.player.experience, 50);
}

TEST(Fight, ArmourAndDieWearEachOtherDown) {
    const Cases<int, int, int, int> cases{{10, 4, 6, 4}, {10, 12, 10, 2}, {6, 6, 6, 6}};
    for (const auto& [die, armour, dieAfter, armourAfter] : cases) {
        meet("Kobold");
        game.encounter.monster.damage = die;
        game.player.armourValue = armour;
        chance.script({0, 0, 2 * dieAfter - 1});
        monsterAttack();
        EXPECT_EQ(game.encounter.monster.damage, dieAfter);
        EXPECT_EQ(game.player.armourValue, armourAfter);
        EXPECT_EQ(game.player.hitPoints, 30 - dieAfter) << "the blow is of the worn die";
    }
}
