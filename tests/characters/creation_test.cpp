#include "characters/creation.h"

#include "state/roster.h"
#include "support/game_test.h"

namespace {

const std::string question = "{|}{`r`Character Name`R`: `W`}[line 50 0 127 ]";

} // namespace

TEST(Creation, RefusesTheNameOfSlotZeroAlone) {
    newCall();
    game.roster.slots()[0].name.assign("Arwen");
    game.roster.slots()[1].name.assign("Boromir");
    EXPECT_THAT(caller.visit(enterName, "Arwen\rxBoromir\ry"),
                StartsWith(question + "{That name is unavailable, choose another one.||}[any key]" +
                           question + "{|`r`You are as `W`Boromir`r` correct? `W`}[answer yn]"));
    EXPECT_EQ(game.player.name, "Boromir");
}

TEST(Creation, KeepsTheFirstNameAfterANo) {
    newCall();
    EXPECT_THAT(caller.visit(enterName, "Boromir\rnEowyn\r"), EndsWith("[answer yn]" + question));
    EXPECT_EQ(game.player.name, "Boromir");
}

TEST(Creation, AbilityIsTheThreeHighestDice) {
    for (const std::deque<int>& dice :
         std::vector<std::deque<int>>{{6, 11, 9, 7}, {7, 6, 11, 9}, {11, 9, 6, 7}, {9, 7, 11, 6}}) {
        chance.script(dice);
        rollAbility();
        EXPECT_EQ(game.session.rollResult, 12);
    }
}

TEST(Creation, RollsTheAbilitiesInTheirOrder) {
    newCall();
    chance.script({0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5});
    EXPECT_EQ(caller.visit(chooseClass, "8"), "[clear][menu clasmenu 12345678]");
    const Player& player = game.player;
    EXPECT_EQ(player.className, "Wizard");
    EXPECT_EQ(player.strength, 3);
    EXPECT_EQ(player.constitution, 6);
    EXPECT_EQ(player.dexterity, 9);
    EXPECT_EQ(player.intelligence, 12);
    EXPECT_EQ(player.wisdom, 15);
    EXPECT_EQ(player.charisma, 18);
    EXPECT_EQ(player.hitPoints, 6 + 10);
    EXPECT_EQ(player.maxHitPoints, 6 + 10);
}

TEST(Creation, ClericRollsOnceMore) {
    newCall();
    caller.visit(chooseClass, "1");
    EXPECT_EQ(chance.drawn, 24 + 3);
    caller.visit(chooseClass, "2");
    EXPECT_EQ(chance.drawn, 24 + 3 + 24);
}

TEST(Creation, GivesTheStartingKit) {
    newCall();
    game.player = {.experience = 7, .gold = 7, .bankGold = 7};
    caller.visit(chooseClass, "3");
    const Player& player = game.player;
    EXPECT_EQ(player.weapon, "Club");
    EXPECT_EQ(player.armour, "Cloth");
    EXPECT_EQ(player.level, 1);
    EXPECT_EQ(player.experience + player.gold + player.bankGold, 0);
    EXPECT_EQ(player.experienceNeeded, 1000);
    EXPECT_EQ(player.turnsLeft, 30);
}
