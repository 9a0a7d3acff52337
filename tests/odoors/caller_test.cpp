// Who the caller is and how he is reached. The program's journeys start with drop files as boards
// write them; these are others.
#include "caller.h"

#include "board.h"
#include "call.h"

#include <sys/socket.h>

using namespace odoors;

namespace {

void expectRefusal(const BoardFile& file, const std::string& bytes, std::size_t line,
                   const std::string& reason) {
    EXPECT_THAT([&] { parseDropFile(file.name, bytes); },
                failsWith(file.name + ": line " + std::to_string(line) + ' ' + reason));
}

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

std::string nameFor(const Arguments& options) { return findCaller(optionsOf(options), {}).name; }

} // namespace

TEST(DropFileTest, AMissingLineIsNamed) {
    const auto lines = [](std::size_t count) { return std::string(count, '\n'); };
    expectRefusal(door32, lines(10), 11, "is missing; 11 lines are needed");
    expectRefusal(doorSys, lines(30), 31, "is missing; 31 lines are needed");
    expectRefusal(dorinfo, lines(11), 12, "is missing; 12 lines are needed");
    expectRefusal(chain, lines(31), 32, "is missing; 32 lines are needed");
    expectRefusal(bbsdev, lines(18), 19, "is missing; 19 lines are needed");
}

TEST(DropFileTest, ALineThatIsNotANumberIsNamed) {
    for (const char* text : {"", "x", "1x", "-", "+-1", "1 2", "1.5"}) {
        expectRefusal(door32, door32.with({{9, text}}), 9, "is not a number");
    }
    expectRefusal(doorSys, doorSys.with({{4, "A"}}), 4, "is not a number");
    expectRefusal(dorinfo, dorinfo.with({{10, "GR"}}), 10, "is not a number");
    expectRefusal(chain, chain.with({{16, "1.5x"}}), 16, "is not a number");
    expectRefusal(bbsdev, bbsdev.with({{18, ""}}), 18, "is not a number");
}

TEST(DropFileTest, BbsdevLinesOfAnotherFormAreNamed) {
    expectRefusal(bbsdev, bbsdev.with({{1, "2.0"}}), 1, "is an unknown version; 1.x is needed");
    expectRefusal(bbsdev, bbsdev.with({{2, "smoke"}}), 2, "is an unknown connection type");
    for (const char* time :
         {"soon", "2026-02-29T00:00:00Z", "2026-01-01T24:00:00Z", "2026-01-01 00:00:00Z"}) {
        expectRefusal(bbsdev, bbsdev.with({{11, time}}), 11,
                      "is not a time in UTC (YYYY-MM-DDTHH:MM:SSZ)");
    }
}

struct DropFileSearch : testing::Test {
    Folder folder;
    std::string path = folder.path();
};

TEST_F(DropFileSearch, TakesTheFirstKindInAnyLetterCase) {
    // From the last to the first.
    folder.write("chain.txt", chain.with({{2, "chain"}}));
    EXPECT_EQ(nameFor({"-D", path}), "chain");
    folder.write("Dorinfo1.Def", dorinfo.with({{7, "dorinfo"}, {8, "one"}}));
    EXPECT_EQ(nameFor({"-D", path, "-N3"}), "dorinfo one");
    folder.write("dorinfo3.def", dorinfo.with({{7, "dorinfo"}, {8, "three"}}));
    EXPECT_EQ(nameFor({"-D", path, "-N3"}), "dorinfo three");
    folder.write("DOOR.sys", doorSys.with({{36, "door.sys"}}));
    EXPECT_EQ(nameFor({"-D", path}), "door.sys");
    folder.write("door32.Sys", door32.with({{7, "door32"}}));
    EXPECT_EQ(nameFor({"-D", folder.path("DOOR32.SYS")}), "door32");
}

TEST_F(DropFileSearch, TellsWhatItDidNotFind) {
    folder.write(bbsdev.name, bbsdev.with());
    const Arguments here{"-D", path};
    EXPECT_THAT([&] { nameFor(here); }, failsWith(path + ": no drop file in this directory"));
    const Arguments device{"-D", "/dev/null"};
    EXPECT_THAT([&] { nameFor(device); },
                failsWith("/dev/null: is a pipe or a device, not a file"));
    folder.write("other.sys", door32.with());
    const Arguments other{"-D", folder.path("other.sys")};
    EXPECT_THAT([&] { nameFor(other); },
                failsWith(other[1] + ": is not the name of a known drop file"));
}

TEST_F(DropFileSearch, PassesOverAByteOrderMark) {
    folder.write(door32.name, "\xef\xbb\xbf" + door32.with());
    EXPECT_EQ(nameFor({"-D", path}), jorg);
}

TEST_F(DropFileSearch, BeginsWithTheEnvironmentThenTheStartDirectory) {
    ASSERT_EQ(chdir(path.c_str()), 0);
    folder.write(door32.name, door32.with());
    EXPECT_EQ(nameFor({}), jorg);
    folder.write("call.7", bbsdev.with({{4, "Bea"}}));
    setenv("BBSDEV_DRP", "call.7", 1);
    EXPECT_EQ(nameFor({}), "Bea");
    EXPECT_EQ(nameFor({"-D", "."}), jorg);
    unsetenv("BBSDEV_DRP");
    ASSERT_EQ(chdir("/"), 0);
}

TEST(Reaching, UsesAnOpenSocketUnlessThereIsATerminal) {
    EXPECT_EQ(reached(Route::socket, openSocket, closed), openSocket);
    EXPECT_EQ(reached(Route::socket, openSocket, terminal), std::nullopt);
    EXPECT_EQ(reached(Route::socket, 1000, pipes), std::nullopt);
    EXPECT_THAT([] { reached(Route::socket, 1000, closed); },
                failsWith("cannot reach the caller: standard input or output is closed"));
}

TEST(Reaching, GoesByTheOptionsFirst) {
    const std::string handle = std::to_string(openSocket);
    EXPECT_EQ(reached(Route::unreachable, 0, pipes, {"-STDIO"}), std::nullopt);
    EXPECT_EQ(reached(Route::unreachable, 0, terminal, {"-SOCKET", handle}), openSocket);
    EXPECT_EQ(reached(Route::socket, openSocket, pipes, {"-H0"}), std::nullopt);
}

TEST(CallerTest, HasFiveMinutesForAKeyUnlessAtHome) {
    EXPECT_EQ(resolveCaller({}, DropFile(), {}).inactivitySeconds, 300);
    EXPECT_EQ(resolveCaller(optionsOf({"-INACTIVITY=2"}), DropFile(), {}).inactivitySeconds, 2);
    EXPECT_EQ(resolveCaller({}, {}, {}).inactivitySeconds, 0);
    EXPECT_FALSE(resolveCaller({}, {}, {}).timed);
}

TEST(CallerTest, HasANameOfAtMost35BytesInCp437) {
    EXPECT_EQ(nameFor({"-LOCAL", "-USERNAME="}), "");
    EXPECT_EQ(nameFor({"-LOCAL", "-USERNAME", std::string(40, 'x')}), std::string(35, 'x'));
    EXPECT_EQ(nameFor({"-LOCAL", "-CHARSET=utf8", "-USERNAME=J\xc3\xb6rg"}), "J\x94rg");
}

TEST(CallerTest, AtADumbTerminalHasNoAnsiGraphicsAndIsNotAsked) {
    setenv("TERM", "dumb", 1);
    EXPECT_EQ(resolveCaller({}, {}, {}).ansi, false);
    const Caller asked = resolveCaller(optionsOf({"-GRAPHICS"}), {}, {});
    EXPECT_TRUE(asked.ansi == true && !asked.charsetGuessed);
    const Caller ofBoard = resolveCaller({}, DropFile(), {});
    EXPECT_TRUE(!ofBoard.ansi && ofBoard.charsetGuessed) << "another terminal";
    setenv("TERM", "xterm", 1);
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
