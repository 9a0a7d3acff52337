// A session on every kind of line: a real terminal, a socket with a telnet program at its other
// end; how it ends by itself, and what it tells the caller about his time.
#include <chrono>
#include <csignal>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "board.h"
#include "call.h"

using namespace std::string_literals;

namespace {

void tellKeys() {
    od_printf("ready");
    while (const int key = static_cast<unsigned char>(od_get_key(1))) {
        if (key == 'q') {
            break;
        }
        od_printf("<%d>", key);
    }
}

const Door look = [] {
    od_printf("ready");
    while (od_get_key(0) == 0) {
        usleep(1000);
    }
};
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

} // namespace

TEST(Terminal, IsRawDuringTheCallAndRestoredAfterItOrItsCrash) {
    for (const Door& end : {Door([] {}), Door(std::abort), Door([] { std::exit(7); })}) {
        const Door door = [&] {
            tellKeys();
            end();
        };
        const Call call(doorChild(plain, door), Line::terminal, false);
        EXPECT_EQ(call.until("ready"), "ready");
        call.type("\x03\x1a\x13\r\n\x04");
        EXPECT_EQ(call.until("<4>"), "<3><26><19><13><4>");
        kill(call.child, SIGTSTP);
        call.type("q");
        EXPECT_GE(call.status(), 0);
        EXPECT_TRUE(call.isRestored());
    }
}

TEST(Terminal, IsAskedForAnsiGraphicsAndHasAnEscapeKey) {
    const auto door = [] {
        od_printf("hello");
        od_autodetect(1);
        od_printf("`red`%d", od_control.user_ansi);
        tellKeys();
    };
    const Call answering(doorChild({}, door));
    answering.type("a");
    EXPECT_EQ(answering.until("\033[6n"), "hello\033[6n");
    answering.type("b\033\033[1;");
    answering.type("1Rc");
    EXPECT_EQ(answering.until("<99>"), "\033[0;31m1ready<97><98><27><99>");
    // An escape is a key when nothing follows at once.
    for (const auto& [bytes, keys] : std::vector<std::pair<std::string, std::string>>{
             {"\033[A", "<127>"}, {"\033", "<27>"}, {"[A", "<91><65>"}, {"\033OP!", "<127><33>"}}) {
        answering.type(bytes);
        EXPECT_EQ(answering.until(keys), keys);
    }
    // An answer that comes too late is no key either.
    const Call silent(doorChild({"-LOCAL"}, door));
    const auto start = std::chrono::steady_clock::now();
    silent.until("\033[6n");
    silent.type("a");
    EXPECT_EQ(silent.until("<97>"), "0ready<97>");
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GT(waited, std::chrono::milliseconds(900));
    EXPECT_LT(waited, std::chrono::milliseconds(1900));
    silent.type("\033[1;6Rb");
    EXPECT_EQ(silent.until(">"), "<98>");
}

// What telnet programs send: agreement and proposals, a window's size with 255 in it, a terminal's
// name, commands, and keys among it all; one report of the cursor's position is no key.
TEST(Sockets, CarryAWholeCall) {
    const Folder folder;
    const std::string socket = std::to_string(handedSocket);
    const std::string dropFile =
        folder.write(bbsdev.name, bbsdev.with({{2, "Socket"}, {3, socket}, {8, ""}}));
    const Door door = [] {
        od_autodetect(1);
        od_disp_str("\xff\n\r");
        tellKeys();
    };
    const Call call(doorChild({"-D", dropFile}, door), Line::socket);
    call.type(
        "\xff\xfd\x01\xff\xfd\x03\xff\xfb\x03\xff\xfd\0\xff\xfb\0\033[;Ra\033[1;Rb\033[1;2;3Rc"
        "\033[1;1Rd\033[1;1R\r\0\xff\xff\xff\xfb\x1f\xff\xfa\x1f\0\xff"s);
    // WILL and DO of echo (1), no go-ahead (3) and binary (0), as far as they are ours to offer.
    EXPECT_EQ(
        call.until("<255>"),
        "\xff\xfb\x01\xff\xfb\x03\xff\xfd\x03\xff\xfb\0\xff\xfd\0\033[6n\xff\xfe\x1f\033[0;37m"
        "\xff\xff\n\rready<127><97><127><98><127><99><100><127><13><255>"s);
    call.type("\xff\0\x19\xff\xf0\r\n\xff\xf1\xff\xf6\xff\xf3\xff\xfb\x18\xff\xfa\x18\0ANSI\xff\xf0"
              "\xff\xfd\x06\xff\xfc\x03\xff\xfe\x01\xff\xfd\x2a\xff\xf9\033[Aq"s);
    EXPECT_EQ(call.until("\033[0m"), "\xff\xfe\x18\xff\xfc\x06\xff\xfe\x03\xff\xfc\x01\xff\xfc\x2a"
                                     "<13><127>\033[0m");
    EXPECT_EQ(call.status(), 0);
}

TEST(End, LostCallerEndsADoorSilently) {
    EXPECT_EQ(callWithKeys(plain, "", look).shown, "ready");
    EXPECT_EQ(callWithKeys(coloured, "", tellKeys).shown, "\033[0;37mready\033[0m");
    for (const Door& doing : {look, spin, flood}) {
        for (const int signal : {SIGTERM, SIGHUP, SIGINT, SIGQUIT}) {
            const Call call(doorChild(plain, doing));
            EXPECT_EQ(call.until("ready").substr(0, 5), "ready");
            kill(call.child, signal);
            EXPECT_EQ(call.status(), 2) << signal;
            EXPECT_TRUE(call.isRestored()) << signal;
        }
    }
}

TEST(End, SignalDuringTheStartIsALostCaller) {
    const Child signalled = [] {
        od_parse_cmd_line(1, commandLine({}).data());
        raise(SIGTERM);
        od_init();
        std::abort();
    };
    EXPECT_EQ(Call(signalled).status(), 2);
    // At any other moment; held back until the child begins to start.
    sigset_t held;
    sigset_t before;
    sigemptyset(&held);
    sigaddset(&held, SIGHUP);
    for (const useconds_t delay : {0, 300, 1000, 3000, 10000}) {
        sigprocmask(SIG_BLOCK, &held, &before);
        const Call call(doorChild(plain, tellKeys));
        sigprocmask(SIG_SETMASK, &before, nullptr);
        usleep(delay);
        kill(call.child, SIGHUP);
        EXPECT_EQ(call.status(), 2) << delay;
        EXPECT_TRUE(call.isRestored());
    }
}

// The board that has not written its drop file yet is a pipe here.
TEST(End, SignalWhileTheDropFileIsReadIsALostCaller) {
    const Folder folder;
    const std::string pipe = folder.path(door32.name);
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const bool opened : {false, true}) {
        const Call call(doorChild({"-D", pipe}, tellKeys));
        int end = -1;
        for (; opened && end < 0; usleep(1000)) {
            end = open(pipe.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        }
        usleep(20000);
        kill(call.child, SIGTERM);
        EXPECT_EQ(call.status(), 2) << opened;
        close(end);
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
    const Call idle(doorChild({"-ASCII", "-INACTIVITY", "1", "-LOCAL"}, tellKeys));
    EXPECT_EQ(idle.until("bye.\n\r"), "ready\n\rNo key was pressed for too long. Goodbye.\n\r");
    EXPECT_EQ(idle.status(), 4);
    EXPECT_TRUE(idle.isRestored());
}

TEST(End, OneCallerAtATime) {
    const Folder folder;
    const Arguments arguments{"-LOCAL", "-ASCII", "-ONECALLER", folder.path("lock")};
    const Call first(doorChild(arguments, tellKeys));
    EXPECT_EQ(first.until("ready"), "ready");
    const Outcome second = callWithKeys(arguments, "q", tellKeys);
    EXPECT_EQ(second.status, 5);
    EXPECT_EQ(second.shown, "Another caller is inside. Please try again later.\n\r");
    kill(first.child, SIGKILL);
    EXPECT_EQ(first.status(), 1000 + SIGKILL);
    EXPECT_EQ(callWithKeys(arguments, "q", tellKeys).status, 0);
    EXPECT_EQ(callWithKeys({"-L", "-ONECALLER", folder.path("no/lock")}, "q", tellKeys).status, 1);
}

struct LastLine : testing::Test {
    Folder folder;
    std::string dropFile = folder.write(door32.name, door32.with());
    std::string lock = folder.path("lock");

    // A call that a board started, with these options besides.
    Child byBoard(Arguments options, const Door& door = tellKeys) const {
        options.insert(options.end(), {"-ASCII", "-D", dropFile});
        return doorChild(options, door);
    }
};

TEST_F(LastLine, StaysUntilAKey) {
    const Call first(byBoard({"-ONECALLER", lock}));
    first.until("ready");
    struct Ending {
        Arguments options;
        std::string line;
        int status;
    };
    for (const auto& [options, line, status] : std::vector<Ending>{
             {{"-TIMELEFT", "0"}, "Your time is used up.", 3},
             {{"-INACTIVITY", "1"}, "No key was pressed for too long. Goodbye.", 4},
             {{"-ONECALLER", lock}, "Another caller is inside. Please try again later.", 5},
             {{"-ONECALLER", folder.path("no/lock")},
              "The game cannot be started. Please tell the operator.",
              1},
             {{"-D", folder.path("none")}, "", 1},
             {{"-NONSENSE"}, "", 1}}) {
        Arguments all{"-D", dropFile, "-ASCII"};
        all.insert(all.end(), options.begin(), options.end());
        const Call call(doorChild(all, tellKeys));
        if (!line.empty()) {
            EXPECT_THAT(call.until(line), testing::HasSubstr(line));
        }
        usleep(200000);
        EXPECT_EQ(waitpid(call.child, nullptr, WNOHANG), 0) << line;
        call.type("x");
        EXPECT_EQ(call.status(), status) << line;
        EXPECT_TRUE(call.isRestored());
    }
}

TEST_F(LastLine, StaysThreeSecondsWhateverWasTypedAhead) {
    const Call call(byBoard({"-TIMELEFT", "0"}));
    const auto start = std::chrono::steady_clock::now();
    call.type("abc");
    EXPECT_THAT(call.until("nothing more"), testing::HasSubstr("Your time is used up."));
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GT(waited, std::chrono::milliseconds(2900));
    EXPECT_LT(waited, std::chrono::milliseconds(3900));
    EXPECT_EQ(call.status(), 3);
}

TEST_F(LastLine, HoldsUpNobodyWhoIsGone) {
    for (const bool signal : {true, false}) {
        Call call(byBoard({"-TIMELEFT", "0"}));
        call.until("up.\n\r");
        signal ? static_cast<void>(kill(call.child, SIGTERM)) : call.hangUp();
        EXPECT_EQ(call.status(), 3) << signal;
    }
    EXPECT_EQ(Call(byBoard({"-TIMELEFT", "0"}, flood)).status(), 3) << "he takes no output";
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
    EXPECT_EQ(Call(doorChild({"-L", "-TIMELEFT", "0"}, flood)).status(), 3) << "he takes no output";
}
