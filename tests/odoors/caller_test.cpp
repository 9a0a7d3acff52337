// Who the caller is and how he is reached: options, and drop files as boards should not write them;
// the program's own journeys start with each kind of them as they do.
#include "caller.h"

#include "board.h"
#include "call.h"
#include "startup_error.h"

#include <cstring>

#include <sys/socket.h>

using namespace odoors;

namespace {

Options optionsOf(const std::string& line) {
    std::istringstream words(line);
    const Arguments arguments{std::istream_iterator<std::string>(words), {}};
    Options options;
    readOptions({commandLine(arguments).data() + 1, arguments.size()}, options);
    return options;
}

void tellCaller() {
    const int ansi = std::exchange(od_control.user_ansi, '\0');
    od_printf("%s,%d,%d,%d", od_control.user_name, od_control.user_timelimit, ansi,
              od_control.od_node);
}

struct DropFiles : testing::Test {
    Folder folder;

    // What a session with this drop file or directory knows of its caller, or why there is none.
    static std::string told(const std::string& path, Arguments more = {}) {
        if (!path.empty()) {
            more.insert(more.end(), {"-D", path});
        }
        const Outcome outcome = callWithKeys(more, "", tellCaller);
        EXPECT_EQ(outcome.shown.empty(), outcome.status == 1);
        return outcome.shown + outcome.complaints;
    }

    // The line for which a file with these bytes is refused, and why.
    std::string refusal(const BoardFile& file, const std::string& bytes) const {
        const std::string complaint = told(folder.write(file.name, bytes));
        EXPECT_TRUE(complaint.starts_with(folder.path(file.name) + ": line "));
        return complaint.substr(folder.path(file.name).size() + 7);
    }

    // A file of this kind must have so many lines, and numbers in these.
    void expectRefusals(const BoardFile& file, std::size_t needed,
                        const std::vector<std::size_t>& numbers) const {
        std::string lines;
        for (std::size_t next = 1; next <= needed; ++next) {
            EXPECT_EQ(refusal(file, lines), std::to_string(next) + " is missing; " +
                                                std::to_string(needed) + " lines are needed\n");
            lines += "1\n";
        }
        for (const std::size_t line : numbers) {
            for (const char* text : {"", "x", "1x", "-", "1 2", "0x1", "1.5x"}) {
                EXPECT_EQ(refusal(file, file.with({{line, text}})),
                          std::to_string(line) + " is not a number\n");
            }
        }
    }
};

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
        EXPECT_THROW(optionsOf(line), StartupError) << line;
    }
}

TEST(OptionsTest, HelpAndVersionArePrintedInsteadOfACall) {
    const Outcome help = callWithKeys({"-HELP"}, "", [] {});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.shown, usage);
    std::istringstream lines(help.shown);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LT(line.size(), 80U) << line;
    }
    const Outcome version = runWithKeys(
        [] {
            std::strcpy(od_control.od_prog_name, "Chess");
            std::strcpy(od_control.od_prog_version, "2.5");
            doorChild({"-VERSION", "-NONSENSE"}, [] {})();
        },
        "");
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.shown, "Chess 2.5\n");
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
    const Streams closed{false, false};
    const Streams terminal{true, true};
    EXPECT_EQ(reached(Route::socket, socket, "", terminal), 0);
    EXPECT_EQ(reached(Route::socket, socket, "", closed), socket);
    EXPECT_EQ(reached(Route::socket, dup(STDERR_FILENO), "", {}), 0);
    EXPECT_THROW(reached(Route::socket, 1000, "", closed), StartupError);
    EXPECT_EQ(reached(Route::unreachable, 0, "-STDIO", {}), 0);
    EXPECT_EQ(reached(Route::unreachable, 0, "-SOCKET " + std::to_string(socket), terminal),
              socket);
    EXPECT_EQ(reached(Route::socket, socket, "-H0", {}), 0);
    close(socket);
    // How long he may wait.
    EXPECT_EQ(resolveCaller({}, DropFile(), {}).inactivitySeconds, 300);
    EXPECT_EQ(resolveCaller(optionsOf("-INACTIVITY=2"), DropFile(), {}).inactivitySeconds, 2);
    EXPECT_EQ(resolveCaller(optionsOf("-USERNAME="), {}, {}).inactivitySeconds, 0);
    EXPECT_EQ(resolveCaller(optionsOf("-USERNAME="), {}, {}).name, "");
}

TEST_F(DropFiles, AreRefusedByLine) {
    expectRefusals(door32, 11, {1, 2, 9, 10, 11});
    expectRefusals(doorSys, 31, {4, 19});
    expectRefusals(dorinfo, 12, {10, 12});
    expectRefusals(chain, 32, {14, 16});
    expectRefusals(bbsdev, 19, {18});
    for (const std::string other : {"1=2.0", "1=10.0", "1=\xef\xbb\xbf\x31.0", "2=", "2=smoke",
                                    "11=soon", "11=2026-02-29T00:00:00Z", "11=2026-01-01T24:00:00Z",
                                    "11=2026-01-01T00:00:00", "11=2026-01-01 00:00:00Z"}) {
        const std::size_t middle = other.find('=');
        const std::string bytes = bbsdev.with({{std::stoul(other), other.substr(middle + 1)}});
        EXPECT_EQ(refusal(bbsdev, bytes).find(other.substr(0, middle) + " is "), 0U) << other;
    }
}

TEST_F(DropFiles, AreFoundInTheirOrderInAnyLetterCase) {
    folder.write(bbsdev.name, bbsdev.with());
    EXPECT_EQ(told(folder.path()), folder.path() + ": no drop file in this directory\n");
    // From the last to the first, so that each new one comes before those that are there.
    folder.write("chain.txt", chain.with({{2, "chain"}}));
    EXPECT_EQ(told(folder.path(), {"-N9"}), "chain,45,1,9");
    folder.write("Dorinfo1.Def", dorinfo.with({{8, "one"}}));
    folder.write("dorinfo3.def", dorinfo.with());
    EXPECT_EQ(told(folder.path()), "J\x94rg one,45,1,1");
    EXPECT_EQ(told(folder.path("DORINFO3.DEF")), jorg + ",45,1,3");
    EXPECT_EQ(told(folder.path(), {"-N", "3"}), jorg + ",45,1,3");
    folder.write("DOOR.sys", doorSys.with({{36, "sys"}}));
    EXPECT_EQ(told(folder.path()), "sys,45,1,3");
    folder.write("door32.Sys", door32.with({{7, std::string(40, 'x')}, {11, "99999999999"}}));
    EXPECT_EQ(told(folder.path()), std::string(35, 'x') + ",45,1,2147483647");
}

TEST_F(DropFiles, OfTheStartDirectoryAreUsedUnasked) {
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    for (const char* path : {"", ".", "none", "/dev/null", "DOOR32.SYS"}) {
        const std::string complaint = told(path);
        EXPECT_EQ(complaint.find(jorg), std::string::npos);
        EXPECT_EQ(complaint.find('\n'), complaint.size() - 1);
    }
    folder.write(door32.name, door32.with());
    EXPECT_EQ(told(""), jorg + ",45,1,3");
    // The one that the board names in the environment comes first.
    folder.write("call.7", bbsdev.with({{12, "utf-8"}, {18, "7"}}));
    setenv("BBSDEV_DRP", "call.7", 1);
    EXPECT_EQ(told(""), "J\xc3\xb6rg Ace,45,1,7");
    setenv("BBSDEV_DRP", "/none", 1);
    EXPECT_EQ(told(""), "/none: cannot be read: No such file or directory\n");
    unsetenv("BBSDEV_DRP");
    ASSERT_EQ(chdir("/"), 0);
}
