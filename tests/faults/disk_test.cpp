// What can go wrong between a save and the disk.
#include "stage.h"

#include <csignal>

#include <sys/ptrace.h>
#include <sys/wait.h>

namespace {

using morvek::PlayerRecord;

constexpr std::size_t rosterSize = 75000;
constexpr const char* news = "011527.txt";

const Play newcomer{{}, "sAl\ry8xtlcrqxxq"};

// Where nothing is loaded these keys create a character, with the 8.
const Play veteran{{{"morchars.dat", rosterOf(true)},
                    {"scores.dat", "Cid#900Wizard\nDora#100Rogue\n"},
                    {"scroll.dat", std::string(480, 'x')},
                    {news, "It's a new day!\n\rBea joined the game.\n\r"}},
                   "hxsxp2\ryax8tolxlcgyxxsxqxxq"};

const Play weakling{{{"morchars.dat", rosterOf(false)}}, "sxtlwHi\rycrfaxq"};

bool growsInPlace(const std::string& name) {
    return name == "scroll.dat" || name == news;
}

// Whether the undisturbed call has this piece of this file at one of its prompts.
bool isKnown(const std::string& name, const std::string& bytes, std::size_t at, std::size_t length,
             const std::vector<Files>& states) {
    return std::any_of(states.begin(), states.end(), [&](const Files& state) {
        const auto file = state.find(name);
        return file != state.end() &&
               (growsInPlace(name) ? file->second.find(bytes) != std::string::npos
                                   : file->second.compare(at, length, bytes) == 0);
    });
}

// Whether each file is as the undisturbed call has it at one of its prompts, one that is written
// where it stands in part and with what was there. A kill may leave temporary files; after a failed
// save the character file may be so record by record only.
testing::AssertionResult areWhole(const Files& files, const std::vector<Files>& states,
                                  bool killed) {
    for (const auto& [name, found] : states.front()) {
        const auto file = files.find(name);
        if (file == files.end() || (growsInPlace(name) && !file->second.starts_with(found))) {
            return testing::AssertionFailure() << name << " has lost what was there";
        }
    }
    for (const auto& [name, bytes] : files) {
        const bool roster = name == "morchars.dat";
        const std::size_t piece = roster && !killed ? sizeof(PlayerRecord) : rosterSize;
        bool known = !roster || bytes.size() == rosterSize;
        for (std::size_t at = 0; at == 0 || at < bytes.size(); at += piece) {
            known = known && isKnown(name, bytes.substr(at, piece), at, piece, states);
        }
        if (!known && !(killed && name.ends_with(".new"))) {
            return testing::AssertionFailure() << name << " is torn";
        }
    }
    return testing::AssertionSuccess();
}

// Kills a child that waits to be traced when it begins that system call; false when it ends before.
bool killAtCall(pid_t child, int number) {
    int status = 0;
    waitpid(child, &status, WUNTRACED);
    ptrace(PTRACE_SETOPTIONS, child, 0, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    while (WIFSTOPPED(status)) {
        __ptrace_syscall_info call{};
        ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof call, &call);
        if (call.op == PTRACE_SYSCALL_INFO_ENTRY && number-- == 0) {
            kill(child, SIGKILL);
            EXPECT_EQ(waitForEnd(child), 1000 + SIGKILL);
            return true;
        }
        ptrace(PTRACE_SYSCALL, child, 0, 0);
        waitpid(child, &status, 0);
    }
    return false;
}

// The files after a call of somebody new, who makes the game write all of them.
Files afterNextCall(Stage& stage, const Files& files) {
    stage.prepare(files);
    stage.user = "Zoe";
    EXPECT_EQ(runWithKeys(stage.program(), "sZoe\ry8xwsyxrtgyxxq").status, 0);
    stage.user = "Ace";
    return stage.data();
}

} // namespace

TEST(Disk, ProgramKilledAtEverySystemCall) {
    Stage stage;
    for (const Play& play : {newcomer, veteran, weakling}) {
        const std::vector<Files> states = stage.states(play);
        std::set<Files> left;
        for (int number = 0;; number += MORVEK_STRIDE) {
            stage.prepare(play.files);
            const auto call = stage.dial(Route::pipe, "trace 0");
            call->type(play.keys);
            if (!killAtCall(call->child, number)) {
                EXPECT_GT(number, 50);
                EXPECT_TRUE(stage.data() == states.back());
                break;
            }
            ASSERT_TRUE(areWhole(stage.data(), states, true)) << "killed at " << number;
            left.insert(stage.data());
        }
        for (Files files : left) {
            const Files next = afterNextCall(stage, files);
            EXPECT_NE(next.at("morchars.dat").find("Zoe"), std::string::npos);
            std::erase_if(files, [](const auto& file) { return file.first.ends_with(".new"); });
            EXPECT_TRUE(next == afterNextCall(stage, files)) << "leftovers are taken over";
        }
    }
}

TEST(Disk, ShortAndInterruptedCallsAreMadeGood) {
    Stage stage;
    for (const Play& play : {newcomer, veteran, weakling}) {
        const Files end = stage.states(play).back();
        for (const char* fault : {"short 0", "interrupt 0"}) {
            stage.prepare(play.files);
            EXPECT_EQ(runWithKeys(stage.program(fault), play.keys).status, 0);
            EXPECT_TRUE(stage.data() == end) << fault;
        }
    }
}

TEST(Disk, AnyFailureAndAFullDiskLeaveWhatWasStored) {
    Stage stage;
    for (const Play& play : {newcomer, veteran}) {
        const std::vector<Files> states = stage.states(play);
        for (const std::string fault : {"error ", "full "}) {
            for (int number = 1; stage.told() != "x"; number += MORVEK_STRIDE) {
                const std::string what = fault + std::to_string(number);
                stage.prepare(play.files);
                const Outcome outcome = runWithKeys(stage.program(what), play.keys);
                EXPECT_TRUE(outcome.status == 0 || outcome.status == 2) << what << outcome.status;
                EXPECT_TRUE(areWhole(stage.data(), states, false)) << what;
            }
        }
    }
}
