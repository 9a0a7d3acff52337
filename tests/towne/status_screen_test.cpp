#include "towne/status_screen.h"

#include "support/game_test.h"

TEST(StatusScreen, TrimsTheNameAndCutsWhatItShows) {
    newCall();
    game.player = {.name = "Ar`red`wen\n\n", .gold = 5e9, .bankGold = 6.4};
    game.player.weapon = std::string(60, 'w');
    caller.visit(showStatus, "k");
    EXPECT_TRUE(caller.saw("`W`}<Ar`red`wen>{|}"));
    EXPECT_TRUE(caller.saw("{`r`Money on Hand `R` : `W`}<5000000000>{|}"));
    EXPECT_TRUE(caller.saw("{`r`Money in Bank `R` : `W`}<6>{|}"));
    EXPECT_TRUE(caller.saw("<" + std::string(49, 'w') + ">{|}"));
    EXPECT_EQ(game.player.name, "Ar`red`wen") << "the name itself is trimmed";
}
