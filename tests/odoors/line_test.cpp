// A caller at a real terminal, and one whose telnet program is at the other end of a socket.
#include "telnet.h"

#include "board.h"
#include "call.h"

#include <chrono>
#include <csignal>

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

// WILL and DO of echo (1), no go-ahead (3) and binary (0), as far as they are ours to offer.
const std::string offers = "\xff\xfb\x01\xff\xfb\x03\xff\xfd\x03\xff\xfb\0\xff\xfd\0"s;

// What telnet programs send: agreement and proposals, a window's size with 255 in it, a terminal's
// name, commands, and keys among it all.
TEST(TelnetTest, TakesTheProtocolOutWhereverItIsCut) {
    const std::string line = "a\xff\xfd\x01\xff\xfd\x03\xff\xfb\x03\xff\xfd\0\xff\xfb\0"
                             "b\r\0\xff\xff\xff\xfb\x1f\xff\xfa\x1f\0\xff\xff\0\x19\xff\xf0"
                             "c\xff\xf1\xff\xf6\xff\xf3"
                             "d\xff\xfb\x18\xff\xfa\x18\0ANSI\xff\xf0\xff\xfd\x06\xff\xfc\x03"
                             "e\r\n\xff\xfe\x01\xff\xfd\x2a\xff\xf9"
                             "f"s;
    const std::string keysAndAnswers = "ab\r\0\xff"
                                       "cde\r\nf"s +
                                       offers +
                                       "\xff\xfe\x1f\xff\xfe\x18\xff\xfc\x06\xff\xfe\x03"
                                       "\xff\xfc\x01\xff\xfc\x2a"s;
    for (std::size_t cut = 0; cut <= line.size(); ++cut) {
        odoors::Telnet telnet;
        std::string keys;
        telnet.receive(line.substr(0, cut), keys);
        telnet.receive(line.substr(cut), keys);
        EXPECT_EQ(keys + telnet.takeForLine(), keysAndAnswers) << cut;
    }
}

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
    // One report of the cursor's position is no key.
    call.type("\xff\xfd\0\033[;R\033[1;R\033[1;2;3R\033[1;1R\033[1;1R\r\0\r\n\xff\xff\033[Aq"s);
    EXPECT_EQ(call.until("never"), offers + "\033[6n\033[0;37m\xff\xff\n\rready<127><127><127>"
                                            "<127><13><13><255><127>\033[0m");
    EXPECT_EQ(call.status(), 0);
}
