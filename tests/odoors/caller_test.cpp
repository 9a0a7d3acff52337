// Who the caller is and how he is reached.
#include "caller.h"

#include "call.h"

#include <sys/socket.h>

using namespace odoors;

namespace {

const Streams closed{.open = false};
const Streams pipes{};
const Streams terminal{.inputIsTerminal = true};
const int openSocket = socket(AF_UNIX, SOCK_STREAM, 0);

// The socket by which a board's caller is reached; none: standard input and output.
std::optional<int> reached(Route route, int handle, const Streams& streams,
                           const Arguments& options = {}) {
    DropFile file;
    file.route = route;
    file.socket = handle;
    return resolveCaller(optionsOf(options), file, streams).socket;
}

} // namespace

TEST(Reaching, UsesAnOpenSocketUnlessThereIsATerminal) {
    EXPECT_EQ(reached(Route::socket, openSocket, closed), openSocket);
    EXPECT_EQ(reached(Route::socket, openSocket, terminal), std::nullopt);
    EXPECT_EQ(reached(Route::socket, 1000, pipes), std::nullopt);
}

TEST(Reaching, GoesByTheOptionsFirst) {
    const std::string handle = std::to_string(openSocket);
    EXPECT_EQ(reached(Route::unreachable, 0, pipes, {"-STDIO"}), std::nullopt);
    EXPECT_EQ(reached(Route::unreachable, 0, terminal, {"-SOCKET", handle}), openSocket);
    EXPECT_EQ(reached(Route::socket, openSocket, pipes, {"-H0"}), std::nullopt);
}

TEST(Reaching, FailsOverASerialLineOrClosedStreams) {
    EXPECT_EQ(reasonOf([] { reached(Route::unreachable, 0, pipes); }),
              "cannot reach the caller: serial lines are not supported; see -STDIO");
    EXPECT_EQ(reasonOf([] { reached(Route::socket, 1000, closed); }),
              "cannot reach the caller: standard input or output is closed");
}

TEST(CallerTest, HasFiveMinutesForAKeyUnlessAtHome) {
    EXPECT_EQ(resolveCaller({}, DropFile(), {}).inactivitySeconds, 300);
    EXPECT_EQ(resolveCaller(optionsOf({"-INACTIVITY=2"}), DropFile(), {}).inactivitySeconds, 2);
    EXPECT_EQ(resolveCaller({}, {}, {}).inactivitySeconds, 0);
    EXPECT_FALSE(resolveCaller({}, {}, {}).timed);
}

TEST(CallerTest, HasANameOfAtMost35BytesInCp437) {
    const auto nameFor = [](const Arguments& options) {
        return resolveCaller(optionsOf(options), {}, {}).name;
    };
    EXPECT_EQ(nameFor({"-USERNAME="}), "");
    EXPECT_EQ(nameFor({"-USERNAME", std::string(40, 'x')}), std::string(35, 'x'));
    EXPECT_EQ(nameFor({"-CHARSET=utf8", "-USERNAME=J\xc3\xb6rg"}), "J\x94rg");
}

TEST(CallerTest, AtHomeHasTheCharacterSetOfTheEnvironment) {
    const auto charsetFor = [](const char* everything, const char* language) {
        setenv("LC_ALL", everything, 1);
        unsetenv("LC_CTYPE");
        setenv("LANG", language, 1);
        return resolveCaller({}, {}, {}).charset;
    };
    EXPECT_EQ(charsetFor("", "de_DE.UTF-8@euro"), Charset::utf8);
    EXPECT_EQ(charsetFor("C.utf8", "C"), Charset::utf8);
    EXPECT_EQ(charsetFor("C", "de_DE.UTF-8"), Charset::cp437);
}

TEST(CallerTest, IsToldToTheProgram) {
    const Arguments options{"-LOCAL", "-USERNAME=Joe", "-NODE=7", "-TIMELEFT=99999999"};
    const Door tell = [] {
        od_printf("%s %d %d", od_control.user_name, od_control.od_node, od_control.user_timelimit);
    };
    EXPECT_EQ(callWithKeys(options, "", tell).shown, "Joe 7 32767");
}
