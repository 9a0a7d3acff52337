#include "towne/status_screen.h"

#include "state/game_state.h"
#include "support/scripted_caller.h"

#include <gmock/gmock.h>

using namespace morvek;
using namespace morvek::test;

TEST(StatusScreen, ShowsEveryValueBehindItsLabel) {
    newCall(false);
    Player& player = game.player;
    player.name = "Ar`red`wen\n\n";
    player.className = "Ranger";
    player.level = 2;
    player.experience = 3;
    player.experienceNeeded = 4;
    player.gold = 5e9;
    player.bankGold = 6.4;
    player.hitPoints = 7;
    player.maxHitPoints = 8;
    player.strength = 9;
    player.constitution = 10;
    player.dexterity = 11;
    player.intelligence = 12;
    player.wisdom = 13;
    player.charisma = 14;
    player.weapon = std::string(60, 'w');
    player.armour = "Cloth";
    player.turnsLeft = 15;
    player.turnsPerDay = 16;
    caller.type("k");
    showStatus();
    EXPECT_EQ(caller.seen,
              "\n\r\n\r`red`Your Status`bright red:\n\r"
              "`bright white`----------------------------------------\n\r"
              "`red`Name         `bright red`  : `bright white`Ar`red`wen\n\r"
              "`red`Class        `bright red`  : `bright white`Ranger\n\r"
              "`red`Level        `bright red`  : `bright white`2\n\r"
              "`red`Experience   `bright red`  : `bright white`3`red`/`bright white`4\n\r"
              "`red`Money on Hand `bright red` : `bright white`5000000000\n\r"
              "`red`Money in Bank `bright red` : `bright white`6\n\r"
              "`red`Hit Points   `bright red`  : `bright white`7`red`/`bright white`8\n\r"
              "`red`Strength     `bright red`  : `bright white`9\n\r"
              "`red`Constitution `bright red`  : `bright white`10\n\r"
              "`red`Dexterity    `bright red`  : `bright white`11\n\r"
              "`red`Intelligence `bright red`  : `bright white`12\n\r"
              "`red`Wisdom       `bright red`  : `bright white`13\n\r"
              "`red`Charisma     `bright red`  : `bright white`14\n\r"
              "`red`Weapon       `bright red`  : `bright white`" +
                  std::string(49, 'w') +
                  "\n\r"
                  "`red`Armour       `bright red`  : `bright white`Cloth\n\r"
                  "`red`Turns Left   `bright red`  : `bright white`15`red` of `bright white`16\n\r"
                  "`red`Remaining Time`bright red` : `bright white`60 minutes\n\r\n\r"
                  "`red`Press any key!");
    EXPECT_EQ(player.name, "Ar`red`wen") << "the name itself is trimmed";
    EXPECT_TRUE(caller.screen().find("show Ar`red`wen\n") != std::string::npos);
}
