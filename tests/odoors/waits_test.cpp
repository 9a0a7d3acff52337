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

// What the caller is shown after so many minutes in which he is waited for, up to the text.
std::string shownAfter(const Call& call, int minutes, const std::string& text) {
    for (; minutes > 0; --minutes) {
        usleep(10'000); // signals do not queue up
        kill(call.child, SIGUSR1);
    }
    return call.until(text);
}

const std::string fiveLeft = "You have at most 5 minutes left.\n\r";
const std::string oneLeft = "You have at most 1 minute left.\n\r";
const std::string lastChance = "\aThe call ends in 60 seconds unless you press a key.\n\r";

} // namespace

TEST(Pause, LastsAsLongAsTheCompletedLinesTakeToRead) {
    EXPECT_GE(pauseAfter({"`red`Dead,`blue` it se", "ems.\n\r"}), 18 * 25); // with "ready"
    const std::string shades(15, '\xb1'); // three bytes each in UTF-8
    const long shown = pauseAfter({shades + std::string(40, ' ') + "\n\r"}, {"-CHARSET=utf8"});
    EXPECT_GE(shown, 20 * 25);
    EXPECT_LT(shown, 45 * 25);
    EXPECT_GE(pauseAfter({longText + "\n\r"}, {"-PAUSE", "600"}), 600);
}

TEST(Pause, IsLeftOutWhereNothingIsToBeRead) {
    EXPECT_LT(pauseAfter({longText}), 600) << "not completed";
    EXPECT_LT(pauseAfter({longText + "\n\r"}, {"-PAUSE=0"}), 600);
    EXPECT_LT(pauseAfter({longText + "\n\r"}, {}, "xx"), 600) << "typed ahead";
    EXPECT_LT(pauseAfter({longText + "\n\r", ""}, {}, "xx"), 600) << "read";
    const auto start = std::chrono::steady_clock::now();
    const Door door = [] {
        od_printf("%s\n\r", longText.c_str());
        od_clr_scr();
    };
    EXPECT_EQ(Call(doorChild(coloured, door), Line::pipe).status(), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(600)) << "a pipe";
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
    const Arguments options{"-L", "-ASCII", "-TIMELEFT=9"};
    const Call call(doorChild(options, timed(tellKeys)));
    call.until("ready");
    EXPECT_EQ(shownAfter(call, 4, "left.\n\r"), "\n\r" + fiveLeft);
    call.type("a");
    EXPECT_EQ(call.until("<97>"), "<97>");
    EXPECT_EQ(shownAfter(call, 4, "left.\n\r"), "\n\r" + oneLeft);
    EXPECT_EQ(shownAfter(call, 1, "up.\n\r"), "Your time is used up.\n\r");
}

TEST(Warnings, OfInactivityComeAMinuteBeforeTheEnd) {
    const Call call(doorChild({"-L", "-ASCII", "-INACTIVITY=121"}, timed(tellKeys)));
    call.until("ready");
    EXPECT_EQ(shownAfter(call, 1, "key.\n\r"), "\n\r" + lastChance);
    const Call brief(doorChild({"-L", "-ASCII", "-INACTIVITY=119"}, timed(tellKeys)));
    brief.until("ready");
    EXPECT_EQ(shownAfter(brief, 2, "Goodbye.\n\r"),
              "\n\rNo key was pressed for too long. Goodbye.\n\r");
}

TEST(Warnings, ThatMayHaveBeenWipedAreShownAgain) {
    const Door door = [] {
        secondsAhead = 179;
        for (int i = 0; i < 3; ++i) {
            const char key = od_get_key(1);
            od_printf("<%c %d>", key, od_control.user_timelimit);
        }
        tellKeys();
    };
    const Call call(doorChild({"-L", "-ASCII", "-TIMELEFT=7"}, door));
    call.type("abc");
    EXPECT_EQ(call.until("ready\n\r" + fiveLeft), fiveLeft + "<a 5><b 5><c 5>ready\n\r" + fiveLeft);
    call.type("de");
    EXPECT_EQ(call.until("<101>"), "<100><101>");
}
