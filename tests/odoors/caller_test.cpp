#include "caller.h"

#include <sstream>

#include <sys/socket.h>

#include "call.h"
#include "text.h"

using namespace odoors;

namespace {

Options optionsOf(const std::string& line) {
    std::istringstream words(line);
    const Arguments arguments{std::istream_iterator<std::string>(words), {}};
    return readOptions({commandLine(arguments).data() + 1, arguments.size()});
}

} // namespace

TEST(OptionsTest, AreReadInEveryForm) {
    const Options options =
        optionsOf("--dropfile -x /UserName= -RealName -N2 -h -1 /stdio "
                  "-timeleft=99999999999999999999 -charset UTF8 --onecaller a=b");
    EXPECT_EQ(options.dropFile, "-x");
    EXPECT_EQ(options.userName, "");
    EXPECT_TRUE(options.realName && options.standardStreams);
    EXPECT_EQ(options.minutesLeft, 10'000'000'000'000);
    EXPECT_EQ(options.node, 2);
    EXPECT_EQ(options.handle, -1);
    EXPECT_EQ(options.charset, Charset::utf8);
    EXPECT_EQ(options.lockFile, "a=b");
    EXPECT_EQ(optionsOf("-D/path=x").dropFile, "/path=x");
    EXPECT_EQ(optionsOf("-d=here -L -ascii").dropFile, "here");
    EXPECT_EQ(optionsOf("-SOCKET=5 -H6").handle, 6);
    EXPECT_TRUE(optionsOf("-? -nonsense").help);
    EXPECT_FALSE(optionsOf("-charset utf8 -charset=auto").charset);
}

TEST(OptionsTest, WrongOnesAreRefused) {
    for (const char* line : {"local", "-", "--", "-locals", "-LOCAL=1", "-DROPFILE", "-N", "-N2x",
                             "-NODE=", "-TIMELEFT ten", "-TIMELEFT=-1", "-HANDLE 99999999999",
                             "-INACTIVITY 1.5", "-CHARSET latin1"}) {
        EXPECT_THROW(optionsOf(line), Refusal) << line;
    }
    const Outcome help = callWithKeys({"-HELP"}, "", [] {});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.shown, usage);
}

TEST(CallerTest, IsReachedAsHeReallyCanBe) {
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    // The socket; 0: standard input and output.
    const auto reached = [](Route route, int handle, const std::string& option, Streams streams) {
        DropFile file;
        file.route = route;
        file.socket = handle;
        return resolveCaller(optionsOf(option), file, streams).socket.value_or(0);
    };
    const Streams closed{false, false, false};
    EXPECT_EQ(reached(Route::socket, socket, "", {true, true, true}), 0);
    EXPECT_EQ(reached(Route::socket, socket, "", closed), socket);
    EXPECT_EQ(reached(Route::socket, dup(STDERR_FILENO), "", {}), 0);
    EXPECT_THROW(reached(Route::socket, 1000, "", closed), Refusal);
    EXPECT_EQ(reached(Route::unreachable, 0, "-STDIO", {}), 0);
    EXPECT_EQ(reached(Route::unreachable, 0, "-SOCKET " + std::to_string(socket), {}), socket);
    EXPECT_EQ(reached(Route::socket, socket, "-H0", {}), 0);
    close(socket);
    // How long he may wait.
    EXPECT_EQ(resolveCaller({}, DropFile(), {}).inactivitySeconds, 300);
    EXPECT_EQ(resolveCaller(optionsOf("-INACTIVITY=2"), DropFile(), {}).inactivitySeconds, 2);
    EXPECT_EQ(resolveCaller(optionsOf("-USERNAME="), {}, {}).inactivitySeconds, 0);
    EXPECT_EQ(resolveCaller(optionsOf("-USERNAME="), {}, {}).name, "");
}
