#include "characters/creation.h"

#include "state/roster.h"
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
    for (const auto& dice :
         {std::deque{6, 11, 9, 7}, {7, 6, 11, 9}, {11, 9, 6, 7}, {9, 7, 11, 6}, {8, 6, 6, 10}}) {
        chance.script(dice);
        rollAbility();
        EXPECT_EQ(inARow(game.session.rollResult, chance.drawn), dice[0] == 8 ? "9 4" : "12 4");
    }
}

TEST(Creation, EveryClassHasItsNameAndHitPointsAndTheSameKit) {
    // The draws, the last roll, the name and the hit points.
    char key = '1';
    for (const std::string expected :
         {"27 9 Cleric 18 18", "24 18 Fighter 21 21", "24 18 Paladin 21 21", "24 18 Ranger 18 18",
          "24 18 Rogue 18 18", "24 18 Warlock 18 18", "24 18 Warlord 18 18",
          "24 18 Wizard 16 16"}) {
        newCall(false);
        // Six abilities of 3, 6, 9, ... in their order: four equal dice each.
        chance.script(
            {0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 1, 2, 3});
        EXPECT_EQ(caller.visit(chooseClass, std::string(1, key++)), "{||}[menu clasmenu 12345678]");
        const Player& player = game.player;
        EXPECT_EQ(inARow(chance.drawn, game.session.rollResult, player.className, player.hitPoints,
                         player.maxHitPoints, player.strength, player.constitution,
                         player.dexterity, player.intelligence, player.wisdom, player.charisma,
                         player.weaponNumber, player.weapon, player.armourNumber, player.armour,
                         player.level, player.experience, player.experienceNeeded, player.turnsLeft,
                         player.turnsPerDay, chance.seededBefore.size()),
                  expected + " 3 6 9 12 15 18 1 Club 1 Cloth 1 0 1000 30 30 0");
    }
}
