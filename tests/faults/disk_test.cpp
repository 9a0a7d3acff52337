// What can go wrong between a save and the disk.
#include "stage.h"

#include <csignal>
#include <set>

namespace {

constexpr std::size_t rosterSize = 50 * recordSize;
constexpr const char* news = "011527.txt";
const std::set<std::string> growing{"scroll.dat", news};

// Where nothing is loaded the veteran's keys create a character, with the 8.
const std::vector<Play> plays{{{}, "sAl\ry8xtlcrqxxq"},
                              {{{"morchars.dat", rosterOf(true)},
                                {"scores.dat", "Cid#900Wizard\nDora#100Rogue\n"},
                                {"scroll.dat", std::string(480, 'x')},
                                {news, "It's a new day!\n\rBea joined the game.\n\r"}},
                               "hxsxp2\ryax8tolxlcgyxxsxqxxq"},
                              {{{"morchars.dat", rosterOf(false)}}, "sxtlwHi\rycrfaxq"}};

// Whether the undisturbed call has this file so at one of its prompts: one that is written where it
// stands in part, after a failed save the character file record by record. A kill may leave
// temporary files.
bool isWhole(const std::string& name, const std::string& found, const std::vector<Files>& states,
             bool killed) {
    const bool roster = name == "morchars.dat";
    const std::size_t piece = roster && !killed ? recordSize : rosterSize;
    bool whole = !roster || found.size() == rosterSize;
    for (std::size_t at = 0; at == 0 || at < found.size(); at += piece) {
        const std::string bytes = found.substr(at, piece);
        whole = whole && std::any_of(states.begin(), states.end(), [&](const Files& state) {
                    const auto file = state.find(name);
                    return file != state.end() &&
                           (growing.count(name) != 0 ? file->second.find(bytes) != std::string::npos
                                                     : file->second.compare(at, piece, bytes) == 0);
                });
    }
    return whole || (killed && name.ends_with(".new"));
}

// The files after a call of somebody new, who makes the game write all of them.
Files afterNextCall(const Stage& stage, const Files& files) {
    stage.prepare(files);
    const Child call = stage.program("", {"-LOCAL"}, "Zoe");
    EXPECT_EQ(runWithKeys(call, "sZoe\ry8xwsyxrtgyxxq").status, 0);
    return stage.data();
}

} // namespace

TEST(Disk, WhateverGoesWrongLeavesWhatWasStored) {
    const Stage stage;
    std::set<Files> left; // by the killed
    for (const Play& play : plays) {
        const std::vector<Files> states = stage.states(play);
        for (const char* madeGood : {"short 0", "interrupt 0"}) {
            stage.prepare(play.files);
            EXPECT_EQ(runWithKeys(stage.program(madeGood), play.keys).status, 0);
            EXPECT_TRUE(stage.data() == states.back()) << madeGood;
        }
        for (const std::string fault : {"kill ", "error ", "full "}) {
            const bool killed = fault == "kill ";
            if (!killed && &play == &plays.back()) {
                continue; // his death saves as the others do
            }
            for (int number = 1;; number += MORVEK_STRIDE) {
                const std::string what = fault + std::to_string(number);
                stage.prepare(play.files);
                const int status = runWithKeys(stage.program(what), play.keys).status;
                Files data = stage.data();
                for (const auto& [name, before] : play.files) {
                    EXPECT_TRUE(data[name].starts_with(growing.count(name) != 0 ? before : ""));
                }
                for (const auto& [name, bytes] : data) {
                    EXPECT_TRUE(isWhole(name, bytes, states, killed)) << what << " " << name;
                }
                if (stage.told() == "x") {
                    EXPECT_TRUE(number > 20 && data == states.back());
                    break;
                }
                if (killed) {
                    EXPECT_EQ(status, 1000 + SIGKILL);
                    left.insert(data);
                } else {
                    EXPECT_TRUE(status == 0 || status == 2) << what << " " << status;
                }
            }
        }
    }
    for (Files files : left) {
        const Files next = afterNextCall(stage, files);
        EXPECT_NE(next.at("morchars.dat").find("Zoe"), std::string::npos);
        std::erase_if(files, [](const auto& file) { return file.first.ends_with(".new"); });
        EXPECT_TRUE(next == afterNextCall(stage, files)) << "leftovers are taken over";
    }
}
