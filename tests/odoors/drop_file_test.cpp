// Drop files as boards should not write them, and where they are found. The program's journeys
// start with each kind of them as boards do.
#include "drop_file.h"

#include "board.h"
#include "call.h"
#include "caller.h"

using namespace odoors;

namespace {

void expectRefusal(const BoardFile& file, const std::string& bytes, std::size_t line,
                   const std::string& reason) {
    EXPECT_EQ(reasonOf([&] { parseDropFile(file.name, bytes); }),
              file.name + ": line " + std::to_string(line) + ' ' + reason);
}

} // namespace

TEST(DropFileTest, AMissingLineIsNamed) {
    const auto lines = [](std::size_t count) { return std::string(count, '\n'); };
    expectRefusal(door32, "", 1, "is missing; 11 lines are needed");
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
    static std::string nameFor(const Arguments& options) {
        return findCaller(optionsOf(options), {}).name;
    }

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
    EXPECT_EQ(nameFor({"-D", folder.path("DORINFO1.DEF")}), "dorinfo one");
    folder.write("DOOR.sys", doorSys.with({{36, "door.sys"}}));
    EXPECT_EQ(nameFor({"-D", path}), "door.sys");
    folder.write("door32.Sys", door32.with({{7, "door32"}}));
    EXPECT_EQ(nameFor({"-D", path}), "door32");
}

TEST_F(DropFileSearch, TellsWhatItDidNotFind) {
    folder.write(bbsdev.name, bbsdev.with());
    EXPECT_EQ(reasonOf([&] { nameFor({"-D", path}); }), path + ": no drop file in this directory");
    const Arguments device{"-D", "/dev/null"};
    EXPECT_EQ(reasonOf([&] { nameFor(device); }),
              "/dev/null: is not the name of a known drop file");
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
