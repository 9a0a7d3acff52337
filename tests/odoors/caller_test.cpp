// Who the caller is and how he is reached.
#include "caller.h"

#include "board.h"
#include "call.h"
#include "reading.h"

#include <fcntl.h>
#include <sys/socket.h>

using namespace odoors;

namespace {

struct ReachingTest : testing::Test {
    ~ReachingTest() override {
        close(socket);
        close(file);
    }

    // The socket by which the caller of this drop file is reached; none: standard input and output.
    static std::optional<int> reached(Route route, int handle, const Streams& streams,
                                      const Arguments& options = {}) {
        DropFile file;
        file.route = route;
        file.socket = handle;
        return resolveCaller(optionsOf(options), file, streams).socket;
    }

    int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    int file = open("/dev/null", O_RDONLY);
    Streams closed{.open = false};
    Streams pipes{};
    Streams terminal{.inputIsTerminal = true};
};

} // namespace

TEST_F(ReachingTest, ASocketIsUsedWhenItIsOpenAndThereIsNoTerminal) {
    EXPECT_EQ(reached(Route::socket, socket, closed), socket);
    EXPECT_EQ(reached(Route::socket, socket, terminal), std::nullopt);
    EXPECT_EQ(reached(Route::socket, file, pipes), std::nullopt);
    EXPECT_EQ(reached(Route::socket, 1000, pipes), std::nullopt);
}

TEST_F(ReachingTest, OptionsGoBeforeTheDropFile) {
    EXPECT_EQ(reached(Route::unreachable, 0, pipes, {"-STDIO"}), std::nullopt);
    EXPECT_EQ(reached(Route::unreachable, 0, terminal, {"-SOCKET", std::to_string(socket)}),
              socket);
    EXPECT_EQ(reached(Route::socket, socket, pipes, {"-H0"}), std::nullopt);
}

TEST_F(ReachingTest, NobodyIsReachedOverASerialLineOrClosedStreams) {
    EXPECT_EQ(reasonOf([&] { reached(Route::unreachable, 0, pipes); }),
              "cannot reach the caller: serial lines are not supported; see -STDIO");
    EXPECT_EQ(reasonOf([&] { reached(Route::socket, 1000, closed); }),
              "cannot reach the caller: standard input or output is closed");
}

TEST(CallerTest, WaitsForFiveMinutesOnABoardAndForEverAtHome) {
    EXPECT_EQ(resolveCaller({}, DropFile(), {}).inactivitySeconds, 300);
    EXPECT_EQ(resolveCaller(optionsOf({"-INACTIVITY=2"}), DropFile(), {}).inactivitySeconds, 2);
    EXPECT_EQ(resolveCaller({}, {}, {}).inactivitySeconds, 0);
}

TEST(CallerTest, HasANameOfAtMost35BytesInCp437) {
    EXPECT_EQ(resolveCaller(optionsOf({"-USERNAME="}), {}, {}).name, "");
    const std::string longName(40, 'x');
    EXPECT_EQ(resolveCaller(optionsOf({"-USERNAME", longName}), {}, {}).name,
              longName.substr(0, 35));
    const Caller caller =
        resolveCaller(optionsOf({"-CHARSET=utf8", "-USERNAME=J\xc3\xb6rg"}), {}, {});
    EXPECT_EQ(caller.name, "J\x94rg");
}

TEST(CallerTest, IsToldToTheProgram) {
    const Outcome outcome = callWithKeys(
        {"-LOCAL", "-USERNAME", "J\x94rg", "-NODE=2147483647", "-TIMELEFT=99999999"}, "", [] {
            od_printf("%s, node %d, %d minutes", od_control.user_name, od_control.od_node,
                      od_control.user_timelimit);
        });
    EXPECT_EQ(outcome.shown, "J\x94rg, node 2147483647, 32767 minutes");
}
