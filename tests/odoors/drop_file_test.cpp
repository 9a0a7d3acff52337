// Drop files as boards should not write them, and where they are found. The program's journeys
// start with each kind of them as boards do.
#include "drop_file.h"

#include "board.h"
#include "caller.h"
#include "reading.h"

using namespace odoors;

namespace {

std::string reasonFor(const BoardFile& file, const std::string& bytes) {
    return reasonOf([&] { parseDropFile(file.name, bytes); });
}

struct Demand {
    const BoardFile& file;
    std::size_t lines;
    std::vector<std::size_t> numbers;
};

const std::vector<Demand> demands{{door32, 11, {1, 2, 9, 10, 11}},
                                  {doorSys, 31, {4, 19}},
                                  {dorinfo, 12, {10, 12}},
                                  {chain, 32, {14, 16}},
                                  {bbsdev, 19, {18}}};

} // namespace

TEST(DropFileTest, TheFirstLineMissingIsNamed) {
    for (const auto& [file, needed, numbers] : demands) {
        std::string bytes;
        for (std::size_t next = 1; next <= needed; ++next) {
            EXPECT_EQ(reasonFor(file, bytes), file.name + ": line " + std::to_string(next) +
                                                  " is missing; " + std::to_string(needed) +
                                                  " lines are needed");
            bytes += "1\n";
        }
    }
}

TEST(DropFileTest, ALineThatMustBeANumberIsNamed) {
    for (const auto& [file, needed, numbers] : demands) {
        for (const std::size_t line : numbers) {
            for (const char* text : {"", "x", "1x", "-", "1 2", "0x1", "1.5x"}) {
                EXPECT_EQ(reasonFor(file, file.with({{line, text}})),
                          file.name + ": line " + std::to_string(line) + " is not a number");
            }
        }
    }
}

TEST(DropFileTest, BbsdevLinesOfAnotherFormAreNamed) {
    const auto expect = [](std::size_t line, const std::string& problem,
                           const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            EXPECT_EQ(reasonFor(bbsdev, bbsdev.with({{line, text}})),
                      "BBSDEV.DRP: line " + std::to_string(line) + problem)
                << text;
        }
    };
    expect(1, " is an unknown version; 1.x is needed", {"2.0", "10.0", "\xef\xbb\xbf\x31.0"});
    expect(2, " is an unknown connection type", {"", "smoke"});
    expect(11, " is not a time in UTC (YYYY-MM-DDTHH:MM:SSZ)",
           {"soon", "2026-02-29T00:00:00Z", "2026-01-01T24:00:00Z", "2026-01-01T00:00:00",
            "2026-01-01 00:00:00Z"});
}

struct DropFileSearch : testing::Test {
    ~DropFileSearch() override {
        unsetenv("BBSDEV_DRP");
        EXPECT_EQ(chdir("/"), 0);
    }

    static Caller callerOf(const Arguments& arguments) {
        return findCaller(optionsOf(arguments), {});
    }
    static std::string nameOf(const Arguments& arguments) { return callerOf(arguments).name; }

    Folder folder;
    std::string path = folder.path();
};

TEST_F(DropFileSearch, TakesTheFirstKindInAnyLetterCase) {
    // From the last to the first, so that each new one comes before those that are there.
    folder.write("chain.txt", chain.with({{2, "chain"}}));
    EXPECT_EQ(nameOf({"-D", path}), "chain");
    folder.write("Dorinfo1.Def", dorinfo.with({{7, "dorinfo"}, {8, "one"}}));
    EXPECT_EQ(nameOf({"-D", path, "-N3"}), "dorinfo one");
    folder.write("dorinfo3.def", dorinfo.with({{7, "dorinfo"}, {8, "three"}}));
    EXPECT_EQ(nameOf({"-D", path}), "dorinfo one");
    EXPECT_EQ(nameOf({"-D", path, "-N3"}), "dorinfo three");
    EXPECT_EQ(nameOf({"-D", folder.path("DORINFO3.DEF")}), "dorinfo three");
    folder.write("DOOR.sys", doorSys.with({{36, "door.sys"}}));
    EXPECT_EQ(nameOf({"-D", path}), "door.sys");
    folder.write("door32.Sys", door32.with({{7, "door32"}}));
    EXPECT_EQ(nameOf({"-D", path}), "door32");
}

TEST_F(DropFileSearch, TellsWhatItDidNotFind) {
    folder.write(bbsdev.name, bbsdev.with());
    EXPECT_EQ(reasonOf([&] { callerOf({"-D", path}); }), path + ": no drop file in this directory");
    EXPECT_EQ(reasonOf([&] {
                  callerOf({"-D", folder.path("none")});
              }),
              folder.path("none") + ": cannot be read: No such file or directory");
    EXPECT_EQ(reasonOf([&] {
                  callerOf({"-D", "/dev/null"});
              }),
              "/dev/null: is not the name of a known drop file");
}

TEST_F(DropFileSearch, BeginsWithTheEnvironmentThenTheStartDirectory) {
    ASSERT_EQ(chdir(path.c_str()), 0);
    folder.write(door32.name, door32.with());
    EXPECT_EQ(nameOf({}), jorg);
    folder.write("call.7", bbsdev.with({{4, "Bea"}}));
    setenv("BBSDEV_DRP", "call.7", 1);
    EXPECT_EQ(nameOf({}), "Bea");
    EXPECT_EQ(nameOf({"-D", "."}), jorg);
    setenv("BBSDEV_DRP", "/none", 1);
    EXPECT_EQ(reasonOf([] { callerOf({}); }), "/none: cannot be read: No such file or directory");
}
