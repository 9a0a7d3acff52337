#include "sysop/tool.h"

TEST_F(Sysop, InitNeverOverwrites) {
    EXPECT_THAT(told("init . --board Another" + withMenus), StartsWith("1: "));
    EXPECT_THAT(told("init new --board X --menus /nowhere"), StartsWith("1: "));
    EXPECT_THAT(told("init new --board \"two\nlines\"" + withMenus), StartsWith("2: "));
    EXPECT_THAT(told("init new --board x" + std::string(253, 'x') + withMenus), StartsWith("2: "));
    EXPECT_EQ(readFile("morvek.cfg"), "Morvek\nThe Board\n.\n");
    EXPECT_FALSE(fs::exists("new"));
    fs::create_directory("new");
    told("init new --board Zo\u00EB's" + withMenus);
    EXPECT_EQ(readFile("new/morvek.cfg"), "Morvek\nZo\x89's\n.\n");
}

TEST_F(Sysop, GameIsWhereTheConfigurationLeads) {
    save({character("Alice", "Arwen")});
    fs::create_directory("start");
    writeFile("start/morvek.cfg", "Morvek\nThe Board\n..\n");
    EXPECT_THAT(told("players --game start"), HasSubstr("Arwen"));
    writeFile("start/morvek.cfg", "Morvek\nThe Board\n..\r\n"); // leads nowhere
    EXPECT_EQ(told("--game start players"), "0 of 49 places are taken.\n");
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
