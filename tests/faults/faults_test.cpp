// The program behind the shim, in a directory whose files a test knows at every key: what can go
// wrong between a save and the disk, and callers who are gone, at every wait for a key on a way
// through all the screens, on every kind of line, in every manner.
#include "state/game_state.h"
#include "state/roster.h"
#include "support/program.h"

#include <csignal>
#include <set>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>

namespace {

// A call that begins with these files and ends by itself with the last key.
struct Play {
    Play(Files begin, std::string words) : files(std::move(begin)), keys(std::move(words)) {
        std::erase(keys, ' '); // blanks only part what is done from what is done next
    }

    Files files;
    std::string keys;
};

// Ace's character, who has been everywhere, or whom the first blow kills; and one to rob.
std::string rosterOf(bool strong) {
    morvek::Roster::Slots slots;
    slots.fill(morvek::emptySlot());
    morvek::PlayerRecord& own = slots[0];
    own.ownerName.assign("Ace");
    own.name.assign("Aldur");
    own.className.assign("Fighter");
    own.level = own.weaponNumber = own.armourNumber = 1;
    own.experience = own.experienceNeeded = 1000;
    own.gold = 100000;
    own.hitPoints = strong ? 5 : 1;
    own.maxHitPoints = 20;
    own.dexterity = strong ? 10 : 1;
    own.worldState.fill(strong ? 1 : 0);
    slots[1].ownerName.assign("Other");
    slots[1].name.assign("Bors");
    slots[1].gold = 70;
    slots[1].hitPoints = 1;
    return {reinterpret_cast<const char*>(slots.data()), sizeof slots};
}

class Stage : public Game {
public:
    Stage() {
        mkfifo(pipeName.c_str(), 0600);
        waits = open(pipeName.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        setenv("TZ", "UTC", 1);
        setenv("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0", 1);
        std::filesystem::create_symlink(MORVEK_SHIM, shim);
        setenv("LD_PRELOAD", shim.c_str(), 1);
        setenv("MORVEK_WAITS", pipeName.c_str(), 1);
    }
    ~Stage() { close(waits); }

    // Leaves these data files and no others.
    void prepare(const Files& files) const {
        for (const auto& [name, bytes] : data()) {
            std::filesystem::remove(folder.path(name));
        }
        for (const auto& [name, bytes] : files) {
            folder.write(name, bytes);
        }
        told();
    }

    // The program behind the shim, to be started at once; with no more arguments its caller is at
    // its streams.
    Child program(const std::string& fault = "", Arguments more = {"-LOCAL"},
                  const std::string& user = "Ace") const {
        more.insert(more.end(), {"-USERNAME", user});
        setenv("MORVEK_FAULT", fault.c_str(), 1);
        return Game::program(more);
    }

    // Waits until the program waits for a key, and takes in what it shows; false when it does not.
    bool waitsForKey(const Call& call, Line line) const {
        std::array<pollfd, 2> ends{
            {{waits, POLLIN, 0}, {line == Line::pipe ? -1 : call.end, POLLIN, 0}}};
        std::array<char, 4096> shown;
        while (::poll(ends.data(), ends.size(), 5000) > 0 && ends[0].revents == 0 &&
               read(call.end, shown.data(), shown.size()) > 0) {
        }
        return told() == ".";
    }

    // What the shim has told since the last time.
    std::string told() const {
        std::array<char, 4096> bytes;
        const ssize_t count = read(waits, bytes.data(), bytes.size());
        return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
    }

    // The files at each wait for a key, and after the end.
    std::vector<Files> states(const Play& play) const {
        std::vector<Files> all;
        prepare(play.files);
        const Call call(program(), Line::pipe);
        for (const char key : play.keys) {
            EXPECT_TRUE(waitsForKey(call, Line::pipe)) << all.size();
            all.push_back(data());
            call.type({key});
        }
        EXPECT_EQ(call.status(), 0);
        all.push_back(data());
        return all;
    }

private:
    Folder apart;
    std::string pipeName = apart.path("waits");
    std::string shim = apart.path("shim.so"); // the loader takes a blank for the end of a path
    int waits = -1;
};

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

const std::vector<Play> longPlays{
    // A new character, with nothing anywhere; the board; a fight, an ambush, a flight.
    {{},
     "hxsAl\bdur\rnBo\r8x lxoxymp7\rx wb1xlxsnxsyxsxyxr ab1xlxr hhxaxgxr bd5\rxw\rxr "
     "tolxtqnqyxtxrlwHi\rywno\rncgnyxr faxsxaxhr4yxf qxxq"},
    // A veteran robs, heals, rises, drinks, trades, finds the last room, and sleeps at the inn.
    {{{"morchars.dat", rosterOf(true)}, {"scores.dat", "Cid#900Wizard\nDora#100Rogue\n"}},
     "sxp2\ryaxp2\rn hh3\rxg5xaxr tttttaxaxaxaxaxaxaxaxaxaxrrro1y1nxlxr wb3yx2nxlxsyxr "
     "fsx696966e868868787 2d262422661422xhryxf tgyxx sxqxxq"},
    // Death.
    {{{"morchars.dat", rosterOf(false)}}, "sxfaxq"},
};

const std::vector<std::pair<Line, Arguments>> lines{
    {Line::pipe, {"-LOCAL"}},
    {Line::terminal, {"-LOCAL", "-GRAPHICS"}},
    {Line::socket, {"-HANDLE", std::to_string(handedSocket), "-GRAPHICS"}}};
constexpr std::array manners{0, SIGHUP, SIGTERM}; // 0, no signal: the line is cut

} // namespace

TEST(Disk, WhateverGoesWrongLeavesWhatWasStored) {
    const Stage stage;
    std::set<Files> left;
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
                EXPECT_TRUE(killed ? status == 1000 + SIGKILL : status == 0 || status == 2) << what;
                left.insert(data);
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

// Each prompt on every line, in another manner on each: three prompts see all nine.
TEST(HangUp, AtEveryPrompt) {
    const Stage stage;
    for (const Play& play : longPlays) {
        const std::vector<Files> states = stage.states(play);
        for (std::size_t typed = 0; typed < play.keys.size(); typed += MORVEK_STRIDE) {
            std::size_t turn = typed;
            for (const auto& [line, arguments] : lines) {
                const int manner = manners.at(turn++ % manners.size());
                SCOPED_TRACE(play.keys.substr(0, typed) + ", " + arguments.front() + ", signal " +
                             std::to_string(manner));
                stage.prepare(play.files);
                const bool controlling = typed / MORVEK_STRIDE % 2 == 0;
                Call call(stage.program("", arguments), line, controlling);
                ASSERT_TRUE(stage.waitsForKey(call, line));
                if (typed > 0) {
                    call.type(play.keys.substr(0, typed));
                    ASSERT_TRUE(stage.waitsForKey(call, line));
                }
                kill(call.child, manner);
                if (manner == 0) {
                    call.hangUp();
                }
                ASSERT_EQ(call.status(), 2);
                ASSERT_TRUE(stage.data() == states[typed]);
                ASSERT_TRUE(line != Line::terminal || manner == 0 || call.isRestored());
            }
        }
    }
}
