#include "status/status_screen.h"

#include "support/game_test.h"

TEST(StatusScreen, ShowsEveryValueBehindItsLabel) {
    newCall(false);
    game.player = {.name = "Ar`red`wen\n\n",
                   .className = "Ranger",
                   .level = 1,
                   .experience = 2,
                   .gold = 5e9,
                   .bankGold = 0.5,
                   .experienceNeeded = 3,
                   .hitPoints = 4,
                   .maxHitPoints = 5,
                   .strength = 6,
                   .constitution = 7,
                   .dexterity = 8,
                   .intelligence = 9,
                   .wisdom = 10,
                   .charisma = 11,
                   .weapon = std::string(60, 'w'),
                   .armour = "Cloth",
                   .turnsLeft = 12,
                   .turnsPerDay = 13};
    EXPECT_EQ(caller.visit(showStatus, "k"),
              "{||}{`r`Your Status`bright red:}{|}{`W`----------------------------------------|}"
              "{`r`Name         `R`  : `W`}<Ar`red`wen>{|}{`r`Class        `R`  : `W`}<Ranger>{|}"
              "{`r`Level        `R`  : `W`}<1>{|}{`r`Experience   `R`  : `W`}<2>{`r`/`W`}<3>{|}"
              "{`r`Money on Hand `R` : `W`}<5000000000>{|}{`r`Money in Bank `R` : `W`}<0>{|}"
              "{`r`Hit Points   `R`  : `W`}<4>{`r`/`W`}<5>{|}{`r`Strength     `R`  : `W`}<6>{|}"
              "{`r`Constitution `R`  : `W`}<7>{|}{`r`Dexterity    `R`  : `W`}<8>{|}"
              "{`r`Intelligence `R`  : `W`}<9>{|}{`r`Wisdom       `R`  : `W`}<10>{|}"
              "{`r`Charisma     `R`  : `W`}<11>{|}{`r`Weapon       `R`  : `W`}<" +
                  std::string(49, 'w') +
                  ">{|}{`r`Armour       `R`  : `W`}<Cloth>{|}"
                  "{`r`Turns Left   `R`  : `W`}<12>{`r` of `W`}<13>{|}"
                  "{`r`Remaining Time`R` : `W`60 minutes}{||}[any key]");
    EXPECT_EQ(game.player.name, "Ar`red`wen") << "the name itself is trimmed";
}
