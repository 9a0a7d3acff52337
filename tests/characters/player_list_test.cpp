#include "characters/player_list.h"

#include "state/game_state.h"
#include "support/temporary_directory.h"

using namespace morvek;
using namespace morvek::test;

class PlayerList : public InTemporaryDirectory {};

TEST_F(PlayerList, ListsWhatTheFileHoldsUnderSlotPlusOne) {
    auto& slots = game.roster.slots;
    slots[0].ownerName.assign("Bob");
    slots[0].name.assign("`red`Bo");
    slots[3].name.assign("Ownerless"); // a free slot
    slots[48].ownerName.assign("Eve");
    slots[48].name.assign("Eowyn");
    slots[49].ownerName.assign("Last");
    slots[49].name.assign("Unseen");
    writeFile("morchars.dat", {reinterpret_cast<const char*>(slots.data()), sizeof slots});
    newCall(false);
    loadRoster();
    EXPECT_TRUE(caller.calls.empty()) << "its clear is followed by another";
    showPlayerList();
    EXPECT_EQ(caller.screen(), "say ||\n"
                               "say `red`Player List|\n"
                               "say `bright white`-----------|\n"
                               "say |\n"
                               "say `bright red`\nshow `red`Bo\nsay  `red`#`bright white`\n"
                               "show 1\nsay |\n"
                               "say `bright red`\nshow Eowyn\nsay  `red`#`bright white`\n"
                               "show 49\nsay |\n");
    EXPECT_EQ(game.roster.playerCount, 50);
    EXPECT_EQ(game.roster.list[0].version.view(), "0.6.9a");

    std::filesystem::remove("morchars.dat"); // nothing is loaded, and the old list stays
    caller.type("");
    loadRoster();
    showPlayerList();
    EXPECT_TRUE(caller.saw("Eowyn"));
}

TEST_F(PlayerList, TheOnlineListReadsMemoryOnly) {
    game.roster.slots[2].onlineFlag = 1;
    game.roster.slots[2].name.assign("Arwen");
    game.roster.slots[4].onlineFlag = 2;
    game.roster.slots[49].onlineFlag = 1;
    caller.type("x");
    showUsersOnline();
    EXPECT_EQ(caller.screen(), "clear\n"
                               "say `red`Users currently on-line`bright red`:|\n"
                               "say `bright white`------------------------||\n"
                               "say `bright red`\nshow Arwen\nsay  `red`#`bright white`\nshow 3\n"
                               "say |\nsay |\nsay `red`Press any key!\nkey\n");
}
