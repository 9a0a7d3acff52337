// Callers whose telnet program is at the other end of an inherited socket.
#include "telnet.h"

#include "call.h"

using namespace odoors;
using namespace std::string_literals;

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
    const std::string answers = offers + "\xff\xfe\x1f\xff\xfe\x18\xff\xfc\x06\xff\xfe\x03"
                                         "\xff\xfc\x01\xff\xfc\x2a"s;
    for (std::size_t cut = 0; cut <= line.size(); ++cut) {
        Telnet telnet;
        std::string taken;
        telnet.receive(line.substr(0, cut), taken);
        telnet.receive(line.substr(cut), taken);
        EXPECT_EQ(taken, "ab\r\0\xff"
                         "cde\r\nf"s)
            << cut;
        EXPECT_EQ(telnet.takeForLine(), answers) << cut;
    }
}

TEST(Sockets, CarryAWholeCall) {
    const Door door = [] {
        od_autodetect(1);
        od_disp_str("ready\xff\n\r");
        char key = 0;
        while ((key = od_get_key(1)) != 'q') {
            od_printf("<%d>", static_cast<unsigned char>(key));
        }
    };
    const Call call(doorChild({"-HANDLE", std::to_string(handedSocket)}, door), Line::socket);
    call.type("\xff\xfd\0\033[1;1Rp\r\0\r\n\xff\xff\033[Aq"s);
    EXPECT_EQ(call.until("never"), offers + "\033[6n\033[0;37mready\xff\xff\n\r"
                                            "<112><13><13><255><127>\033[0m");
    EXPECT_EQ(call.status(), 0);
}
