// How a session ends by itself, and what it tells the caller about his time.
#include <csignal>

#include <sys/syscall.h>

#include "call.h"

namespace {

long secondsAhead = 0;

const Door waitForKey = [] { od_get_key(1); };
const Door look = [] {
    while (od_get_key(0) == 0) {
        usleep(1000);
    }
};
const Door spin = [] {
    od_get_key(0);
    for (volatile bool stuck = true; stuck;) {
    }
};
const Door flood = [] {
    od_printf("%*s", 1000000, "x");
    od_get_key(0);
};

Child promptThen(const Door& rest, const Arguments& arguments = plain) {
    return doorChild(arguments, [rest] {
        od_printf("ready");
        rest();
        od_printf("not reached");
    });
}

} // namespace

// Stands in for the system's clock, in the library too.
extern "C" int clock_gettime(clockid_t clock, timespec* now) noexcept {
    const long result = syscall(SYS_clock_gettime, clock, now);
    now->tv_sec += secondsAhead;
    return static_cast<int>(result);
}

TEST(End, LostCallerEndsADoorSilently) {
    EXPECT_EQ(runWithKeys(promptThen(look), "").shown, "ready");
    EXPECT_EQ(runWithKeys(promptThen(waitForKey, coloured), "").shown, "\033[0;37mready\033[0m");
    for (const Door& doing : {look, spin, flood}) {
        for (const int signal : {SIGTERM, SIGHUP, SIGINT, SIGQUIT}) {
            const Call call(promptThen(doing));
            EXPECT_EQ(call.until("ready").substr(0, 5), "ready");
            kill(call.child, signal);
            EXPECT_EQ(call.status(), 2) << signal;
            EXPECT_TRUE(call.isRestored()) << signal;
        }
    }
}

// The caller takes no more output while his input stays open: at a wait, or in mid-write.
TEST(End, OutputAloneCanBeLost) {
    for (const int length : {1, 200000}) {
        std::array<int, 2> input{};
        std::array<int, 2> output{};
        ASSERT_TRUE(pipe(input.data()) == 0 && pipe(output.data()) == 0);
        const Door door = [length] {
            od_printf("%*s", length, "x");
            od_get_key(1);
        };
        const pid_t child = startChild(doorChild(plain, door), input[0], output[1]);
        close(output[1]);
        char byte = 0;
        EXPECT_EQ(read(output[0], &byte, 1), 1);
        close(output[0]);
        EXPECT_EQ(waitForEnd(child), 2) << length;
    }
}

TEST(End, IdlenessIsTold) {
    const Call idle(promptThen(waitForKey, {"-ASCII", "-INACTIVITY", "1", "-LOCAL"}));
    EXPECT_EQ(idle.until("bye.\n\r"), "ready\n\rNo key was pressed for too long. Goodbye.\n\r");
    EXPECT_EQ(idle.status(), 4);
    EXPECT_TRUE(idle.isRestored());
}

TEST(End, OneCallerAtATime) {
    const Folder folder;
    const Arguments arguments{"-LOCAL", "-ASCII", "-ONECALLER", folder.path("lock")};
    const Call first(promptThen(waitForKey, arguments));
    EXPECT_EQ(first.until("ready"), "ready");
    const Outcome second = callWithKeys(arguments, "x", waitForKey);
    EXPECT_EQ(second.status, 5);
    EXPECT_EQ(second.shown, "Another caller is inside. Please try again later.\n\r");
    kill(first.child, SIGKILL);
    EXPECT_EQ(first.status(), 1000 + SIGKILL);
    EXPECT_EQ(callWithKeys(arguments, "x", waitForKey).status, 0);
    EXPECT_EQ(callWithKeys({"-L", "-ONECALLER", folder.path("no/lock")}, "x", waitForKey).status,
              1);
}

TEST(Time, MinutesGoByAndWarningsComeOnce) {
    const auto pass = [](const std::vector<long>& spans) {
        for (const long seconds : spans) {
            secondsAhead += seconds;
            od_get_key(1);
            od_printf("%d ", od_control.user_timelimit);
        }
    };
    const Outcome timed = callWithKeys({"-L", "-TIMELEFT", "7"}, "abcdefgh", [&] {
        pass({59, 1, 60, 60, 150, 59, 20, 20});
    });
    EXPECT_EQ(timed.status, 3);
    EXPECT_EQ(timed.shown,
              "7 6 \n\rYou have at most 5 minutes left.\n\r5 4 2 "
              "\n\rYou have at most 1 minute left.\n\r1 1 \n\rYour time is used up.\n\r");
    EXPECT_EQ(callWithKeys({"-L"}, "a", [&] { pass({7200}); }).shown, "0 ") << "no limit to keep";
}
