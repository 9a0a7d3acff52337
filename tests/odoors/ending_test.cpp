// How calls end: what the caller sees, the status, and the line in the operator's log.
#include "board.h"
#include "call.h"

#include <chrono>
#include <csignal>

#include <sys/wait.h>

namespace {

const Door spin = [] {
    od_printf("ready");
    od_get_key(0);
    for (volatile bool stuck = true; stuck;) {
    }
};
const Door flood = [] {
    od_printf("ready%*s", 1000000, "x");
    od_get_key(0);
};

struct EndingTest : testing::Test {
    Folder folder;
    std::string log = folder.path("calls");
    std::string dropFile = folder.write(door32.name, door32.with());

    // A call that a board has started, with these options besides.
    Child byBoard(const Arguments& options, const Door& door = tellKeys) const {
        Arguments all{"-LOG", log, "-ASCII", "-D", dropFile};
        all.insert(all.end(), options.begin(), options.end());
        return doorChild(all, door);
    }

    // How the last call ended, as the log has it, which begins anew.
    std::string logged() const {
        const std::string text = readFile(log);
        std::filesystem::remove(log);
        const std::size_t tab = text.rfind('\t') + 1;
        return text.substr(tab, text.size() - 1 - tab);
    }

    // Expects that a call shows the line, waits for a key and ends so.
    void expect(const Arguments& options, const std::string& line, int status,
                const std::string& words, const Door& door = tellKeys) const {
        const Call call(byBoard(options, door));
        EXPECT_THAT(call.until(line), testing::HasSubstr(line));
        usleep(200'000);
        EXPECT_EQ(waitpid(call.child, nullptr, WNOHANG), 0) << words;
        call.type("x");
        EXPECT_EQ(call.status(), status);
        EXPECT_EQ(logged(), words);
        EXPECT_TRUE(call.isRestored());
    }
};

} // namespace

TEST_F(EndingTest, WaitsForAKeyOfABoardsCaller) {
    const std::string lock = folder.path("lock");
    const std::string none = folder.path("none/lock");
    const std::string reason = "could not start (1): " + none + ": cannot be ";
    const std::string noFile = ": No such file or directory";
    const Call inside(byBoard({"-ONECALLER", lock}));
    inside.until("ready");
    expect({"-TIMELEFT=0"}, "Your time is used up.", 3, "time used up (3)");
    expect({"-INACTIVITY=1"}, "No key was pressed for too long.", 4, "no key pressed (4)");
    expect({"-ONECALLER", lock}, "Another caller is inside.", 5, "another caller inside (5)");
    expect({"-ONECALLER", none}, "cannot be started.", 1, reason + "locked" + noFile);
    const Door refuse = [] {
        od_printf("Full house.\n\r");
        od_exit(7, 0);
    };
    expect({}, "Full house.", 7, "ended by the program (7)", refuse);
    expect({"-D", none}, "", 1, reason + "read" + noFile);
    expect({"-BOGUS\xff\n"}, "", 1, "could not start (1): unknown option -BOGUS\u00a0");
}

TEST_F(EndingTest, WaitsThreeSecondsWhateverWasTypedAhead) {
    const Call call([late = byBoard({"-TIMELEFT=0"})] {
        usleep(300'000); // by then the keys are there
        late();
    });
    call.type("abc");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(call.until("nothing more"), "ready\n\rYour time is used up.\n\r");
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GT(waited, std::chrono::milliseconds(2900));
    EXPECT_LT(waited, std::chrono::milliseconds(4900));
}

TEST_F(EndingTest, WaitsForNobodyWhoIsGoneOrAtHome) {
    Call onBoard(byBoard({"-TIMELEFT=0"}));
    onBoard.until("up.\n\r");
    onBoard.hangUp();
    EXPECT_EQ(onBoard.status(), 3);
    EXPECT_EQ(Call(doorChild({"-LOCAL", "-TIMELEFT=0"}, tellKeys)).status(), 3);
}

TEST_F(EndingTest, ByTheProgramIsLogged) {
    for (const auto& [door, words] : std::vector<std::pair<Door, std::string>>{
             {[] {}, "quit (0)"},
             {[] { od_exit(7, 0); }, "ended by the program (7)"},
             {[] { std::exit(0); }, "ended by the program"},
             {std::abort, "crashed"}}) {
        runWithKeys(byBoard({}, door), "");
        EXPECT_EQ(logged(), words);
    }
}

TEST_F(EndingTest, IsLoggedWithDateNodeCallerAndMinutes) {
    runWithKeys(byBoard({}, [] { secondsAhead += 125; }), "");
    runWithKeys(byBoard({"-USERNAME", "\x1b[2J\tJ\x94", "-NODE=12"}), "q");
    runWithKeys(byBoard({"-BOGUS"}), "");
    EXPECT_THAT(readFile(log),
                testing::MatchesRegex("20..-..-..T..:..:..\tnode 3\tJörg Ace\t2 min\tquit .0.\n"
                                      "20.*\tnode 12\t.2JJö\t0 min\tquit .0.\n"
                                      "20.*\tnode -\t-\t0 min\tcould not start .*\n"));
}

TEST_F(EndingTest, NeedsNoLogThatCanBeWritten) {
    log = folder.path("none/calls");
    const Outcome outcome = runWithKeys(byBoard({}), "");
    EXPECT_EQ(outcome.shown, "ready");
    EXPECT_EQ(outcome.complaints, log + ": cannot be written: No such file or directory\n");
}

TEST_F(EndingTest, OfALostCallerIsSilent) {
    const Door look = [] {
        while (od_get_key(0) == 0) {
        }
    };
    EXPECT_EQ(runWithKeys(byBoard({}, look), "").status, 2);
    EXPECT_EQ(runWithKeys(byBoard({"-GRAPHICS"}), "").shown, "\033[0;37mready\033[0m");
    EXPECT_EQ(logged(), "connection lost (2)");
}

TEST_F(EndingTest, BySignalIsThatOfALostCaller) {
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, nullptr); // boards may hold signals back
    for (const Door& door : {Door(tellKeys), spin, flood}) {
        for (const int signal : {SIGTERM, SIGHUP, SIGINT, SIGQUIT}) {
            const Call call(byBoard({}, door));
            call.until("ready");
            kill(call.child, signal);
            EXPECT_EQ(call.status(), 2) << signal;
            EXPECT_EQ(logged(), "connection lost (2)") << signal;
            EXPECT_TRUE(call.isRestored()) << signal;
        }
    }
    sigprocmask(SIG_UNBLOCK, &all, nullptr);
}

TEST_F(EndingTest, ComesInTimeForCallersWhoReadNoMore) {
    EXPECT_EQ(Call(byBoard({"-TIMELEFT=0"}, flood)).status(), 3);
    EXPECT_EQ(logged(), "time used up (3)");
    EXPECT_EQ(Call(byBoard({"-INACTIVITY=1"}, flood)).status(), 4);
    EXPECT_EQ(logged(), "no key pressed (4)");
}
