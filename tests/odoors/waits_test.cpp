// What happens while the caller is waited for: pauses before a clear, and warnings.
#include "call.h"

#include <chrono>

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
