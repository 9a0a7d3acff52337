// Rounds in the world: what each draw decides, what a kill brings, and what a round shows. Whoever
// dies does so in tests/journeys.
#include "combat/fight.h"

#include "combat/fighters.h"

#include <algorithm>

namespace {

std::string killKobold() {
    game.encounter.monster.hitPoints = 1;
    return caller.visit(playerAttack, "xx");
}

// The first world word that is set, or 311.
auto firstWord() {
    return std::ranges::find(game.world.words, 1) - game.world.words.begin();
}

} // namespace

TEST(Fight, WeaponAndArmourRollTheDieOfTheirNumberLowerNumberFirst) {
    newCall();
    Player& player = game.player;
    for (const auto& [die, weaponPlus, armourPlus] : Cases<int, int, int>{
             {3, 1, 1}, {4, 2, 2}, {4, 4, 3}, {6, 5, 4}, {6, 7, 5}, {8, 9, 6}, {8, 10, 7}}) {
        ++player.weaponNumber;
        ++player.armourNumber;
        chance.script({2 * die - 1, die});
        rollPlayerCombatValues();
        EXPECT_EQ(inARow(player.weaponDamage, player.armourValue),
                  inARow(die + weaponPlus, 1 + armourPlus))
            << player.weaponNumber;
        EXPECT_THAT(chance.seededBefore, ElementsAre(0, 1));
    }
}

// Ties go to the player in the first strike, and to whoever strikes in a blow.
TEST(Fight, TheQuickerStrikesFirstAndWhoStandsStrikesBackAlsoAfterAMiss) {
    meet("Kobold");
    game.player.armourValue = 2;
    chance.script({7, 27, 13, 9, 3, 23, 7});
    EXPECT_THAT(caller.visit(fightRound, "x"),
                EndsWith("{|}{`r`You hit `W`}<Kobold>{ `r`for`W` }<6>{ `r`points!||}"
                         "{`W`}<Kobold>{ `r`hit you for `W`}<4>{ `r`points!||}[any key]"));
    EXPECT_EQ(inARow(game.player.hitPoints, game.encounter.monster.hitPoints), "26 4");
    EXPECT_EQ(game.player.turnsLeft, 5);

    meet("Thirty letters are one too many");
    game.encounter.monster.initiative = 16;
    game.encounter.monsterCount = 0;
    chance.script({6, 7, 5, 6, 27});
    const std::string name = "{`W`}<Thirty letters are one too ma>";
    EXPECT_THAT(caller.visit(fightRound, "x"),
                EndsWith(name + "{ `r`attacks first.||}" + name + "{ `r`Missed!||}" +
                         "{|`r`You Missed!||}[any key]"));
    EXPECT_EQ(chance.drawn, 7) << "misses make all their draws";
    EXPECT_EQ(game.player.turnsLeft, 4) << "without a group also a miss costs one";
}

TEST(Fight, TheFourthDrawDecidesACriticalBlowOnADieOfTheWeaponAndTwenty) {
    meet("Kobold");
    game.encounter.monster.hitPoints = 20;
    chance.script({0, 0, 6, 37, 0, 0, 6, 38, 0, 0, 13, 29, 99});
    playerAttack();
    EXPECT_EQ(game.encounter.monster.hitPoints, 13);
    playerAttack();
    EXPECT_EQ(game.encounter.monster.hitPoints, 3) << "7, and half of it rounded down";
    EXPECT_TRUE(caller.saw("{`r`You critically hit `W`}<Kobold>"));
    game.player.weaponDamage = 0; // fists before any armed round
    playerAttack();
    EXPECT_EQ(game.encounter.monster.hitPoints, 2);
}

TEST(Fight, OnlyTheLastOfAGroupClearsThePlaceAndInEachLevelTheRoomLastEntered) {
    meet("Kobold");
    game.player.experience = INT32_MAX; // a forged character's wraps around
    game.encounter.monsterCount = 2;
    game.world.currentLocation = 3;
    game.world.position(Level::castle1) = 24;
    game.world.position(Level::mortuary1) = 36; // outside its level
    EXPECT_THAT(killKobold(), HasSubstr("{`r`You earned `W`}<25>{ `r`experience and `W`}<75>"));
    EXPECT_EQ(game.encounter.groupActive + game.encounter.ambushPending, 2);
    killKobold();
    EXPECT_EQ(game.encounter.groupActive + game.encounter.ambushPending, 0);
    EXPECT_EQ(game.player.experience, INT32_MIN + 49);
    EXPECT_EQ(firstWord(), 133) << "the castle's room 24";
    EXPECT_EQ(std::ranges::count(game.world.words, 1), 2) << "and where he stands";
    for (const auto& [location, word] : {std::pair{1, 310}, {76, 234}, {0, 311}, {77, 311}}) {
        meet("Kobold");
        game.world.currentLocation = location;
        killKobold();
        EXPECT_EQ(inARow(firstWord(), game.world.currentLocation), inARow(word, location));
    }
}

TEST(Fight, ArmourWearsTheMonstersDieDownAndIsWornItself) {
    for (const auto& [die, armour, dieAfter, armourAfter] :
         Cases<int, int, int, int>{{10, 4, 6, 4}, {10, 12, 10, 2}, {5, 4, 1, 3}, {6, 6, 6, 6}}) {
        meet("Kobold");
        game.encounter.monster.damage = die;
        game.player.armourValue = armour;
        chance.script({0, 0, 2 * dieAfter - 1});
        monsterAttack();
        EXPECT_EQ(
            inARow(game.encounter.monster.damage, game.player.armourValue, game.player.hitPoints),
            inARow(dieAfter, armourAfter, 30 - dieAfter))
            << "the blow is of the worn die";
    }
}
