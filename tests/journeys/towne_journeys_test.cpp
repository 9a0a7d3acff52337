// Whole calls through the title, on one set of files.
#include "characters/character_file.h"
#include "door/door_session.h"
#include "state/roster.h"
#include "support/stored.h"

struct TowneJourney : InTemporaryDirectory {
    // A whole call by that caller, from the start of the program to "Quit Game".
    static void call(std::string_view name, const std::string& keys, std::deque<int> draws = {}) {
        newCall(true, name);
        chance.script(std::move(draws));
        caller.type(keys);
        char* none[] = {nullptr};
        EXPECT_THROW(runDoor(0, none), CallEnded) << name;
        EXPECT_EQ(caller.keys, "") << "keys not asked for";
    }

    // What happens to the first character between two calls.
    static void meanwhile(const std::function<void(PlayerRecord&)>& change) {
        readRoster();
        change(game.roster.slots()[0]);
        writeFile("morchars.dat", rosterBytes());
    }
};

// The second caller robs the first. His possessions then stand in the first slot, under the first
// caller's name, and the money that he took is counted in both.
TEST_F(TowneJourney, SecondCallerRobsTheFirst) {
    call("Alice", "SArwen\ry4kqkkQ");
    meanwhile([](PlayerRecord& arwen) {
        arwen.gold = 500;
        arwen.hitPoints = 1;
    });
    std::deque<int> draws(24, 5); // Boromir's abilities, 18 each; the rest is 0
    call("Bob", "SBoromir\ry2kp1\ryakqkkQ", draws);
    EXPECT_TRUE(caller.saw("{`r`You took `W`}<500>{ `R`gold `r`from `W`}<Arwen>{`r`!}"));
    EXPECT_EQ(storedSlot(0).name.view(), "Arwen");
    EXPECT_EQ(double{storedSlot(0).gold}, 500);
    EXPECT_EQ(storedSlot(0).strength, 18);
    EXPECT_EQ(storedSlot(1).name.view(), "Boromir");
    EXPECT_EQ(double{storedSlot(1).gold}, 500);
}
