// Drop files of every kind, as boards write them and as they should not.
#include "drop_file.h"

#include "board.h"
#include "call.h"
#include "text.h"

using namespace odoors;

namespace {

void tellCaller() {
    const int ansi = std::exchange(od_control.user_ansi, '\0');
    od_printf("%s,%d,%d,%d", od_control.user_name, od_control.user_timelimit, ansi,
              od_control.od_node);
}

// What a session with these options knows of its caller, or why there is none.
std::string toldBy(Arguments options) {
    const Outcome outcome = callWithKeys(options, "", tellCaller);
    EXPECT_EQ(outcome.shown.empty(), outcome.status == 1);
    return outcome.shown + outcome.complaints;
}

struct DropFiles : testing::Test {
    Folder folder;

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

} // namespace

TEST_F(DropFiles, TellWhoTheCallerIs) {
    for (const BoardCaller& row : boardCallers) {
        Arguments options = row.options;
        std::string bytes = row.file.with(row.others);
        options.insert(options.end(), {"-D", folder.write(row.file.name, bytes)});
        EXPECT_EQ(toldBy(options), row.told) << bytes;
        // Lines may end as in Unix, and the last not at all.
        std::erase(bytes, '\r');
        folder.write(row.file.name, bytes.substr(0, bytes.size() - 1));
        EXPECT_EQ(toldBy(options), row.told) << bytes;
    }
    const std::string nobody = "no way to the caller: a serial line is not served; use -STDIO\n";
    EXPECT_EQ(toldBy({"-D", folder.write(bbsdev.name, bbsdev.with({{2, "fossil"}}))}), nobody);
    EXPECT_EQ(toldBy({"-D", folder.write(door32.name, door32.with({{1, "1"}}))}), nobody);
}

TEST_F(DropFiles, AreRefusedByLine) {
    for (const BoardFile& file : {door32, doorSys, dorinfo, chain, bbsdev}) {
        const std::string needed = std::to_string(file.linesNeeded) + " lines are needed";
        std::string lines;
        for (std::size_t next = 1; next <= file.linesNeeded; ++next) {
            EXPECT_EQ(refusal(file, lines), lineOf(next) + " is missing; " + needed);
            lines += "1\n";
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
}

TEST_F(DropFiles, AreFoundInTheirOrderInAnyLetterCase) {
    folder.write(bbsdev.name, bbsdev.with());
    EXPECT_EQ(toldBy({"-D", folder.path()}), folder.path() + ": holds no drop file\n");
    // From the last to the first, so that each new one comes before those that are there.
    folder.write("chain.txt", chain.with({{2, "chain"}}));
    EXPECT_EQ(toldBy({"-D", folder.path()}), "chain,45,1,1");
    folder.write("Dorinfo1.Def", dorinfo.with({{8, "one"}}));
    folder.write("dorinfo3.def", dorinfo.with());
    EXPECT_EQ(toldBy({"-D", folder.path()}), "J\x94rg one,45,1,1");
    folder.write("DOOR.sys", doorSys.with({{36, "sys"}}));
    EXPECT_EQ(toldBy({"-D", folder.path()}), "sys,45,1,3");
    folder.write("door32.Sys", door32.with());
    EXPECT_EQ(toldBy({"-D", folder.path()}), jorg);
}

TEST_F(DropFiles, OfTheStartDirectoryAreUsedUnasked) {
    folder.write(door32.name, door32.with());
    folder.write("call.7", bbsdev.with({{18, "7"}}));
    ASSERT_EQ(chdir(folder.path().c_str()), 0);
    EXPECT_EQ(toldBy({}), jorg);
    // The one that the board names in the environment comes first.
    const auto withVariable = [](const char* path) {
        setenv("BBSDEV_DRP", path, 1);
        const std::string told = toldBy({});
        unsetenv("BBSDEV_DRP");
        return told;
    };
    EXPECT_EQ(withVariable("call.7"), "J\x94rg Ace,45,1,7");
    EXPECT_EQ(withVariable("/none"), "/none: cannot be read: No such file or directory\n");
    unlink("DOOR32.SYS");
    for (const Arguments& arguments :
         {Arguments{}, {"-D", "."}, {"-D", "none"}, {"-D", "/dev/null"}, {"-D", "DOOR32.SYS"}}) {
        const std::string complaint = toldBy(arguments);
        EXPECT_EQ(complaint.find(jorg), std::string::npos);
        EXPECT_EQ(complaint.find('\n'), complaint.size() - 1);
    }
    ASSERT_EQ(chdir("/"), 0);
}
