// Callers whose telnet program is at the other end of an inherited socket.
#include "telnet.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

#include "OpenDoor.h"
#include "board.h"
#include "call.h"

using namespace odoors;
using namespace std::string_literals;

namespace {

// WILL and DO of echo (1), no go-ahead (3) and binary (0), as far as they are ours to offer.
const std::string offers = "\xff\xfb\x01\xff\xfb\x03\xff\xfd\x03\xff\xfb\0\xff\xfd\0"s;

const Arguments handed{"-HANDLE", std::to_string(handedSocket), "-ASCII"};

// A door whose caller is on a socket.
struct SocketCall {
    explicit SocketCall(const Door& door, const Arguments& arguments = handed) {
        std::array<int, 2> ends{};
        // Packets keep the door's writes apart.
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends.data()), 0);
        child = startChild(onSocket(doorChild(arguments, door)), ends[1], ends[1]);
        close(ends[1]);
        socket = ends[0];
    }
    ~SocketCall() { close(socket); }
    SocketCall(const SocketCall&) = delete;
    SocketCall& operator=(const SocketCall&) = delete;

    void send(const std::string& bytes) const { write(socket, bytes.data(), bytes.size()); }

    // The door's next write; empty when there is none to come.
    std::string next() const {
        std::array<char, 4096> buffer;
        pollfd end{socket, POLLIN, 0};
        const ssize_t count =
            poll(&end, 1, 5000) == 1 ? read(socket, buffer.data(), buffer.size()) : 0;
        return {buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
    }

    int status() const { return waitForEnd(child); }

    int socket = -1;
    pid_t child = -1;
};

void tellKeys() {
    od_disp_str("ready\xff\n\r");
    while (const char key = od_get_key(1)) {
        od_printf("<%d>", static_cast<unsigned char>(key));
    }
}

} // namespace

// What telnet programs send: agreement and proposals, a window's size with 255 in it, a terminal's
// name, commands, and keys among it all.
TEST(TelnetTest, TakesTheProtocolOutWhereverItIsCut) {
    const std::string line = "a\xff\xfd\x01\xff\xfd\x03\xff\xfb\x03\xff\xfd\0\xff\xfb\0"
                             "b\r\0\xff\xff\xff\xfb\x1f\xff\xfa\x1f\0\xff\xff\0\x19\xff\xf0"
                             "c\xff\xf1\xff\xf6\xff\xf3"
                             "d\xff\xfb\x18\xff\xfa\x18\0ANSI\xff\xf0\xff\xfd\x06\xff\xfc\x03"
                             "e\r\n\xff\xfe\x01\xff\xfd\x2a\xff\xf9"
                             "f"s;
    const std::string keys = "ab\r\0\xff"
                             "cde\r\nf"s;
    const std::string answers = offers + "\xff\xfe\x1f\xff\xfe\x18\xff\xfc\x06\xff\xfe\x03"
                                         "\xff\xfc\x01\xff\xfc\x2a"s;
    for (std::size_t cut = 0; cut <= line.size(); ++cut) {
        Telnet telnet;
        std::string taken;
        telnet.receive(line.substr(0, cut), taken);
        telnet.receive(line.substr(cut), taken);
        EXPECT_EQ(taken, keys) << cut;
        EXPECT_EQ(telnet.takeForLine(), answers) << cut;
    }
    // Whatever follows the mark of a command, keys go on behind it.
    for (int command = 0; command < 256; ++command) {
        Telnet telnet;
        std::string taken;
        telnet.receive("\xff" + std::string(1, static_cast<char>(command)), taken);
        telnet.receive("\x01\xff\xf0", taken);
        telnet.receive("\xff\xf1x", taken);
        EXPECT_EQ(taken.back(), 'x') << command;
    }
}

TEST(Sockets, CarryAWholeCall) {
    const SocketCall call(tellKeys);
    EXPECT_EQ(call.next(), offers + "ready\xff\xff\n\r");
    for (const char byte : "\xff\xfd\x01\xff\xfd\x03q\r\0\xff\xfc\0"s) {
        call.send({byte});
    }
    call.send("\r\n\xff\xff\033[A");
    std::string shown;
    for (std::string more = "?"; shown.find("<127>") == std::string::npos && !more.empty();) {
        more = call.next();
        shown += more;
    }
    EXPECT_EQ(shown, "<113><13><13><255><127>");
}

TEST(Sockets, AreLeftWhenTheCallerIsGone) {
    for (const bool midway : {false, true}) {
        const Door door = [midway] {
            od_printf("ready");
            od_get_key(1);
            while (midway) {
                od_printf("%*s", 4000, "x");
                od_get_key(0);
            }
            tellKeys();
        };
        const SocketCall call(door);
        EXPECT_EQ(call.next(), offers + "ready");
        call.send("k");
        shutdown(call.socket, SHUT_RDWR);
        EXPECT_EQ(call.status(), 2);
    }
    const SocketCall ended([] { od_printf("end"); });
    EXPECT_EQ(ended.next(), offers + "end");
    EXPECT_EQ(ended.next(), "");
    EXPECT_EQ(ended.status(), 0);
}

TEST(Sockets, AreAskedForAnsiGraphics) {
    const Door door = [] {
        od_autodetect(1);
        od_printf("`red`%d", od_control.user_ansi);
        od_get_key(1);
    };
    const SocketCall call(door, {"-SOCKET=" + std::to_string(handedSocket)});
    EXPECT_EQ(call.next(), offers + "\033[6n");
    call.send("\xff\xfd\0\033[1;1R"s);
    EXPECT_EQ(call.next(), "\033[0;31m1");
}

TEST(Sockets, AreFoundByTheDropFileUnlessStandardStreamsAreWanted) {
    const Folder folder;
    const std::string handle = std::to_string(handedSocket);
    for (const std::string& path :
         {folder.write(door32.name, door32.with({{2, handle}})),
          folder.write(bbsdev.name, bbsdev.with({{2, "Socket"}, {3, handle}}))}) {
        const Door door = [] { od_printf("%s", od_control.user_name); };
        const SocketCall call(door, {"-ASCII", "-D", path});
        EXPECT_EQ(call.next(), offers + "J\x94rg Ace");
        const SocketCall streams(door, {"-ASCII", "-STDIO", "-D", path});
        EXPECT_EQ(streams.next(), "");
        EXPECT_EQ(streams.status(), 0);
    }
}
