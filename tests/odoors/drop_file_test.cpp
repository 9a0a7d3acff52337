// Drop files of every kind, as boards write them and as they should not.
#include "drop_file.h"

#include <ctime>
#include <sstream>

#include "call.h"
#include "text.h"

using namespace odoors;

namespace {

using Lines = std::vector<std::pair<std::size_t, std::string>>;

// A drop file as its boards write it: for Jörg Ace, in truth Alice Doe, who has ANSI graphics and
// 45 minutes left, on node 3.
struct BoardFile {
    std::string name;
    std::size_t linesNeeded;
    std::vector<std::size_t> numbers; // the lines that must hold one
    std::string lines;                // a bar ends each but the last

    // The file's bytes, with other texts in some of its lines.
    std::string with(const Lines& others = {}) const {
        std::istringstream rest(lines);
        std::string bytes;
        std::string line;
        for (std::size_t number = 1; std::getline(rest, line, '|'); ++number) {
            for (const auto& [where, text] : others) {
                line = where == number ? text : line;
            }
            bytes += line + "\r\n";
        }
        return bytes;
    }
};

// The moment so many seconds from now, as BBSDEV.DRP writes it.
std::string momentIn(long seconds) {
    const std::time_t moment = std::time(nullptr) + seconds;
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&moment));
    return text.data();
}

const BoardFile door32{
    "DOOR32.SYS", 11, {1, 2, 9, 10, 11}, "2|-1|38400|Board 1|7|Alice Doe|J\x94rg Ace \t|50|45|1|3"};

const BoardFile shortDoorSys{
    "DOOR.SYS",
    31,
    {4, 19},
    "COM1:|38400|8|3|38400|Y|N|N|N|Alice Doe|Bree|555-1|555-2|secret|50|7|01/01/26|2700|45|GR|25|"
    "N|1,2|1|12/31/99|7|Z|0|0|0|0"};

const BoardFile doorSys{shortDoorSys.name, 31, shortDoorSys.numbers,
                        shortDoorSys.lines + "|01/01/80|C:\\BBS|C:\\GEN|Bob|J\x94rg Ace|00:00|Y|N|"
                                             "Y|7|0|01/01/26|12:00|11:00|99|0|0|0|None|0|0"};

const BoardFile dorinfo{"DORINFO3.DEF",
                        12,
                        {10, 12},
                        "Board|Bob|Op|COM1|38400 BAUD,N,8,1|0|J\x94rg|Ace|Bree, Shire|1|50|45|-1"};

const BoardFile chain{
    "CHAIN.TXT",
    32,
    {14, 16},
    "7|J\x94rg Ace|Alice Doe||30|F|0.00|01/01/26|80|25|50|0|0|1|1|2700.50|gfiles|data|log|38400|1|"
    "Board|Bob|43200|12|0|0|0|0|8N1|38400|3"};

const BoardFile bbsdev{"BBSDEV.DRP",
                       19,
                       {18},
                       "1.0|stdio||J\xc3\xb6rg Ace|7|80|25|Y|50|en|" + momentIn(2758) +
                           "|IBM437|Board|Bob||||3|-"};

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

const std::string jorg = "J\x94rg Ace,45,1,3";

} // namespace

TEST_F(DropFiles, TellWhoTheCallerIs) {
    struct Row {
        const BoardFile& file;
        Lines others;
        std::string told = jorg;
        Arguments options{};
    };
    const Arguments real{"-REALNAME", "-TIMELEFT=7", "-N", "2", "-ASCII"};
    for (const Row& row : {
             Row{door32, {}},
             {door32, {{1, "0"}, {2, "9"}}},
             {door32, {{2, "1000"}}},
             {door32, {{4, "WWIV v5"}, {9, "2700"}}},
             {door32, {{9, "99999999999999999999"}, {10, "0"}}, "J\x94rg Ace,32767,0,3"},
             {door32, {{7, " "}, {10, "4"}}, "Alice Doe,45,1,3"},
             {door32, {{7, std::string(40, 'x')}}, std::string(35, 'x') + ",45,1,3"},
             {door32, {{11, "99999999999"}}, "J\x94rg Ace,45,1,2147483647"},
             {door32, {}, "Alice Doe,7,0,2", real},
             {doorSys, {}},
             {doorSys, {{20, "NG"}}, "J\x94rg Ace,45,0,3"},
             {doorSys, {{36, ""}, {20, "7e"}}, "Alice Doe,45,0,3"},
             {doorSys, {}, "Alice Doe,7,0,2", real},
             {shortDoorSys, {}, "Alice Doe,45,1,3"},
             {dorinfo, {}},
             {dorinfo, {{7, "J\x94rg Ace"}, {8, "NLN"}}},
             {dorinfo, {{8, ""}, {10, "0"}}, "J\x94rg,45,0,3"},
             {dorinfo, {}, "J\x94rg Ace,7,0,2", real},
             {chain, {}, "J\x94rg Ace,45,1,1"},
             {chain, {{2, ""}, {14, "0"}, {15, "0"}, {16, "59.9"}}, "Alice Doe,0,0,1"},
             {chain, {{16, "2700"}}, "J\x94rg Ace,45,1,9", {"-N9"}},
             {chain, {}, "Alice Doe,7,0,2", real},
             {bbsdev, {}},
             {bbsdev, {{1, "1.7"}, {2, "LOCAL"}, {8, "n"}, {11, ""}}, "J\x94rg Ace,32767,0,3"},
             {bbsdev,
              {{2, "socket"}, {3, "-1"}, {11, "1999-12-31T23:59:60Z"}},
              "J\x94rg Ace,0,1,3"},
             {bbsdev, {{11, momentIn(90030)}}, "J\x94rg Ace,1500,1,3"},
             {bbsdev, {{12, "utf-8"}, {18, "12"}}, "J\xc3\xb6rg Ace,45,1,12"},
             {bbsdev, {}, "J\x94rg Ace,7,0,2", real},
             {bbsdev, {{2, "fossil"}}, jorg, {"-STDIO"}},
         }) {
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
