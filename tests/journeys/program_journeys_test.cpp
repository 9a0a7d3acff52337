// The program as a board starts it: by its name, in a directory of its own, at a terminal.
#include "support/program.h"

#include <gmock/gmock.h>

using namespace testing;

// A caller's first game and his return.
TEST(ProgramJourney, AFirstGameAndAReturn) {
    Game game;
    const std::string dropFile =
        "0\r\n0\r\n0\r\nBoard\r\n7\r\nAlice\r\nAce\r\n50\r\n45\r\n1\r\n3\r\n";
    game.write("DOOR32.SYS", dropFile);
    const auto endOf = [&game](const std::string& menu) {
        const std::string bytes = game.text(menu);
        const std::size_t end = std::min(bytes.size(), bytes.find('\x1a'));
        return bytes.substr(end - 20, 20);
    };
    const std::string anyKey = "Press any key!";
    const Call call(game.program({"-D", "."}));
    std::string shown;
    for (const auto& [awaited, keys] :
         std::vector<std::pair<std::string, std::string>>{{endOf("intmenu.ans"), "s"},
                                                          {"Character Name", "Aldur\r"},
                                                          {"correct? ", "y"},
                                                          {endOf("clasmenu.ans"), "2"},
                                                          {anyKey, " "},
                                                          {endOf("townmenu.ans"), "l"},
                                                          {anyKey, " o"},
                                                          {anyKey, " q"},
                                                          {anyKey, " "},
                                                          {anyKey, " "},
                                                          {endOf("intmenu.ans"), "q"}}) {
        shown += call.until(awaited);
        EXPECT_THAT(shown, HasSubstr(awaited));
        call.type(keys);
    }
    EXPECT_THAT(call.until("\033[0m\r\n"), HasSubstr("Quit Game"));
    EXPECT_EQ(call.status(), 0);
    EXPECT_TRUE(call.isRestored());
    for (const char* text : {"\033[2J", "The Test Board", "Aldur", "Fighter", "45 minutes",
                             "Users currently on-line", "Top 10 Scores List is empty."}) {
        EXPECT_THAT(shown, HasSubstr(text));
    }
    EXPECT_THAT(game.data(),
                UnorderedElementsAre(
                    Pair("morchars.dat", SizeIs(50 * recordSize)),
                    Pair(EndsWith(".txt"), "It's a new day!\n\rAce joined the game.\n\r")));
    EXPECT_EQ(game.text("DOOR32.SYS"), dropFile);
    EXPECT_STREQ(&game.text("morchars.dat")[ownerNameAt], "Ace");

    const Call again(game.program({"-D", "."}), Line::terminal, false);
    again.until(endOf("intmenu.ans"));
    again.type("s");
    EXPECT_THAT(again.until(anyKey), HasSubstr("Aldur"));
    again.type(" q  q");
    EXPECT_EQ(again.status(), 0);
    EXPECT_EQ(game.text("morchars.dat").size(), 50 * recordSize);
}
