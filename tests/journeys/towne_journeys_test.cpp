// Whole calls through the title, on one set of files.
#include "door/door_session.h"
#include "state/game_state.h"
#include "support/scripted_chance.h"
#include "support/temporary_directory.h"

using namespace morvek;
using namespace morvek::test;

class TowneJourney : public InTemporaryDirectory {
protected:
    // A whole call by that caller, from the start of the program to "Quit Game".
    static void call(std::string_view name, const std::string& keys, std::deque<int> draws = {}) {
        newCall(true, name);
        chance.script(std::move(draws));
        caller.type(keys);
        char program[] = "morvek";
        char* arguments[] = {program, nullptr};
        EXPECT_THROW(runDoor(1, arguments), CallEnded) << name;
        EXPECT_TRUE(caller.keys.empty()) << "keys not asked for: " << caller.keys;
    }

    // The stored characters, as the next call would find them.
    static std::array<PlayerRecord, slotCount> stored() {
        std::array<PlayerRecord, slotCount> slots;
        readFile("morchars.dat").copy(reinterpret_cast<char*>(slots.data()), sizeof slots);
        return slots;
    }

    // What a character earns between two calls.
    template <typename Change>
    static void meanwhile(Change change) {
        auto slots = stored();
        change(slots);
        writeFile("morchars.dat", {reinterpret_cast<const char*>(slots.data()), sizeof slots});
    }

    // Rounds in which weapon and armour roll 3, the player hits for 4 and the opponent misses.
    static void addRounds(std::deque<int>& draws, int rounds) {
        for (int round = 0; round < rounds; ++round) {
            for (const int drawn : {2, 2, 0, 0, 3, 0, 1, 0}) {
                draws.push_back(drawn);
            }
        }
    }
};

// From creation to level 7 through six trainers, one a call; there is no eighth level.
TEST_F(TowneJourney, ThroughTheTrainersToLevelSeven) {
    call("Alice", "SArwen\ry4kqkkQ");
    const std::array<std::int32_t, 7> needs{1000, 2250, 3750, 5500, 7500, 10000, 13000};
    for (int level = 1; level <= 7; ++level) {
        meanwhile([&](auto& slots) {
            EXPECT_EQ(slots[0].level, level);
            EXPECT_EQ(slots[0].experienceNeeded, needs[static_cast<std::size_t>(level) - 1] + 0);
            EXPECT_EQ(slots[0].maxHitPoints, 15 + 3 * (level - 1));
            slots[0].experience = slots[0].experienceNeeded;
        });
        const int rounds = (5 * level + 5 + 3) / 4;
        std::deque<int> draws(level == 1 ? 1 : 2, 0); // the trainer's damage
        addRounds(draws, rounds - 1);
        for (const int drawn : {2, 2, 0, 0, 3}) {
            draws.push_back(drawn);
        }
        std::string fight;
        for (int round = 1; round < rounds; ++round) {
            fight += "ak";
        }
        const std::string gained = level == 6 ? "kk" : "k"; // the last gain, and the note
        call("Alice", "Skttttt" + fight + "a" + gained + "rrrqkkQ", draws);
        EXPECT_EQ(caller.saw("`red`Congratulations!"), level < 7);
        EXPECT_EQ(caller.saw("`red`Future levels will be added later."), level >= 6);
    }
    EXPECT_EQ(stored()[0].level, 7);
    EXPECT_EQ(stored()[0].strength, 3 + 6 * 3);
}

// The second caller attacks and robs the first. His possessions then stand in the first slot,
// under the first caller's name, and the money that he took is counted in both.
TEST_F(TowneJourney, TheSecondCallerRobsTheFirst) {
    call("Alice", "SArwen\ry4kqkkQ");
    meanwhile([](auto& slots) { slots[0].gold = 500; });
    std::deque<int> creation(24, 5);
    std::deque<int> draws = creation;
    draws.insert(draws.end(), {0, 0}); // the opponent's damage, drawn twice
    addRounds(draws, 3);
    for (const int drawn : {2, 2, 0, 0, 3}) {
        draws.push_back(drawn);
    }
    call("Bob", "SBoromir\ry2kp1\ryakakakakqkkQ", draws);
    EXPECT_TRUE(caller.saw("`red`You took `bright white`500 `bright red`gold `red`from "
                           "`bright white`Arwen`red`!"));
    const auto slots = stored();
    EXPECT_EQ(slots[0].name.view(), "Arwen");
    EXPECT_EQ(slots[0].gold + 0, 500) << "what the robber now has";
    EXPECT_EQ(slots[0].hitPoints, 33);
    EXPECT_EQ(slots[0].strength, 18);
    EXPECT_EQ(slots[1].name.view(), "Boromir");
    EXPECT_EQ(slots[1].gold + 0, 500);
}
