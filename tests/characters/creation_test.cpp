#include "characters/creation.h"

#include "state/game_state.h"
#include "support/scripted_caller.h"
#include "support/scripted_chance.h"

#include <gmock/gmock.h>

using namespace morvek;
using namespace morvek::test;

TEST(Creation, OnlySlotZeroForbidsAName) {
    newCall();
    game.roster.slots[0].name.assign("Arwen");
    game.roster.slots[1].name.assign("Boromir");
    caller.type("Arwen\rxArwen\rxBoromir\ry");
    enterName();
    EXPECT_EQ(game.player.name, "Boromir");
    EXPECT_EQ(caller.screen(), "say |\n"
                               "say `red`Character Name`bright red`: `bright white`\n"
                               "line 50 0 127 \n"
                               "say That name is unavailable, choose another one.||\n"
                               "say `red`Press any key!\n"
                               "key\n"
                               "say |\n"
                               "say `red`Character Name`bright red`: `bright white`\n"
                               "line 50 0 127 \n"
                               "say That name is unavailable, choose another one.||\n"
                               "say `red`Press any key!\n"
                               "key\n"
                               "say |\n"
                               "say `red`Character Name`bright red`: `bright white`\n"
                               "line 50 0 127 \n"
                               "say |`red`You are as `bright white`Boromir`red` correct? "
                               "`bright white`\n"
                               "answer yn\n");
}

TEST(Creation, ANoAsksForAnotherNameAndKeepsTheFirst) {
    newCall();
    caller.type("\rxFirst\rnSecond\r"); // a free slot 0 forbids the empty name
    enterName();
    EXPECT_EQ(game.player.name, "First");
    EXPECT_TRUE(caller.keys.empty());
    EXPECT_EQ(game.session.nameChecked, 1);
}

TEST(Creation, AnAbilityIsTheSumOfTheThreeHighestDice) {
    newCall();
    int outcomes = 0;
    for (int roll = 0; roll < 6 * 6 * 6 * 6; ++roll) {
        const std::vector<int> dice{roll % 6, roll / 6 % 6, roll / 36 % 6, roll / 216};
        chance.script({dice.begin(), dice.end()});
        rollAbility();
        const int sum = dice[0] + dice[1] + dice[2] + dice[3] + 4;
        EXPECT_EQ(game.session.rollResult, sum - *std::min_element(dice.begin(), dice.end()) - 1);
        outcomes += chance.drawn;
    }
    EXPECT_EQ(outcomes, 4 * 6 * 6 * 6 * 6);
}

TEST(Creation, EveryClassHasItsNameAndHitPointsAndTheSameKit) {
    struct Case {
        const char* key;
        const char* name;
        int bonus;
        int draws;
    };
    for (const Case& one :
         {Case{"1", "Cleric", 12, 27}, Case{"2", "Fighter", 15, 24}, Case{"3", "Paladin", 15, 24},
          Case{"4", "Ranger", 12, 24}, Case{"5", "Rogue", 12, 24}, Case{"6", "Warlock", 12, 24},
          Case{"7", "Warlord", 12, 24}, Case{"8", "Wizard", 10, 24}}) {
        newCall(false);
        // Six abilities of 3, 6, 9, ... in their order: four equal dice each.
        chance.script(
            {0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 1, 2, 3});
        caller.type(one.key);
        chooseClass();
        const Player& player = game.player;
        EXPECT_EQ(player.className, one.name);
        EXPECT_EQ(chance.drawn, one.draws);
        EXPECT_EQ(player.strength, 3);
        EXPECT_EQ(player.constitution, 6);
        EXPECT_EQ(player.dexterity, 9);
        EXPECT_EQ(player.intelligence, 12);
        EXPECT_EQ(player.wisdom, 15);
        EXPECT_EQ(player.charisma, 18);
        EXPECT_EQ(game.session.rollResult, one.draws == 27 ? 9 : 18);
        EXPECT_EQ(player.hitPoints, 6 + one.bonus);
        EXPECT_EQ(player.maxHitPoints, 6 + one.bonus);
        EXPECT_EQ(player.weapon, "Club");
        EXPECT_EQ(player.armour, "Cloth");
        EXPECT_EQ(player.weaponNumber * 10 + player.armourNumber, 11);
        EXPECT_EQ(player.level, 1);
        EXPECT_EQ(player.experienceNeeded, 1000);
        EXPECT_EQ(player.turnsLeft, 30);
        EXPECT_EQ(player.turnsPerDay, 30);
        EXPECT_TRUE(chance.seededBefore.empty());
        EXPECT_EQ(caller.screen(), "say ||\nmenu clasmenu 12345678\n");
    }
}
