// A caller at a real terminal.
#include <chrono>
#include <csignal>

#include "call.h"

namespace {

void tellKeys() {
    od_printf("ready");
    char key = 0;
    while ((key = od_get_key(1)) != 'q') {
        od_printf("<%d>", key);
    }
}

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

TEST(Terminal, EscapeIsAKeyOnlyWhenNothingFollowsAtOnce) {
    const Call call(doorChild(plain, tellKeys));
    call.until("ready");
    for (const auto& [bytes, keys] : std::vector<std::pair<std::string, std::string>>{
             {"\033[A", "<127>"}, {"\033", "<27>"}, {"[A", "<91><65>"}, {"\033OP!", "<127><33>"}}) {
        call.type(bytes);
        EXPECT_EQ(call.until(keys), keys);
    }
}

TEST(Terminal, IsAskedForAnsiGraphics) {
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
