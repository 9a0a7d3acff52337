// The real program behind the shim: every file call of a play fails or kills it once, and its
// caller is gone at every wait for a key. The test knows the files at each
// wait of an undisturbed call, and compares.
#include "support/character.h"
#include "support/program.h"

#include <chrono>
#include <csignal>
#include <set>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

using namespace morvek;

namespace {

// A call that begins with these files and ends by itself with the last key.
struct Play {
    Files files;
    std::string keys;
};

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
        reports();
    }

    // The program behind the shim, to be started at once.
    Child program(const std::string& fault = "", const std::string& user = "Ace") const {
        setenv("MORVEK_FAULT", fault.c_str(), 1);
        return Game::program(
            {"-LOCAL", "-GRAPHICS", "-CHARSET=cp437", "-PAUSE=0", "-USERNAME", user});
    }

    // Waits until the program waits for a key, and takes in what it shows; false when it does not.
    bool waitsForKey(const Call& call) const {
        std::array<pollfd, 2> ends{{{waits, POLLIN, 0}, {call.end, POLLIN, 0}}};
        std::array<char, 4096> shown;
        while (::poll(ends.data(), ends.size(), 5000) > 0 && ends[0].revents == 0 &&
               read(call.end, shown.data(), shown.size()) > 0) {
        }
        return reports() == ".";
    }

    // What the shim has reported since the last time.
    std::string reports() const {
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
            EXPECT_TRUE(waitsForKey(call)) << all.size();
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

// Ace's character, who has been everywhere, or whom the first blow kills; and one to rob.
std::string rosterOf(bool strong) {
    Roster::Slots slots;
    slots.fill(emptySlot());
    PlayerRecord& own = slots[0] = character("Ace", "Aldur");
    own.experience = 1000;
    own.gold = 100000;
    own.hitPoints = strong ? 5 : 1;
    own.dexterity = strong ? 10 : 1;
    own.worldState.fill(strong ? 1 : 0);
    slots[1] = character("Other", "Bors");
    slots[1].hitPoints = 1;
    return {reinterpret_cast<const char*>(slots.data()), sizeof slots};
}

constexpr const char* news = "011527.txt";

// These are written where they stand, not replaced.
bool isGrowing(const std::string& name) { return name == "scroll.dat" || name == news; }

const std::vector<Play> plays{
    // A new character.
    {{}, "sAl\ry8xtlcrqxxq"},
    // A veteran, who robs, drinks, reads the board and sleeps at the inn. Where nothing could be
    // loaded the keys create a character, with the 8.
    {{{"morchars.dat", rosterOf(true)},
      {"scores.dat", "Cid#900Wizard\nDora#100Rogue\n"},
      {"scroll.dat", std::string(480, 'x')},
      {news, "It's a new day!\n\rBea joined the game.\n\r"}},
     "hxsxp2\ryax8tolxlcgyxxsxqxxq"},
    // A message, and death.
    {{{"morchars.dat", rosterOf(false)}}, "sxtlwHi\rycrfaxq"},
};

// Ways through all the screens, too long to be played with each fault.
const std::vector<Play> tours{
    // A new character; the board; a fight, an ambush, a flight.
    {{},
     "hxsAl\bdur\rnBo\r8xlxoxymp7\rxwb1xlxsnxsyxsxyxrab1xlxrhhxaxgxr"
     "bd5\rxw\rxrtolxtqnqyxtxrlwHi\rywno\rncgnyxrfaxsxaxhr4yxfqxxq"},
    // A veteran robs, heals, rises, drinks, trades, finds the last room, and sleeps at the inn.
    {{{"morchars.dat", rosterOf(true)}},
     "sxp2\ryaxp2\rnhh3\rxg5xaxrtttttaxaxaxaxaxaxaxaxaxaxrrro1y1nxlxr"
     "wb3yx2nxlxsyxrfsx696966e8688687872d262422661422xhryxftgyxxsxqxxq"},
};

// Whether the undisturbed call has this file so at one of its prompts; of one that is written where
// it stands, a part. After a failed save the character file is compared record by record.
bool isWhole(const std::string& name, const std::string& found, const std::vector<Files>& states,
             bool killed) {
    const bool roster = name == "morchars.dat";
    const std::size_t piece = roster && !killed ? recordSize : 50 * recordSize;
    bool whole = !roster || found.size() == 50 * recordSize;
    for (std::size_t at = 0; at == 0 || at < found.size(); at += piece) {
        const std::string bytes = found.substr(at, piece);
        whole = whole && std::any_of(states.begin(), states.end(), [&](const Files& state) {
                    const auto file = state.find(name);
                    return file != state.end() &&
                           (isGrowing(name) ? file->second.find(bytes) != std::string::npos
                                            : file->second.compare(at, piece, bytes) == 0);
                });
    }
    return whole || (killed && name.ends_with(".new"));
}

// The files after a call of somebody new, who makes the game write all of them.
Files afterNextCall(const Stage& stage, const Files& files) {
    stage.prepare(files);
    const Child call = stage.program("", "Zoe");
    EXPECT_EQ(runWithKeys(call, "sZoe\ry8xwsyxrtlwZoe\rycgyxxq").status, 0);
    return stage.data();
}

} // namespace

TEST(Disk, ShortAndInterruptedCallsAreContinued) {
    const Stage stage;
    for (const Play& play : plays) {
        const Files undisturbed = stage.states(play).back();
        for (const char* fault : {"short 0", "interrupt 0"}) {
            stage.prepare(play.files);
            EXPECT_EQ(runWithKeys(stage.program(fault), play.keys).status, 0);
            EXPECT_TRUE(stage.data() == undisturbed) << fault;
        }
    }
}

// At each file call of each play in turn.
TEST(Disk, FaultLeavesWhatWasStored) {
    const Stage stage;
    std::set<Files> left;
    for (const Play& play : plays) {
        const std::vector<Files> states = stage.states(play);
        for (const std::string fault : {"kill ", "error ", "full "}) {
            const bool killed = fault == "kill ";
            if (!killed && &play == &plays.back()) {
                continue; // a board without its message is no state of the undisturbed call
            }
            for (int number = 1;; number += MORVEK_STRIDE) {
                SCOPED_TRACE(fault + std::to_string(number));
                stage.prepare(play.files);
                const Child faulty = stage.program(fault + std::to_string(number));
                const int status = runWithKeys(faulty, play.keys).status;
                Files data = stage.data();
                for (const auto& [name, before] : play.files) {
                    EXPECT_TRUE(data[name].starts_with(isGrowing(name) ? before : "")) << name;
                }
                for (const auto& [name, bytes] : data) {
                    EXPECT_TRUE(isWhole(name, bytes, states, killed)) << name;
                }
                if (stage.reports() == "x") { // the play has no such call
                    EXPECT_TRUE(number > 20 && data == states.back());
                    break;
                }
                EXPECT_TRUE(killed ? status == 1000 + SIGKILL : status == 0 || status == 2);
                left.insert(data);
            }
        }
    }
    for (Files files : left) {
        const Files next = afterNextCall(stage, files);
        EXPECT_NE(next.at("morchars.dat").find("Zoe"), std::string::npos);
        std::erase_if(files, [](const auto& file) { return file.first.ends_with(".new"); });
        EXPECT_TRUE(next == afterNextCall(stage, files)) << "temporary files are taken over";
    }
}

TEST(Disk, SizeLimitIsLikeAFullDisk) {
    const Stage stage;
    stage.prepare({});
    const Child limited = [program = stage.program()] {
        const rlimit limit{40'000, 40'000};
        setrlimit(RLIMIT_FSIZE, &limit);
        program();
    };
    EXPECT_EQ(runWithKeys(limited, plays[0].keys).status, 0);
    EXPECT_EQ(stage.data().count("morchars.dat"), 0);
}

// Ace stops in the middle of his first save.
TEST(Transaction, OfAStoppedProgramHoldsUpOthersForTwoSeconds) {
    const std::string keys = "xqxxq";
    const Stage stage;
    stage.prepare({});
    const Call ace(stage.program("pause 0"), Line::pipe);
    ace.type("sAl\ry8");
    int status = 0;
    ASSERT_EQ(waitpid(ace.child, &status, WUNTRACED), ace.child);
    const auto began = std::chrono::steady_clock::now();
    EXPECT_EQ(runWithKeys(stage.program("", "Bea"), "sBea\ry8" + keys).status, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(2500));
    EXPECT_EQ(stage.data().count("morchars.dat"), 0) << "she could not save";
    kill(ace.child, SIGCONT);
    ace.type(keys);
    EXPECT_EQ(ace.status(), 0);
    EXPECT_EQ(runWithKeys(stage.program("", "Bea"), "sBea\ry8" + keys).status, 0);
    EXPECT_NE(stage.data().at("morchars.dat").find("Ace"), std::string::npos);
    EXPECT_NE(stage.data().at("morchars.dat").find("Bea"), std::string::npos);
}

// Each prompt in one of three ways, 0 being a line that is cut; the ways come in turn.
TEST(HangUp, AtEveryPrompt) {
    constexpr std::array signals{0, SIGHUP, SIGTERM};
    const Stage stage;
    for (const Play& play : tours) {
        const std::vector<Files> states = stage.states(play);
        for (std::size_t typed = 0; typed < play.keys.size(); typed += MORVEK_STRIDE) {
            const int signal = signals.at(typed % signals.size());
            SCOPED_TRACE(play.keys.substr(0, typed) + ", signal " + std::to_string(signal));
            stage.prepare(play.files);
            Call call(stage.program(), Line::terminal, typed % 2 == 0);
            ASSERT_TRUE(stage.waitsForKey(call));
            if (typed > 0) {
                call.type(play.keys.substr(0, typed));
                ASSERT_TRUE(stage.waitsForKey(call));
            }
            kill(call.child, signal);
            if (signal == 0) {
                call.hangUp();
            }
            ASSERT_EQ(call.status(), 2);
            ASSERT_TRUE(stage.data() == states[typed]);
            ASSERT_TRUE(signal == 0 || call.isRestored());
        }
    }
}
