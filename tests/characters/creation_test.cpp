#include "characters/creation.h"

#include "support/game_test.h"

TEST(Creation, OnlySlotZeroForbidsANameAndANoKeepsTheFirst) {
    newCall();
    game.roster.slots()[0].name.assign("Arwen");
    game.roster.slots()[1].name.assign("Boromir");
    const std::string question = "{|}{`r`Character Name`R`: `W`}[line 50 0 127 ]";
    EXPECT_EQ(caller.visit(enterName, "Arwen\rxBoromir\rnEowyn\r"),
              question + "{That name is unavailable, choose another one.||}[any key]" + question +
                  "{|`r`You are as `W`Boromir`r` correct? `W`}[answer yn]" + question);
    EXPECT_EQ(game.player.name, "Boromir");
    EXPECT_EQ(game.session.nameChecked, 1);
    newCall();
    caller.visit(enterName, "\rxFirst\ry"); // a free slot 0 forbids the empty name
    EXPECT_EQ(game.player.name, "First");
}

TEST(Creation, AnAbilityIsTheSumOfTheThreeHighestDice) {
    newCall();
    for (int roll = 0; roll < 6 * 6 * 6 * 6; ++roll) {
        const std::vector<int> dice{roll % 6, roll / 6 % 6, roll / 36 % 6, roll / 216};
        chance.script({dice.begin(), dice.end()});
        rollAbility();
        const int sum = dice[0] + dice[1] + dice[2] + dice[3] + 4;
        EXPECT_EQ(game.session.rollResult, sum - *std::min_element(dice.begin(), dice.end()) - 1);
        EXPECT_EQ(chance.drawn, 4);
    }
}

TEST(Creation, EveryClassHasItsNameAndHitPointsAndTheSameKit) {
    const Cases<const char*, const char*, int, int> cases{
        {"1", "Cleric", 12, 27},  {"2", "Fighter", 15, 24}, {"3", "Paladin", 15, 24},
        {"4", "Ranger", 12, 24},  {"5", "Rogue", 12, 24},   {"6", "Warlock", 12, 24},
        {"7", "Warlord", 12, 24}, {"8", "Wizard", 10, 24}};
    for (const auto& [key, name, bonus, draws] : cases) {
        newCall(false);
        // Six abilities of 3, 6, 9, ... in their order: four equal dice each.
        chance.script(
            {0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 1, 2, 3});
        EXPECT_EQ(caller.visit(chooseClass, key), "{||}[menu clasmenu 12345678]");
        const Player& player = game.player;
        EXPECT_EQ(player.className, name);
        EXPECT_EQ(chance.drawn, draws);
        EXPECT_EQ(game.session.rollResult, draws == 27 ? 9 : 18);
        EXPECT_THAT((std::vector{player.strength, player.constitution, player.dexterity,
                                 player.intelligence, player.wisdom, player.charisma}),
                    ElementsAre(3, 6, 9, 12, 15, 18));
        EXPECT_THAT((std::vector{player.hitPoints, player.maxHitPoints, player.weaponNumber,
                                 player.armourNumber, player.level, player.experience,
                                 player.experienceNeeded, player.turnsLeft, player.turnsPerDay}),
                    ElementsAre(6 + bonus, 6 + bonus, 1, 1, 1, 0, 1000, 30, 30));
        EXPECT_EQ(player.weapon + player.armour, "ClubCloth");
        EXPECT_TRUE(chance.seededBefore.empty());
    }
}
