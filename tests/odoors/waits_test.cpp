// What happens while the caller is waited for: pauses before a clear, and warnings.
#include "call.h"

#include <chrono>
#include <csignal>

namespace {

const std::string clearing = "\033[2J\033[H";

// How many milliseconds pass before the clear of a door that says the texts; between them it looks
// for a key.
long pauseAfter(const std::vector<std::string>& texts, Arguments options = {},
                const std::string& typedAhead = "") {
    const Door door = [&] {
        od_printf("ready");
        for (const std::string& text : texts) {
            od_get_key(0);
            od_printf("%s", text.c_str());
        }
        od_clr_scr();
        tellKeys();
    };
    options.insert(options.end(), coloured.begin(), coloured.end());
    const auto start = std::chrono::steady_clock::now();
    const Call call(doorChild(options, door));
    call.type(typedAhead);
    EXPECT_THAT(call.until(clearing), testing::HasSubstr(clearing));
    const auto passed = std::chrono::steady_clock::now() - start;
    call.type("q");
    EXPECT_EQ(call.status(), 0);
    return std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
}

const std::string longText(80, 'x'); // two seconds

// A door for which a minute passes with each signal.
Door timed(const Door& door) {
    return [=] {
        std::signal(SIGUSR1, [](int) { secondsAhead += 60; });
        door();
    };
}

// Lets minutes pass while the caller is waited for.
void pass(const Call& call, int minutes) {
    for (; minutes > 0; --minutes) {
        usleep(10'000); // signals do not queue up
        kill(call.child, SIGUSR1);
    }
}

// What the caller is shown after so many minutes, up to and with the text.
std::string shownAfter(const Call& call, int minutes, const std::string& text) {
    pass(call, minutes);
    return call.until(text);
}

const std::string fiveLeft = "You have at most 5 minutes left.\n\r";
const std::string oneLeft = "You have at most 1 minute left.\n\r";
const std::string warning = "\aThe call ends in 60 seconds unless you press a key.\n\r";

} // namespace

TEST(Pause, LastsAsLongAsTheCompletedLinesTakeToRead) {
    const long dead = pauseAfter({"`red`Dead,`blue` it se", "ems. \n\r"});
    EXPECT_GE(dead, 18 * 25); // with "ready"
    EXPECT_LT(dead, 900);
    EXPECT_GE(pauseAfter({"\xe1\xe2\xe3\xe1\xe2\xe3\n\r"}, {"-CHARSET=utf8"}), 11 * 25);
    EXPECT_GE(pauseAfter({longText + "\n\r"}, {"-PAUSE", "600"}), 600);
}

TEST(Pause, IsLeftOutWhereNothingIsToBeRead) {
    EXPECT_LT(pauseAfter({longText}), 600) << "not completed";
    EXPECT_LT(pauseAfter({longText + "\n\r"}, {"-PAUSE=0"}), 600);
    EXPECT_LT(pauseAfter({longText + "\n\r"}, {}, "xx"), 600) << "typed ahead";
}

TEST(Pause, EndsWithAKeyWhichIsKept) {
    const Call call(doorChild(coloured, [] {
        od_printf("%s\n\r", longText.c_str());
        od_clr_scr();
        tellKeys();
        od_clr_scr();
        od_printf("end");
    }));
    call.until("x\n\r");
    call.type("\033k");
    EXPECT_EQ(call.until("<107>"), clearing + "ready<27><107>");
    call.type("q");
    EXPECT_EQ(call.until("\033[0m"), clearing + "end\033[0m");
}

TEST(Warnings, ComeWhileTheCallerIsWaitedFor) {
    const Arguments options{"-L", "-ASCII", "-TIMELEFT=10", "-INACTIVITY=300"};
    const Call call(doorChild(options, timed(tellKeys)));
    call.until("ready");
    EXPECT_EQ(shownAfter(call, 4, "key.\n\r"), "\n\r" + warning);
    call.type("a");
    call.until("<97>");
    EXPECT_EQ(shownAfter(call, 1, "left.\n\r"), "\n\r" + fiveLeft);
    pass(call, 2);
    call.type("a");
    call.until("<97>");
    EXPECT_EQ(shownAfter(call, 2, "left.\n\r"), "\n\r" + oneLeft);
    EXPECT_EQ(shownAfter(call, 1, "up.\n\r"), "Your time is used up.\n\r");
}

TEST(Warnings, OfInactivityNeedTwoMinutes) {
    const Call call(doorChild({"-L", "-ASCII", "-INACTIVITY=119"}, timed(tellKeys)));
    call.until("ready");
    EXPECT_EQ(shownAfter(call, 2, "Goodbye.\n\r"),
              "\n\rNo key was pressed for too long. Goodbye.\n\r");
}

TEST(Warnings, ShowALineThatIsBeingTypedAgain) {
    const Door door = timed([] {
        od_printf("`red`\n\rYour `blue`name: ");
        std::string field(20, '\0');
        od_input_str(field.data(), 8, ' ', 'z');
        od_printf("%s? ", field.c_str());
        tellKeys();
    });
    const Call call(doorChild({"-L", "-GRAPHICS", "-TIMELEFT=7"}, door));
    call.type("abc");
    const std::string line = "Your \033[0;34mname: abc";
    EXPECT_EQ(call.until("c"), "\033[0;31m\n\r" + line);
    EXPECT_EQ(shownAfter(call, 2, "abc"), "\n\r" + fiveLeft + "\033[0;31m" + line);
    call.type("\bd\r");
    EXPECT_EQ(call.until("ready"), "\b \bd\n\rabd? ready");
    EXPECT_EQ(shownAfter(call, 4, "left.\n\r"), "\n\r" + oneLeft);
}

TEST(Warnings, ThatMayHaveBeenWipedAreShownAgain) {
    const Door door = [] {
        secondsAhead = 120;
        for (int i = 0; i < 3; ++i) {
            od_printf("<%c>", od_get_key(1));
        }
        tellKeys();
    };
    const Call call(doorChild({"-L", "-ASCII", "-TIMELEFT=7"}, door));
    call.type("abc");
    EXPECT_EQ(call.until("ready\n\r" + fiveLeft), fiveLeft + "<a><b><c>ready\n\r" + fiveLeft);
    call.type("de");
    EXPECT_EQ(call.until("<101>"), "<100><101>");
}
