#include "sysop/tool.h"

using namespace morvek;
using namespace morvek::test;
using testing::HasSubstr;

TEST_F(Sysop, InitMakesAGameOnceAndNeverOverAnything) {
    EXPECT_EQ(readFile("morvek.cfg"), "Morvek\nThe Board\n.\n");
    EXPECT_EQ(readFile("heal.ans"), readFile(MORVEK_MENUS_DIR "/heal.ans"));
    const auto init = [&](const char* where, const std::string& board, const char* menus) {
        return run({"init", where, "--board", board, "--menus", menus});
    };
    EXPECT_EQ(init(".", "Another", MORVEK_MENUS_DIR), 1);
    EXPECT_EQ(readFile("morvek.cfg"), "Morvek\nThe Board\n.\n");
    EXPECT_EQ(init("new", "X", "/nowhere"), 1);
    EXPECT_EQ(init("new", "two\nlines", MORVEK_MENUS_DIR), 2);
    EXPECT_EQ(init("new", std::string(254, 'x'), MORVEK_MENUS_DIR), 2);
    EXPECT_FALSE(std::filesystem::exists("new"));
    std::filesystem::create_directory("new");
    EXPECT_EQ(init("new", "Zo\u00EB's", MORVEK_MENUS_DIR), 0) << err;
    EXPECT_EQ(readFile("new/morvek.cfg"), "Morvek\nZo\x89's\n.\n");
}

TEST_F(Sysop, TheGameIsFoundWhereTheConfigurationLeads) {
    save({character("Alice", "Arwen")});
    std::filesystem::create_directory("start");
    writeFile("start/morvek.cfg", "Morvek\nThe Board\n..\n");
    EXPECT_EQ(run({"players", "--game", "start"}), 0);
    EXPECT_THAT(out, HasSubstr("Arwen"));
    writeFile("start/morvek.cfg", "Morvek\nThe Board\n..\r\n"); // leads nowhere
    EXPECT_EQ(run({"--game", "start", "players"}), 0);
    EXPECT_EQ(out, "Nobody has a character yet.\n");
    std::filesystem::remove("start/morvek.cfg");
    EXPECT_EQ(run({"players", "--game", "start"}), 1);
    EXPECT_THAT(err, HasSubstr("no game is here"));
}

TEST_F(Sysop, AWrongUsageIsToldAndAnswersTwo) {
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {}, {"frob"}, {"players", "extra"}, {"init", "x"}, {"map", "--svg", "--dot"}}) {
        EXPECT_EQ(run(arguments), 2);
        EXPECT_EQ(out, "");
        EXPECT_NE(err, "");
    }
    for (const char* verb : {"init", "players", "show", "check", "set", "remove", "offline",
                             "backup", "restore", "reset", "scores", "news", "board", "map"}) {
        EXPECT_EQ(run({verb, "--help"}), 0);
        EXPECT_THAT(out, HasSubstr(std::string("Usage: morvek-sysop ") + verb));
    }
}
