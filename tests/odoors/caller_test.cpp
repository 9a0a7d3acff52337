#include "caller.h"

#include <sstream>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "OpenDoor.h"
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

// A DOOR32.SYS with another text in one of its lines.
std::string fileWith(std::size_t line = 3, const std::string& text = "38400") {
    std::vector<std::string> lines{"0",   "-1", "38400", "Board 1", "7", "Alice Doe \t",
                                   "Ace", "50", "45",    "1",       "3"};
    lines[line - 1] = text;
    std::string bytes;
    for (const std::string& each : lines) {
        bytes += each + "\r\n";
    }
    return bytes;
}

struct DropFiles : testing::Test {
    Folder folder;

    DropFile read(const std::string& bytes) const {
        return readDropFile(folder.write("door32.sys", bytes)).value();
    }

    Caller callerWith(const std::string& options, const std::string& bytes = fileWith()) const {
        return resolveCaller(optionsOf(options), read(bytes), {});
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
        EXPECT_NE(refusalOf([&] { optionsOf(line); }), "") << line;
    }
    const Outcome outcome = callWithKeys({"-LOCAL", "-FOO"}, "", [] {});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.complaints, std::string("unknown option -FOO\n") + usage);
    const Outcome help = callWithKeys({"-HELP"}, "", [] {});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.shown, usage);
}

TEST_F(DropFiles, HoldTheCaller) {
    std::string unixFile = fileWith();
    std::erase(unixFile, '\r');
    for (const std::string& bytes : {fileWith(), unixFile.substr(0, unixFile.size() - 1)}) {
        const Caller caller = callerWith("-STDIO", bytes);
        EXPECT_EQ(caller.name, "Ace");
        EXPECT_EQ(caller.secondsLeft, 2700);
        EXPECT_EQ(caller.ansi, true);
        EXPECT_EQ(caller.node, 3);
        EXPECT_EQ(caller.inactivitySeconds, 300);
    }
    EXPECT_EQ(read(fileWith(4, "WWIV v5")).secondsLeft, 45);
    EXPECT_EQ(read(fileWith(9, "99999999999999999999")).secondsLeft, 600'000'000'000'000);
    EXPECT_EQ(read(fileWith(10, "0")).ansi, false);
    EXPECT_EQ(read(fileWith(10, "4")).ansi, true);
}

TEST_F(DropFiles, AreOverruledByOptions) {
    const Caller caller = callerWith("-TIMELEFT 7 -N9 -ASCII -INACTIVITY=2 -REALNAME");
    EXPECT_EQ(caller.name, "Alice Doe");
    EXPECT_EQ(caller.secondsLeft, 420);
    EXPECT_EQ(caller.node, 9);
    EXPECT_EQ(caller.ansi, false);
    EXPECT_EQ(caller.inactivitySeconds, 2);
    EXPECT_EQ(resolveCaller({}, {}, {}).inactivitySeconds, 0);
    EXPECT_EQ(callerWith("-USERNAME=").name, "");
    EXPECT_EQ(callerWith("-STDIO", fileWith(7, " ")).name, "Alice Doe");
    EXPECT_EQ(callerWith("-REALNAME", fileWith(6, "")).name, "Ace");
    EXPECT_EQ(callerWith("-STDIO", fileWith(7, std::string(40, 'x'))).name, std::string(35, 'x'));
}

TEST_F(DropFiles, AreRefusedByLine) {
    const auto reason = [this](std::size_t line, const char* what) {
        const std::string start = folder.path("door32.sys") + ": line ";
        return start + std::to_string(line) + what;
    };
    const std::string whole = fileWith();
    for (std::size_t length = 0; length < whole.size() - 2; ++length) {
        const std::string cut = whole.substr(0, length);
        const auto ended = static_cast<std::size_t>(std::count(cut.begin(), cut.end(), '\n'));
        const std::size_t lines = ended + (cut.empty() || cut.back() == '\n' ? 0 : 1);
        const std::string expected = reason(lines + 1, " is missing; 11 lines are needed");
        EXPECT_EQ(refusalOf([&] { read(cut); }), lines < 11 ? expected : "") << length;
    }
    for (const std::size_t line : {1U, 2U, 9U, 10U, 11U}) {
        for (const char* text : {"", "x", "1x", "-", "1 2", "0x1", "1.5"}) {
            EXPECT_EQ(refusalOf([&] { read(fileWith(line, text)); }),
                      reason(line, " is no number"));
        }
    }
}

TEST_F(DropFiles, SayHowTheCallerIsReallyReached) {
    std::array<int, 2> sockets{};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets.data()), 0);
    const auto isReached = [](Route route, int handle, const char* option, bool terminal) {
        DropFile file;
        file.route = route;
        file.socket = handle;
        const Options options = optionsOf(option);
        return refusalOf([&] { resolveCaller(options, file, {true, terminal, terminal}); }).empty();
    };
    for (const int handle : {-1, 0, 1000, dup(STDERR_FILENO)}) {
        EXPECT_TRUE(isReached(Route::socket, handle, "", false)) << handle;
    }
    EXPECT_TRUE(isReached(Route::socket, sockets[0], "", true));
    EXPECT_TRUE(isReached(Route::socket, sockets[0], "-STDIO", false));
    EXPECT_FALSE(isReached(Route::socket, sockets[0], "", false));
    EXPECT_FALSE(isReached(Route::unreachable, 0, "", false));
    EXPECT_TRUE(isReached(Route::unreachable, 0, "-H0", false));
    close(sockets[0]);
    close(sockets[1]);
}

TEST_F(DropFiles, AreFoundInAnyLetterCase) {
    const Door showName = [] {
        od_printf("%s,%d", od_control.user_name, od_control.user_timelimit);
    };
    const std::string file = folder.write("door32.Sys", fileWith(9, "40000"));
    for (const std::string& path : {folder.path(), file, folder.path("DOOR32.SYS")}) {
        EXPECT_EQ(callWithKeys({"-D", path}, "", showName).shown, "\033[0;37mAce,32767\033[0m");
    }
    EXPECT_EQ(callWithKeys({"-D" + folder.path(), "-L"}, "", showName).shown, "newcomer,60");
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    EXPECT_EQ(callWithKeys({"-ASCII"}, "", showName).shown, "Ace,32767");
    unlink(file.c_str());
    for (const Arguments& arguments :
         {Arguments{}, {"-D", folder.path()}, {"-D", file}, {"-D", "/dev/null"}}) {
        const Outcome outcome = callWithKeys(arguments, "", showName);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.shown, "");
        EXPECT_EQ(std::count(outcome.complaints.begin(), outcome.complaints.end(), '\n'), 1);
    }
    ASSERT_EQ(chdir("/"), 0);
}
