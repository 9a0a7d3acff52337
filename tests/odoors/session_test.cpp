// A session on every kind of line.
#include "board.h"
#include "call.h"

#include <chrono>
#include <csignal>

using namespace std::string_literals;

namespace {

const Door ask = [] {
    od_printf("hello");
    od_autodetect(1);
    od_autodetect(1);
    od_printf("`red`%d", od_control.user_ansi);
    tellKeys();
};

const std::string position = "\033[6n";
const std::string corner = "\033[255;255H";

} // namespace

TEST(Terminal, IsRawDuringTheCallAndRestoredAfterItOrItsCrash) {
    for (const int crash : {0, SIGABRT, SIGXCPU}) { // the last for using too much
        const Door door = [crash] {
            tellKeys();
            crash == 0 ? std::exit(7) : static_cast<void>(raise(crash));
        };
        const Call call(doorChild(plain, door), Line::terminal, false);
        EXPECT_EQ(call.until("ready"), "ready");
        call.type("\x03\x1a\x13\r\n\x04");
        EXPECT_EQ(call.until("<4>"), "<3><26><19><13><4>");
        kill(call.child, SIGTSTP);
        call.type("q");
        EXPECT_EQ(call.status(), crash == 0 ? 7 : 1000 + crash);
        EXPECT_TRUE(call.isRestored());
    }
}

TEST(Terminal, AnswersWhetherItHasAnsiGraphics) {
    const Call call(doorChild({"-L", "-CHARSET=cp437"}, ask));
    call.type("a");
    EXPECT_EQ(call.until("\033[6n"), "hello\033[6n");
    call.type("b\033\033[3;");
    call.type("6Rc");
    EXPECT_EQ(call.until(corner + position + "\033[3;6H"), corner + position + "\033[3;6H");
    call.type("\033[24;132Rd");
    EXPECT_EQ(call.until("<100>"), "\033[0;31m1ready<97><98><27><99><100>");
}

TEST(Terminal, HasASecondToAnswer) {
    const Call call(doorChild({"-LOCAL"}, ask));
    const auto start = std::chrono::steady_clock::now();
    call.until("\033[6n");
    EXPECT_EQ(call.until("ready"), "0ready");
    EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(900));
    call.type("\033[1;6Rb");
    EXPECT_EQ(call.until(">"), "<98>") << "an answer that comes too late is no key either";
}

TEST(Terminal, SendsAnEscapeAloneAsAKey) {
    const Call call(doorChild(plain, tellKeys));
    call.until("ready");
    call.type("\033");
    EXPECT_EQ(call.until(">"), "<27>");
    call.type("[A");
    EXPECT_EQ(call.until("<65>"), "<91><65>");
}

// What telnet programs send: agreement and proposals, a window's size with 255 in it, commands, and
// keys among it all; one report of the cursor's position is no key.
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
    const Call call(doorChild({"-D", dropFile, "-CHARSET=cp437"}, door), Line::socket);
    call.type(
        "\xff\xfd\x01\xff\xfd\x03\xff\xfb\x03\xff\xfd\0\xff\xfb\0\033[;Ra\033[1;Rb\033[1;2;3Rc"
        "\033[1;1Rd\033[1;1R\r\0\xff\xff\xff\xfb\x1f"s);
    const std::string shown = call.until("\033[1;1H");
    call.type("\033[24;80R\xff\xfa\x1f\0\xff"s);
    // WILL and DO of echo (1), no go-ahead (3) and binary (0), as far as they are ours to offer.
    EXPECT_EQ(shown + call.until("<255>"),
              "\xff\xfb\x01\xff\xfb\x03\xff\xfd\x03\xff\xfb\0\xff\xfd\0\033[6n\xff\xfe\x1f"s +
                  corner + position +
                  "\033[1;1H\033[0;37m"
                  "\xff\xff\n\rready<127><97><127><98><127><99><100><127><13><255>"s);
    call.type("\xff\0\x19\xff\xf0\r\n\xff\xf1q"s);
    EXPECT_EQ(call.until("\033[0m"), "<13>\033[0m");
    EXPECT_EQ(call.status(), 0);
}
