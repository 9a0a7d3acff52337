#include "sysop/tool.h"

TEST_F(Sysop, InitMakesAGameOnceAndNeverOverAnything) {
    EXPECT_EQ(readFile("heal.ans"), readFile(MORVEK_MENUS_DIR "/heal.ans"));
    const Cases<const char*, std::string, const char*, const char*> refusals{
        {".", "Another", MORVEK_MENUS_DIR, "1: "},
        {"new", "X", "/nowhere", "1: "},
        {"new", "two\nlines", MORVEK_MENUS_DIR, "2: "},
        {"new", std::string(254, 'x'), MORVEK_MENUS_DIR, "2: "}};
    for (const auto& [where, board, menus, status] : refusals) {
        EXPECT_THAT(told({"init", where, "--board", board, "--menus", menus}), StartsWith(status));
    }
    EXPECT_EQ(readFile("morvek.cfg"), "Morvek\nThe Board\n.\n");
    EXPECT_FALSE(fs::exists("new"));
    fs::create_directory("new");
    told({"init", "new", "--board", "Zo\u00EB's", "--menus", MORVEK_MENUS_DIR});
    EXPECT_EQ(readFile("new/morvek.cfg"), "Morvek\nZo\x89's\n.\n");
}

TEST_F(Sysop, TheGameIsFoundWhereTheConfigurationLeads) {
    save({character("Alice", "Arwen")});
    fs::create_directory("start");
    writeFile("start/morvek.cfg", "Morvek\nThe Board\n..\n");
    EXPECT_THAT(told("players --game start"), HasSubstr("Arwen"));
    writeFile("start/morvek.cfg", "Morvek\nThe Board\n..\r\n"); // leads nowhere
    EXPECT_EQ(told("--game start players"), "Nobody has a character yet.\n");
    fs::remove("start/morvek.cfg");
    EXPECT_THAT(told("players --game start"), HasSubstr("no game is here"));
}

TEST_F(Sysop, AWrongUsageIsToldAndAnswersTwo) {
    for (const std::string line :
         {"", "frob", "players extra", "init x", "map --svg --dot", "show", "offline",
          "offline 1 --all", "scores --json --html", "news --date 133126", "news --date ../a"}) {
        EXPECT_THAT(told(line), StartsWith("2: ")) << line;
    }
    for (const std::string verb :
         {"init", "players", "show", "check", "set", "remove", "offline", "backup", "restore",
          "reset", "scores", "news", "board", "map"}) {
        EXPECT_THAT(told(verb + " --help"), HasSubstr("Usage: morvek-sysop " + verb));
    }
}
