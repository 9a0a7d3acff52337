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

// What others smuggle into their texts is neither obeyed by a terminal nor stored: a caller looks
// at the top ten, the list, who is on-line, his status and the board, and attacks another.
TEST(ProgramJourney, ThroughTextsThatSteerNobody) {
    const std::string text = "Qz\r\n\033\a\x7f\b[2J\x9b\xff";
    const auto slot = [](std::string value) {
        const std::string length{static_cast<char>(value.size()), '\0', '\0', '\0'};
        value.resize(16);
        return std::string(4, '\0') + length + value;
    };
    std::string roster;
    for (const char* owner : {"Ace", "Bob"}) {
        std::string record(recordSize, '\0');
        for (const std::size_t at : {0, 24, 84, 108, 196, 224}) {
            record.replace(at, 24, slot(text));
        }
        record.replace(ownerNameAt - 8, 24, slot(owner));
        for (const std::size_t at : {56, 132, 160, 164, 192, 220}) {
            record[at] = 1;
        }
        roster += record;
    }
    roster.resize(50 * recordSize);
    Game game;
    game.write("morchars.dat", roster);
    game.write("scroll.dat", slot(text) + slot(text));
    game.write("scores.dat", text + "#1Rogue\n");
    const Child call = game.program({"-LOCAL", "-ASCII", "-USERNAME", "Ace\033\r"});
    const Outcome outcome = runWithKeys(call, "hxsxlxoxyxtlcrp2\ryyxrqxxq");
    EXPECT_EQ(outcome.status, 0);
    const std::string shown = outcome.shown + game.text("scores.asc") + game.text("scores.ans");
    int count = 0;
    for (std::size_t at = 0; (at = shown.find("Qz", at)) != std::string::npos; ++count) {
        at += 2;
        EXPECT_EQ(shown.at(at), '[') << shown.substr(0, at);
    }
    EXPECT_GT(count, 8);
    EXPECT_THAT(shown, HasSubstr("Qz[2J\x9b\xff"));
    EXPECT_THAT(game.data().begin()->second, HasSubstr("\rAce joined"));
    EXPECT_THAT(runWithKeys(game.program({text}), "").complaints,
                StartsWith("unknown option Qz[2J\x9b\xff\n"));
}
