#include "caller.h"

#include <sstream>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "call.h"
#include "text.h"

using namespace odoors;

namespace {

Options optionsOf(const std::string& commandLine) {
    std::istringstream words(commandLine);
    const Arguments arguments{std::istream_iterator<std::string>(words), {}};
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments) {
        pointers.push_back(argument.c_str());
    }
    return readOptions(pointers);
}

std::string refusalOf(const Door& action) {
    try {
        action();
    } catch (const Refusal& refusal) {
        return refusal.reason;
    }
    return "";
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
        EXPECT_NE(refusalOf([&] { optionsOf(line); }), "") << line;
    }
    const Outcome outcome = callWithKeys({"-LOCAL", "-FOO"}, "", [] {});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.complaints, std::string("unknown option -FOO\n") + usage);
    const Outcome help = callWithKeys({"-HELP"}, "", [] {});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.shown, usage);
}

TEST(CallerTest, IsReachedAsHeReallyCanBe) {
    std::array<int, 2> sockets{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets.data()), 0);
    const auto way = [](Route route, int handle, const char* option, Streams streams) {
        DropFile file;
        file.route = route;
        file.socket = handle;
        std::string reached;
        const std::string refusal = refusalOf([&] {
            const Caller caller = resolveCaller(optionsOf(option), file, streams);
            reached = caller.socket ? std::to_string(*caller.socket) : "streams";
        });
        return refusal.empty() ? reached : "refused";
    };
    const Streams nothing{true, false, false};
    const Streams terminal{true, true, true};
    const Streams closed{false, false, false};
    const std::string socket = std::to_string(sockets[0]);
    for (const int handle : {-1, 0, 1000, dup(STDERR_FILENO)}) {
        EXPECT_EQ(way(Route::socket, handle, "", nothing), "streams") << handle;
        EXPECT_EQ(way(Route::socket, handle, "", closed), "refused") << handle;
    }
    for (const Route route : {Route::socket, Route::unreachable}) {
        EXPECT_EQ(way(route, sockets[0], "-STDIO", nothing), "streams");
        EXPECT_EQ(way(route, sockets[1], ("-SOCKET " + socket).c_str(), nothing), socket);
        EXPECT_EQ(way(route, sockets[1], "-H0", nothing), "streams");
    }
    EXPECT_EQ(way(Route::socket, sockets[0], "", terminal), "streams");
    EXPECT_EQ(way(Route::socket, sockets[0], "", closed), socket);
    EXPECT_EQ(way(Route::standardStreams, sockets[0], "", nothing), "streams");
    EXPECT_EQ(way(Route::unreachable, sockets[0], "", nothing), "refused");
    close(sockets[0]);
    close(sockets[1]);
}

TEST(CallerTest, IsOverruledByOptions) {
    const DropFile file;
    EXPECT_EQ(resolveCaller({}, file, {}).inactivitySeconds, 300);
    EXPECT_EQ(resolveCaller(optionsOf("-INACTIVITY=2"), file, {}).inactivitySeconds, 2);
    EXPECT_EQ(resolveCaller({}, {}, {}).inactivitySeconds, 0);
    DropFile named;
    named.alias = "Ace";
    EXPECT_EQ(resolveCaller(optionsOf("-USERNAME="), named, {}).name, "");
    EXPECT_EQ(resolveCaller(optionsOf("-REALNAME"), named, {}).name, "Ace");
}
