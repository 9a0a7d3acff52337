#include "status/status_screen.h"

#include "support/game_test.h"
#include "support/stored.h"

TEST(StatusScreen, ShowsEveryValueBehindItsLabel) {
    newCall(false);
    beginDistinctGame();
    game.player.name = "Ar`red`wen\n\n";
    game.player.bankGold = 0.5;
    game.player.weapon = std::string(60, 'w');
    EXPECT_EQ(caller.visit(showStatus, "k"),
              "{||}{`r`Your Status`bright red:}{|}{`W`----------------------------------------|}"
              "{`r`Name         `R`  : `W`}<Ar`red`wen>{|}{`r`Class        `R`  : `W`}<Ranger>{|}"
              "{`r`Level        `R`  : `W`}<100>{|}"
              "{`r`Experience   `R`  : `W`}<101>{`r`/`W`}<102>{|}"
              "{`r`Money on Hand `R` : `W`}<5000000000>{|}{`r`Money in Bank `R` : `W`}<0>{|}"
              "{`r`Hit Points   `R`  : `W`}<103>{`r`/`W`}<104>{|}"
              "{`r`Strength     `R`  : `W`}<105>{|}{`r`Constitution `R`  : `W`}<106>{|}"
              "{`r`Dexterity    `R`  : `W`}<107>{|}{`r`Intelligence `R`  : `W`}<108>{|}"
              "{`r`Wisdom       `R`  : `W`}<109>{|}{`r`Charisma     `R`  : `W`}<110>{|}"
              "{`r`Weapon       `R`  : `W`}<" +
                  std::string(49, 'w') +
                  ">{|}{`r`Armour       `R`  : `W`}<Cloth>{|}"
                  "{`r`Turns Left   `R`  : `W`}<113>{`r` of `W`}<114>{|}"
                  "{`r`Remaining Time`R` : `W`60 minutes}{||}[any key]");
    EXPECT_EQ(game.player.name, "Ar`red`wen") << "the name itself is trimmed";
}
