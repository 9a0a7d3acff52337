#include "sysop/tool.h"

#include <csignal>
#include <sys/resource.h>

TEST_F(Sysop, InitNeverOverwrites) {
    EXPECT_THAT(told("init . --board Another" + withMenus), StartsWith("1: "));
    EXPECT_THAT(told("init new --board X --menus /nowhere"), StartsWith("1: "));
    EXPECT_THAT(told("init new --board \"two\nlines\"" + withMenus), StartsWith("2: "));
    EXPECT_THAT(told("init new --board x" + std::string(253, 'x') + withMenus), StartsWith("2: "));
    EXPECT_EQ(readFile("morvek.cfg"), "Morvek\nThe Board\n.\n");
    EXPECT_FALSE(fs::exists("new"));
    fs::create_directory("new");
    told("init new --board Zo\u00EB's --keeper Warden" + withMenus);
    EXPECT_EQ(readFile("new/morvek.cfg"), "Morvek\nZo\x89's\n.\n");
    EXPECT_THAT(told("--game new players"), HasSubstr("  1  Warden  Warden     Fighter"));
    EXPECT_EQ(told("--game new check"), "No errors or warnings.\n");
}

TEST_F(Sysop, GameIsWhereTheConfigurationLeads) {
    save({character("Alice", "Arwen")});
    fs::create_directory("start");
    writeFile("start/morvek.cfg", "Morvek\nThe Board\n..\n");
    EXPECT_THAT(told("players --game start"), HasSubstr("Arwen"));
    writeFile("start/morvek.cfg", "Morvek\nThe Board\n..\r\n"); // leads nowhere
    EXPECT_THAT(told("--game start players"), EndsWith("\n0 of 49 places are taken.\n"));
    fs::remove("start/morvek.cfg");
    EXPECT_THAT(told("players --game start"), HasSubstr("no game found"));
}

TEST_F(Sysop, WrongUsageAnswersTwo) {
    for (const char* line :
         {"", "frob", "players extra", "init x", "show", "offline", "offline 1 --all",
          "scores --json --html", "news --date 133126", "news --date ../a"}) {
        EXPECT_THAT(told(line), StartsWith("2: ")) << line;
    }
    EXPECT_THAT(told("news --help"), HasSubstr("Usage: morvek-sysop news"));
}

TEST_F(Sysop, InitLeavesNothingOfAFailure) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{400, RLIM_INFINITY};
    const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
    ::setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_THAT(told("init a/b --board X" + withMenus), HasSubstr("File too large"));
    ::setrlimit(RLIMIT_FSIZE, &none);
    EXPECT_FALSE(fs::exists("a"));
}

TEST_F(Sysop, OutputThatCannotBeWrittenIsAFailure) {
    std::ofstream full("/dev/full");
    std::ostringstream err;
    EXPECT_EQ(runSysop({"check"}, full, err), 1);
    EXPECT_THAT(err.str(),
                EndsWith("standard output cannot be written: No space left on device\n"));
}
