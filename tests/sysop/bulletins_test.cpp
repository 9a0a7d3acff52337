#include "sysop/tool.h"

#include <nlohmann/json.hpp>

using nlohmann::json;

TEST_F(Sysop, ScoresAreTheGamesBulletins) {
    writeFile("scores.dat", "<b>Zo\x89\033[2J</b>#1500Ranger\nBjorn#900Wizard\n");
    EXPECT_EQ(told("scores"), "Morvek RPG Top Players:\n\n"
                              "Rank  Name                  Experience        Class\n"
                              "-----------------------------------------------------------\n"
                              "1.    <b>Zo\x89[2J</b>         1500              Ranger         \n"
                              "2.    Bjorn                 900               Wizard         \n");
    EXPECT_THAT(told("scores --ansi"), HasSubstr("\033[0;33mRanger"));
    EXPECT_THAT(told("scores --html"), HasSubstr("<td>&#60;b&#62;Zo\u00EB[2J&#60;/b&#62;</td>"));
    EXPECT_THAT(told("scores --html"), HasSubstr("Hosted by The Board"));
    EXPECT_EQ(json::parse(told("scores --json")), json::parse(R"([
        {"rank": 1, "name": "<b>Zoë[2J</b>", "score": 1500, "class": "Ranger"},
        {"rank": 2, "name": "Bjorn", "score": 900, "class": "Wizard"}])"));
    fs::remove("scores.dat");
    EXPECT_EQ(told("scores --json"), "[]\n");
}

TEST_F(Sysop, BoardHasNoColourCodesOrLostMessages) {
    std::string lost = storedText("lost");
    lost[4] = 21; // too long for the file
    writeFile("scroll.dat", storedText("Ar\bwen") + storedText("`red`R&D\x07`") +
                                storedText("Bjorn") + lost + storedText("Cyra"));
    EXPECT_EQ(told("board"), "Morvek's Scroll:\n\nArwen: R&D\n");
    EXPECT_THAT(told("board --html"),
                HasSubstr("<tr><td>Arwen</td><td>R&#38;D</td></tr>\n</table>"));
    EXPECT_EQ(json::parse(told("board --json")),
              json::parse(R"([{"author": "Arwen", "message": "R&D"}])"));
}

TEST_F(Sysop, NewsAreOfTodayOrAnotherDay) {
    writeFile("111526.txt", "It's a new day!\n\rAl\033ice joined the game.\n\r");
    EXPECT_EQ(told("news"),
              "Morvek: News of 2026-11-15:\n\nIt's a new day!\nAlice joined the game.\n");
    EXPECT_THAT(told("news --date 111426"), HasSubstr("News of 2026-11-14:\n\nNobody has joined"));
    EXPECT_EQ(json::parse(told("news --date 111526 --json"))["lines"].size(), 2u);
}

TEST_F(Sysop, PlayersAreListed) {
    PlayerRecord zoe = character("Al\x89\033x", "Zo\x89\x7f");
    zoe.onlineFlag = 1;
    zoe.lastPlayedDay = 10226;
    save({character("Bob", "Bjorn"), zoe});
    EXPECT_THAT(
        told("players"),
        EndsWith("  2  Al\u00EBx   Zo\u00EB        Ranger      1           0    25  marked   "
                 "2026-01-02\n2 of 49 places are taken.\n"));
    const json listed = json::parse(told("players --json"))[1];
    EXPECT_EQ(listed["lastDay"], "2026-01-02");
    EXPECT_TRUE(listed["online"] && !listed["inside"]);
}

TEST_F(Sysop, OnePlayerIsShownWhole) {
    PlayerRecord zoe = character("Alice", "Zoe");
    zoe.bankGold = 5e9;
    for (const std::size_t word : {0U, 1U, 2U, 6U, 30U, (888U - 272U) / 4}) {
        zoe.worldState[word] = 1;
    }
    save({character("Bob", "Bjorn"), zoe});
    EXPECT_THAT(told("show 2"), HasSubstr("5 of 76: 1-3, 7, 30\n"));
    const json shown = json::parse(told("show 2 --json"));
    EXPECT_EQ(shown["bankGold"], 5000000000);
    EXPECT_EQ(shown["world"]["searched"], (json{1, 2, 3, 7, 30}));
    EXPECT_EQ(shown["world"]["castle1"], json{1});
    EXPECT_THAT(told("show 3"), StartsWith("1: "));
}
