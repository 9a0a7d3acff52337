// Drop files of every kind, as boards write them and as they should not.
#include "drop_file.h"

#include <algorithm>

#include <gtest/gtest.h>
#include <unistd.h>

#include "OpenDoor.h"
#include "board.h"
#include "call.h"
#include "text.h"

using namespace odoors;

namespace {

using Lines = std::vector<std::pair<std::size_t, std::string>>;

void tellCaller() {
    const int ansi = std::exchange(od_control.user_ansi, '\0');
    od_printf("%s,%d,%d,%d", od_control.user_name, od_control.user_timelimit, ansi,
              od_control.od_node);
}

struct DropFiles : testing::Test {
    Folder folder;

    // What a session that is started with the file knows of its caller.
    std::string told(const BoardFile& file, const Lines& others = {},
                     const Arguments& more = {}) const {
        return toldBy(folder.write(file.name, file.with(others)), more);
    }

    static std::string toldBy(const std::string& path, Arguments more = {}) {
        more.insert(more.end(), {"-D", path});
        const Outcome outcome = callWithKeys(more, "", tellCaller);
        return outcome.status == 0 ? outcome.shown : outcome.complaints;
    }

    // Why a file with these bytes is refused, without its path.
    std::string refusal(const BoardFile& file, const std::string& bytes) const {
        const std::string path = folder.write(file.name, bytes);
        try {
            readDropFile(path, 1);
        } catch (const Refusal& refusal) {
            EXPECT_TRUE(refusal.reason.starts_with(path + ": "));
            return refusal.reason.substr(path.size() + 2);
        }
        return "";
    }

    static std::string lineOf(std::size_t line) { return "line " + std::to_string(line); }
};

const std::string jorg = "J\x94rg Ace,45,1,3";

} // namespace

TEST_F(DropFiles, NameTheSameCallerWhicheverTheBoardWrites) {
    for (const BoardFile& file : boardFiles) {
        const bool nodeless = file.name == "CHAIN.TXT";
        EXPECT_EQ(told(file), nodeless ? "J\x94rg Ace,45,1,1" : jorg) << file.name;
        std::string unixLines = file.with();
        std::erase(unixLines, '\r');
        folder.write(file.name, unixLines.substr(0, unixLines.size() - 1));
        EXPECT_EQ(toldBy(folder.path(file.name), {"-N9"}), "J\x94rg Ace,45,1,9") << file.name;
        const bool one = file.name[2] == 'R' || file.name[0] == 'B';
        EXPECT_EQ(told(file, {}, {"-REALNAME", "-TIMELEFT=7", "-N", "2", "-ASCII"}),
                  one ? "J\x94rg Ace,7,0,2" : "Alice Doe,7,0,2");
    }
}

TEST_F(DropFiles, HoldWhatIsLeftOfTheTime) {
    EXPECT_EQ(told(door32, {{7, std::string(40, 'x')}}), std::string(35, 'x') + ",45,1,3");
    EXPECT_EQ(told(bbsdev, {{11, "1999-12-31T23:59:60Z"}}), "J\x94rg Ace,0,1,3");
    EXPECT_EQ(told(bbsdev, {{11, momentIn(90030)}}), "J\x94rg Ace,1500,1,3");
    EXPECT_EQ(told(bbsdev, {{12, "utf-8"}, {18, "12"}}), "J\xc3\xb6rg Ace,45,1,12");
}

TEST_F(DropFiles, AreRefusedByLine) {
    for (const BoardFile& file : boardFiles) {
        const std::string whole = file.with();
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const std::string cut = whole.substr(0, length);
            const auto ended = static_cast<std::size_t>(std::count(cut.begin(), cut.end(), '\n'));
            const std::size_t lines = ended + (cut.empty() || cut.back() == '\n' ? 0 : 1);
            const std::string reason = lineOf(lines + 1) + " is missing; " +
                                       std::to_string(file.linesNeeded) + " lines are needed";
            if (lines != file.linesNeeded) {
                EXPECT_EQ(refusal(file, cut), lines > file.linesNeeded ? "" : reason);
            }
        }
        for (const std::size_t line : file.numbers) {
            for (const char* text : {"", "x", "1x", "-", "1 2", "0x1", "1.5x"}) {
                EXPECT_EQ(refusal(file, file.with({{line, text}})), lineOf(line) + " is no number");
            }
        }
    }
    EXPECT_EQ(refusal(bbsdev, bbsdev.with({{2, "socket"}})), lineOf(3) + " is no number");
    folder.write("BBSDEV.DRP", bbsdev.with({{2, "Socket"}, {3, "9"}}));
    EXPECT_EQ(readDropFile(folder.path("bbsdev.drp"), 1)->socket, 9);
    for (const std::string other : {"1=2.0", "1=10.0", "1=\xef\xbb\xbf\x31.0", "2=", "2=smoke",
                                    "11=soon", "11=2026-02-29T00:00:00Z", "11=2026-01-01T24:00:00Z",
                                    "11=2026-01-01T00:00:00", "11=2026-01-01 00:00:00Z"}) {
        const std::size_t line = std::stoul(other);
        const std::string text = other.substr(other.find('=') + 1);
        EXPECT_EQ(refusal(bbsdev, bbsdev.with({{line, text}})).find(lineOf(line)), 0U) << other;
    }
    EXPECT_EQ(told(bbsdev, {{2, "fossil"}}).find("no way to the caller"), 0U);
    EXPECT_EQ(told(bbsdev, {{2, "fossil"}}, {"-STDIO"}), jorg);
}

TEST_F(DropFiles, AreFoundInTheirOrderInAnyLetterCase) {
    folder.write(bbsdev.name, bbsdev.with());
    EXPECT_EQ(toldBy(folder.path()), folder.path() + ": holds no drop file\n");
    // From the last to the first, so that each new one comes before those that are there.
    folder.write("chain.txt", chain.with({{2, "chain"}}));
    EXPECT_EQ(toldBy(folder.path()), "chain,45,1,1");
    folder.write("Dorinfo1.Def", dorinfo.with({{8, "one"}}));
    folder.write("dorinfo3.def", dorinfo.with());
    EXPECT_EQ(toldBy(folder.path()), "J\x94rg one,45,1,1");
    folder.write("DOOR.sys", doorSys.with({{36, "sys"}}));
    EXPECT_EQ(toldBy(folder.path()), "sys,45,1,3");
    folder.write("door32.Sys", door32.with());
    EXPECT_EQ(toldBy(folder.path()), jorg);
}

TEST_F(DropFiles, OfTheStartDirectoryAreUsedUnasked) {
    folder.write(door32.name, door32.with());
    folder.write("call.7", bbsdev.with({{18, "7"}}));
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    EXPECT_EQ(callWithKeys({}, "", tellCaller).shown, jorg);
    // The one that the board names in the environment comes first.
    const auto withVariable = [](const char* path) {
        setenv("BBSDEV_DRP", path, 1);
        const Outcome outcome = callWithKeys({}, "", tellCaller);
        unsetenv("BBSDEV_DRP");
        return outcome.shown + outcome.complaints;
    };
    EXPECT_EQ(withVariable("call.7"), "J\x94rg Ace,45,1,7");
    EXPECT_EQ(withVariable("/none"), "/none: cannot be read: No such file or directory\n");
    unlink("DOOR32.SYS");
    for (const Arguments& arguments :
         {Arguments{}, {"-D", "."}, {"-D", "none"}, {"-D", "/dev/null"}, {"-D", "DOOR32.SYS"}}) {
        const Outcome outcome = callWithKeys(arguments, "", tellCaller);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.shown, "");
        EXPECT_EQ(outcome.complaints.find('\n'), outcome.complaints.size() - 1);
    }
    ASSERT_EQ(chdir("/"), 0);
}
