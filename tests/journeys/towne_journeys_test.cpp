// Whole calls through the title, on one set of files.
#include "door/door_session.h"
#include "files/data_file.h"
#include "support/stored.h"

using TowneJourney = InTemporaryDirectory;

namespace {

// A whole call by that caller, from the start of the program to "Quit Game".
void call(std::string_view name, const std::string& keys, std::deque<int> draws = {}) {
    newCall(true, name);
    chance.script(std::move(draws));
    caller.type(keys);
    char program[] = "morvek";
    char* arguments[] = {program, nullptr};
    EXPECT_THROW(runDoor(1, arguments), CallEnded) << name;
    EXPECT_EQ(caller.keys, "") << "keys not asked for";
}

} // namespace

// The second caller attacks and robs the first. His possessions then stand in the first slot,
// under the first caller's name, and the money that he took is counted in both.
TEST_F(TowneJourney, TheSecondCallerRobsTheFirst) {
    call("Alice", "SArwen\ry4kqkkQ");
    game.roster.slots()[0].gold = 500;
    writeFile("morchars.dat", rosterBytes());
    std::deque<int> draws(24, 5);                   // Boromir's abilities
    draws.insert(draws.end(), {0, 0});              // the opponent's damage, drawn twice
    for (int round = 1; round <= 4; ++round) {      // weapon and armour roll 3, he hits for 4,
        draws.insert(draws.end(), {2, 2, 0, 0, 3}); // and but for the last blow
        draws.insert(draws.end(), {0, 1, 0});       // the opponent misses
    }
    call("Bob", "SBoromir\ry2kp1\ryakakakakqkkQ", draws);
    EXPECT_TRUE(caller.saw("{`r`You took `W`}<500>{ `R`gold `r`from `W`}<Arwen>{`r`!}"));
    EXPECT_EQ(storedSlot(0).name.view(), "Arwen");
    EXPECT_EQ(storedSlot(0).gold + 0, 500) << "what the robber now has";
    EXPECT_EQ(storedSlot(0).hitPoints, 33);
    EXPECT_EQ(storedSlot(0).strength, 18);
    EXPECT_EQ(storedSlot(1).name.view(), "Boromir");
    EXPECT_EQ(storedSlot(1).gold + 0, 500);
}
