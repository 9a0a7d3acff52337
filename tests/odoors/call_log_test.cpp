// The operator's log: a line for each call, whichever way it ended.
#include "board.h"
#include "call.h"

#include <csignal>

#include <gmock/gmock.h>
#include <sys/stat.h>

using testing::ContainsRegex;
using testing::MatchesRegex;

namespace {

const Door quit = [] {};
const Door waitForKeys = [] {
    od_printf("ready");
    while (od_get_key(1) != 0) {
    }
};
const Door ignoreSignals = [] {
    od_printf("ready");
    od_get_key(0);
    for (volatile bool stuck = true; stuck;) {
    }
};

struct CallLog : testing::Test {
    Folder folder;
    std::string log = folder.path("calls");
    std::string dropFile = folder.write(door32.name, door32.with());

    Child call(Arguments options, const Door& door) const {
        options.insert(options.begin(), {"-LOG", log});
        options.insert(options.end(), {"-ASCII", "-D", dropFile});
        return doorChild(options, door);
    }

    // How the last call ended, as the log has it.
    std::string lastEnd() const {
        const std::string text = readFile(log);
        const std::size_t tab = text.rfind('\t') + 1;
        return text.substr(tab, text.size() - 1 - tab);
    }

    std::string endOf(const Arguments& options, const Door& door) const {
        runWithKeys(call(options, door), "");
        return lastEnd();
    }
};

} // namespace

TEST_F(CallLog, TellsDateNodeCallerAndMinutes) {
    runWithKeys(call({}, [] { secondsAhead += 125; }), "");
    runWithKeys(call({"-USERNAME", "\x1b[2J\tJ\x94", "-NODE=12"}, quit), "");
    runWithKeys(call({"-USERNAME="}, quit), "");
    EXPECT_THAT(readFile(log),
                MatchesRegex("20..-..-..T..:..:..\tnode 3\tJörg Ace\t2 min\tquit .0.\n"
                             "20.*\tnode 12\t.2JJö\t0 min\tquit .0.\n"
                             "20.*\tnode 3\t-\t0 min\tquit .0.\n"));
}

TEST_F(CallLog, TellsHowEachCallEnded) {
    EXPECT_EQ(endOf({}, [] { od_exit(7, 0); }), "ended by the program (7)");
    EXPECT_EQ(endOf({}, [] { std::exit(0); }), "ended by the program");
    EXPECT_EQ(endOf({}, waitForKeys), "connection lost (2)");
    EXPECT_EQ(endOf({"-TIMELEFT=0"}, waitForKeys), "time used up (3)");
    const Call idle(call({"-INACTIVITY=1", "-ONECALLER", folder.path("lock")}, waitForKeys));
    idle.until("ready");
    EXPECT_EQ(endOf({"-ONECALLER", folder.path("lock")}, waitForKeys), "another caller inside (5)");
    idle.until("bye.");
    EXPECT_EQ(lastEnd(), "no key pressed (4)");
}

TEST_F(CallLog, TellsWhyACallCouldNotStart) {
    EXPECT_EQ(endOf({"-ONECALLER", folder.path("no/lock")}, quit),
              "could not start (1): " + folder.path("no/lock") +
                  ": cannot be locked: No such file or directory");
    EXPECT_EQ(endOf({"-BOGUS\xff\n"}, quit), "could not start (1): unknown option -BOGUS\u00a0");
    EXPECT_THAT(readFile(log), ContainsRegex("\tnode -\t-\t0 min\tcould not start"));
    dropFile = folder.path("none");
    EXPECT_EQ(endOf({}, quit),
              "could not start (1): " + dropFile + ": cannot be read: No such file or directory");
    // By the program itself, before it has opened the session.
    runWithKeys(
        [&] {
            od_parse_cmd_line(3, commandLine({"-LOG", log}).data());
            std::exit(1);
        },
        "");
    EXPECT_EQ(lastEnd(), "could not start (1)");
}

TEST_F(CallLog, HasTheCallsOfStuckAndCrashedPrograms) {
    const Call stuck(call({}, ignoreSignals));
    stuck.until("ready");
    kill(stuck.child, SIGTERM);
    EXPECT_EQ(stuck.status(), 2);
    EXPECT_EQ(lastEnd(), "connection lost (2)");
    EXPECT_EQ(Call(call({"-TIMELEFT=0"}, [] { pause(); })).status(), 3);
    EXPECT_EQ(lastEnd(), "time used up (3)");
    EXPECT_EQ(endOf({}, std::abort), "crashed");
}

TEST_F(CallLog, IsWhereItWasWhenTheProgramStarted) {
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    log = "calls";
    EXPECT_EQ(endOf({}, [] { EXPECT_EQ(chdir("/"), 0); }), "quit (0)");
    ASSERT_EQ(chdir("/"), 0);
}

TEST_F(CallLog, ThatCannotBeWrittenKeepsNobodyOut) {
    log = folder.path("none/calls");
    const Outcome outcome = runWithKeys(call({}, waitForKeys), "");
    EXPECT_EQ(outcome.shown, "ready");
    EXPECT_EQ(outcome.complaints, log + ": cannot be written: No such file or directory\n");
    // Nor one that nobody reads.
    log = folder.path("pipe");
    ASSERT_EQ(mkfifo(log.c_str(), 0600), 0);
    EXPECT_EQ(runWithKeys(call({}, waitForKeys), "").shown, "ready");
}
