#include "characters/player_list.h"

#include "state/roster.h"
#include "support/stored.h"

using PlayerList = InTemporaryDirectory;

TEST_F(PlayerList, NumbersTheFilesOwnedSlotsFromOne) {
    own(0, "Bob", "`red`Bo");
    own(3, "", "Ownerless");
    own(48, "Eve", "Eowyn");
    own(49, "Last", "Unseen");
    writeFile("morchars.dat", rosterBytes());
    newCall(false);
    EXPECT_EQ(caller.visit(loadRoster), "") << "its clear is followed by another";
    EXPECT_EQ(caller.visit(showPlayerList), "{||}{`r`Player List|}{`W`-----------|}{|}"
                                            "{`R`}<`red`Bo>{ `r`#`W`}<1>{|}"
                                            "{`R`}<Eowyn>{ `r`#`W`}<49>{|}");
    EXPECT_EQ(game.roster.playerCount, 50);
}

TEST_F(PlayerList, OnlineListReadsMemory) {
    game.roster.slots()[2].onlineFlag = 1;
    game.roster.slots()[2].name.assign("Arwen");
    game.roster.slots()[4].onlineFlag = 2;
    game.roster.slots()[49].onlineFlag = 1;
    EXPECT_EQ(caller.visit(showUsersOnline, "x"),
              "[clear]{`r`Users currently on-line`R`:|}{`W`------------------------||}"
              "{`R`}<Arwen>{ `r`#`W`}<3>{|}{|}[any key]");
}
