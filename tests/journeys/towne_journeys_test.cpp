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

    // Rounds in which weapon and armour roll 3, the player hits for 4 and the opponent misses, and
    // one that the opponent does not outlive.
    static void addFight(std::deque<int>& draws, int rounds) {
        for (int round = 1; round < rounds; ++round) {
            draws.insert(draws.end(), {2, 2, 0, 0, 3, 0, 1, 0});
        }
        draws.insert(draws.end(), {2, 2, 0, 0, 3});
    }
};

// From creation to level 7 through six trainers, one a call; there is no eighth level.
TEST_F(TowneJourney, ThroughTheTrainersToLevelSeven) {
    call("Alice", "SArwen\ry4kqkkQ");
    int level = 0;
    for (const int need : {1000, 2250, 3750, 5500, 7500, 10000, 13000}) {
        ++level;
        meanwhile([&](PlayerRecord& arwen) {
            EXPECT_EQ(inARow(arwen.level, arwen.experienceNeeded, arwen.maxHitPoints),
                      inARow(level, need, 12 + 3 * level));
            arwen.experience = arwen.experienceNeeded;
        });
        const int rounds = (5 * level + 5 + 3) / 4;
        std::deque<int> draws(level == 1 ? 1 : 2, 0); // the trainer's damage
        addFight(draws, rounds);
        const std::string gained = level == 6 ? "kk" : "k"; // the last gain, and the note
        call("Alice", "Skttttt" + times(rounds - 1, "ak") + "a" + gained + "rrrqkkQ", draws);
        EXPECT_EQ(caller.saw("`r`Congratulations!"), level < 7);
        EXPECT_EQ(caller.saw("`r`Future levels will be added later."), level >= 6);
    }
    EXPECT_EQ(inARow(storedSlot(0).level, storedSlot(0).strength), "7 21");
}

// The second caller attacks and robs the first. His possessions then stand in the first slot,
// under the first caller's name, and the money that he took is counted in both.
TEST_F(TowneJourney, TheSecondCallerRobsTheFirst) {
    call("Alice", "SArwen\ry4kqkkQ");
    meanwhile([](PlayerRecord& arwen) { arwen.gold = 500; });
    std::deque<int> draws(24, 5);      // of his creation
    draws.insert(draws.end(), {0, 0}); // the opponent's damage, drawn twice
    addFight(draws, 4);
    call("Bob", "SBoromir\ry2kp1\ryakakakakqkkQ", draws);
    EXPECT_TRUE(caller.saw("{`r`You took `W`}<500>{ `R`gold `r`from `W`}<Arwen>{`r`!}"));
    const PlayerRecord first = storedSlot(0);
    EXPECT_EQ(inARow(first.name.view(), first.gold, first.hitPoints, first.strength),
              "Arwen 500 33 18");
    EXPECT_EQ(inARow(storedSlot(1).name.view(), storedSlot(1).gold), "Boromir 500");
}
