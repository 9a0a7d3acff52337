#include "caller.h"

#include <fcntl.h>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "OpenDoor.h"
#include "call.h"
#include "door32.h"
#include "text.h"

using namespace odoors;

namespace {

Options optionsOf(const std::vector<const char*>& arguments) {
    return readOptions(arguments);
}

std::string refusalOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Refusal& refusal) {
        return refusal.reason;
    }
    return "";
}

const std::vector<std::string> usualLines{"0",   "-1", "38400", "Board 1", "7", "Alice Doe \t",
                                          "Ace", "50", "45",    "1",       "3"};

std::string fileOf(const std::vector<std::string>& lines, const std::string& lineEnd = "\r\n") {
    std::string bytes;
    for (const std::string& line : lines) {
        bytes += line + lineEnd;
    }
    return bytes;
}

DropFile readLines(const std::string& bytes) {
    return readDoor32(DropLines("d", bytes));
}

DropFile readWith(std::size_t line, const std::string& text) {
    std::vector<std::string> lines = usualLines;
    lines[line - 1] = text;
    return readLines(fileOf(lines, "\n"));
}

} // namespace

TEST(OptionsTest, AreReadInEveryForm) {
    const Options options =
        optionsOf({"--dropfile", "-x", "/UserName=", "-RealName", "-timeleft=99999999999999999999",
                   "-N2", "-h", "-1", "/stdio", "-graphics", "-charset", "UTF8", "-inactivity=0",
                   "--onecaller", "a=b"});
    EXPECT_EQ(options.dropFile, "-x");
    EXPECT_EQ(options.userName, "");
    EXPECT_TRUE(options.realName && options.standardStreams);
    EXPECT_EQ(options.minutesLeft, 10'000'000'000'000);
    EXPECT_EQ(options.node, 2);
    EXPECT_EQ(options.handle, -1);
    EXPECT_EQ(options.ansi, true);
    EXPECT_EQ(options.charset, Charset::utf8);
    EXPECT_EQ(options.inactivitySeconds, 0);
    EXPECT_EQ(options.lockFile, "a=b");
    EXPECT_FALSE(options.local || options.help);

    EXPECT_EQ(optionsOf({"-D/path=x"}).dropFile, "/path=x");
    EXPECT_EQ(optionsOf({"-d=here", "-L", "-ascii"}).dropFile, "here");
    EXPECT_EQ(optionsOf({"-SOCKET=5", "-H6"}).handle, 6);
    EXPECT_TRUE(optionsOf({"-?", "-nonsense"}).help);
    EXPECT_FALSE(optionsOf({"-charset", "utf8", "-charset=auto"}).charset);
}

TEST(OptionsTest, WrongOnesAreRefused) {
    for (const auto& arguments : std::vector<std::vector<const char*>>{{"local"},
                                                                       {"-"},
                                                                       {"--"},
                                                                       {""},
                                                                       {"-locals"},
                                                                       {"-LOCAL=1"},
                                                                       {"-DROPFILE"},
                                                                       {"-N"},
                                                                       {"-USERNAME"},
                                                                       {"-TIMELEFT", "ten"},
                                                                       {"-TIMELEFT=-1"},
                                                                       {"-N2x"},
                                                                       {"-NODE="},
                                                                       {"-HANDLE", "99999999999"},
                                                                       {"-INACTIVITY", "1.5"},
                                                                       {"-CHARSET", "latin1"}}) {
        EXPECT_NE(refusalOf([&] { readOptions(arguments); }), "") << arguments[0];
    }
    const Outcome outcome = callWithKeys({"-LOCAL", "-FOO"}, "", [] {});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.complaints, std::string("unknown option -FOO\n") + usage);
    const Outcome help = callWithKeys({"-HELP"}, "", [] {});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.shown, usage);
}

TEST(Door32, HoldsTheCaller) {
    for (const char* lineEnd : {"\n", "\r\n"}) {
        std::string bytes = fileOf(usualLines, lineEnd);
        bytes.pop_back();
        const DropFile file = readLines(bytes);
        EXPECT_EQ(file.realName, "Alice Doe");
        EXPECT_EQ(file.alias, "Ace");
        EXPECT_EQ(file.secondsLeft, 45 * 60);
        EXPECT_EQ(file.ansi, true);
        EXPECT_EQ(file.node, 3);
        EXPECT_EQ(file.route, Route::standardStreams);
    }
    EXPECT_EQ(readWith(4, "WWIV v5").secondsLeft, 45);
    EXPECT_EQ(readWith(9, "99999999999999999999").secondsLeft, 600'000'000'000'000);
    EXPECT_EQ(readWith(10, "0").ansi, false);
    EXPECT_EQ(readWith(10, "4").ansi, true);
    EXPECT_EQ(readWith(1, "1").route, Route::unreachable);
    EXPECT_EQ(readWith(1, "2").route, Route::socket);
}

TEST(Door32, WrongFilesAreRefusedByLine) {
    const std::string whole = fileOf(usualLines);
    for (std::size_t length = 0; length < whole.size() - 2; ++length) {
        const std::string cut = whole.substr(0, length);
        const auto lines = std::count(cut.begin(), cut.end(), '\n');
        const auto missing = lines + (length > 0 && cut.back() != '\n' ? 2 : 1);
        const std::string reason =
            "d: line " + std::to_string(missing) + " is missing; 11 lines are needed";
        EXPECT_EQ(refusalOf([&] { readLines(cut); }), missing > 11 ? "" : reason) << length;
    }
    for (const std::size_t line : {1U, 2U, 9U, 10U, 11U}) {
        for (const char* text : {"", "x", "1x", "-", "1 2", "0x1", "1.5"}) {
            EXPECT_EQ(refusalOf([&] { readWith(line, text); }),
                      "d: line " + std::to_string(line) + " is no number");
        }
    }
}

TEST(CallerTest, OptionsWinOverTheDropFile) {
    DropFile file = readLines(fileOf(usualLines));
    const Streams pipes;
    Caller caller = resolveCaller({}, file, pipes);
    EXPECT_EQ(caller.name, "Ace");
    EXPECT_EQ(caller.secondsLeft, 2700);
    EXPECT_TRUE(caller.timed);
    EXPECT_EQ(caller.inactivitySeconds, 300);
    EXPECT_EQ(resolveCaller(optionsOf({"-REALNAME"}), file, pipes).name, "Alice Doe");
    caller = resolveCaller(
        optionsOf({"-USERNAME", "", "-TIMELEFT", "7", "-N9", "-ASCII", "-INACTIVITY=2"}), file,
        pipes);
    EXPECT_EQ(caller.name, "");
    EXPECT_EQ(caller.secondsLeft, 420);
    EXPECT_EQ(caller.node, 9);
    EXPECT_EQ(caller.ansi, false);
    EXPECT_EQ(caller.inactivitySeconds, 2);
    file.alias.clear();
    EXPECT_EQ(resolveCaller({}, file, pipes).name, "Alice Doe");
    file.alias = std::string(40, 'x');
    EXPECT_EQ(resolveCaller({}, file, pipes).name, std::string(35, 'x'));
    file.realName.clear();
    EXPECT_EQ(resolveCaller(optionsOf({"-REALNAME"}), file, pipes).name, std::string(35, 'x'));
}

TEST(CallerTest, IsReachedAsTheBoardReallyMeans) {
    std::array<int, 2> sockets{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets.data()), 0);
    DropFile file;
    file.route = Route::socket;
    const Streams pipes;
    const Streams terminal{true, true, true};
    for (const int handle : {-1, 0, 1000, open("/dev/null", O_RDONLY)}) {
        file.socket = handle;
        EXPECT_EQ(refusalOf([&] { resolveCaller({}, file, pipes); }), "") << handle;
    }
    file.socket = sockets[0];
    EXPECT_EQ(refusalOf([&] { resolveCaller({}, file, terminal); }), "");
    EXPECT_EQ(refusalOf([&] { resolveCaller(optionsOf({"-STDIO"}), file, pipes); }), "");
    EXPECT_NE(refusalOf([&] { resolveCaller({}, file, pipes); }), "");
    file.route = Route::unreachable;
    EXPECT_NE(refusalOf([&] { resolveCaller({}, file, pipes); }), "");
    EXPECT_EQ(refusalOf([&] { resolveCaller(optionsOf({"-H0"}), file, pipes); }), "");
    EXPECT_NE(refusalOf([&] {
                  resolveCaller(optionsOf({"-LOCAL"}), {}, {false, false, false});
              }),
              "");
    close(sockets[0]);
    close(sockets[1]);
}

TEST(CallerTest, DropFileIsFoundInAnyLetterCase) {
    const Folder folder;
    const auto showName = [] {
        od_printf("%s,%d", od_control.user_name, od_control.user_timelimit);
    };
    const std::string file = folder.write("door32.Sys", fileOf(usualLines));
    for (const std::string& path : {folder.path(), file, folder.path("DOOR32.SYS")}) {
        EXPECT_EQ(callWithKeys({"-D", path}, "", showName).shown, "\033[0;37mAce,45\033[0m");
    }
    EXPECT_EQ(callWithKeys({"-D" + folder.path(), "-L", "-TIMELEFT=40000"}, "", showName).shown,
              "newcomer,32767");
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    EXPECT_EQ(callWithKeys({"-ASCII"}, "", showName).shown, "Ace,45");
    unlink(file.c_str());
    for (const Arguments& arguments :
         std::vector<Arguments>{{}, {"-D", folder.path()}, {"-D", file}, {"-D", "/dev/null"}}) {
        const Outcome outcome = callWithKeys(arguments, "", showName);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.shown, "");
        EXPECT_EQ(std::count(outcome.complaints.begin(), outcome.complaints.end(), '\n'), 1);
    }
    ASSERT_EQ(chdir("/"), 0);
}

TEST(CallerTest, LocalTerminalShowsWhatItsLocaleSays) {
    const auto charsetWith = [](const char* all, const char* ctype, const char* lang) {
        setenv("LC_ALL", all, 1);
        setenv("LC_CTYPE", ctype, 1);
        setenv("LANG", lang, 1);
        return resolveCaller(optionsOf({"-USERNAME", "\xc3\xb6"}), {}, {}).name;
    };
    EXPECT_EQ(charsetWith("", "", "de_DE.UTF-8"), "\x94");
    EXPECT_EQ(charsetWith("", "de_DE.utf8@euro", "C"), "\x94");
    EXPECT_EQ(charsetWith("C", "", "de_DE.UTF-8"), "\xc3\xb6");
    EXPECT_EQ(charsetWith("", "", "UTF-8"), "\x94");
    EXPECT_EQ(resolveCaller(optionsOf({"-H0"}), {}, {}).charset, Charset::cp437);
}
