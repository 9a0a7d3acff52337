#include "sysop/tool.h"

#include <nlohmann/json.hpp>

using namespace morvek;
using namespace morvek::test;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

TEST_F(Sysop, ScoresAreTheGamesBulletinsAndSafeOnTheWeb) {
    writeFile("scores.dat", "<b>Zo\x89\033[2J</b>#1500Ranger\nBjorn#900Wizard\n");
    EXPECT_EQ(run({"scores"}), 0);
    EXPECT_EQ(out, "Morvek RPG Top Players:\n\n"
                   "Rank  Name                  Experience        Class\n"
                   "-----------------------------------------------------------\n"
                   "1.    <b>Zo\x89[2J</b>         1500              Ranger         \n"
                   "2.    Bjorn                 900               Wizard         \n");
    EXPECT_EQ(run({"scores", "--ansi"}), 0);
    EXPECT_THAT(out, HasSubstr("\033[0;33mRanger"));
    EXPECT_THAT(out, Not(HasSubstr("\033[2J")));
    EXPECT_EQ(run({"scores", "--html"}), 0);
    EXPECT_THAT(out, HasSubstr("<td>&lt;b&gt;Zo\u00EB[2J&lt;/b&gt;</td>"));
    EXPECT_THAT(out, HasSubstr("Hosted by The Board"));
    EXPECT_EQ(run({"scores", "--json"}), 0);
    EXPECT_EQ(json::parse(out), json::parse(R"([
        {"rank": 1, "name": "<b>Zoë[2J</b>", "score": 1500, "class": "Ranger"},
        {"rank": 2, "name": "Bjorn", "score": 900, "class": "Wizard"}])"));
    EXPECT_EQ(run({"scores", "--json", "--html"}), 2);
    std::filesystem::remove("scores.dat");
    EXPECT_EQ(run({"scores", "--json"}), 0);
    EXPECT_EQ(json::parse(out), json::array());
}

TEST_F(Sysop, TheBoardIsShownWithoutColourCodesAndLostMessages) {
    std::string bytes;
    const auto add = [&](std::string_view author, std::string_view message) {
        for (const std::string_view text : {author, message}) {
            TextSlot slot(text);
            slot.length = static_cast<std::uint32_t>(text.size());
            bytes.append(reinterpret_cast<const char*>(&slot), sizeof slot);
        }
    };
    add("Arwen", "`red`R&D\x07`");
    add("Bjorn", "too long for the file");
    add("Cyra", "");
    writeFile("scroll.dat", bytes); // a short file: the rest is empty
    EXPECT_EQ(run({"board"}), 0);
    EXPECT_EQ(out, "Morvek's Scroll:\n\nArwen: R&D\n");
    EXPECT_EQ(run({"board", "--html"}), 0);
    EXPECT_THAT(out, HasSubstr("<dt>Arwen</dt><dd>R&amp;D</dd>\n</dl>"));
    EXPECT_EQ(run({"board", "--json"}), 0);
    EXPECT_EQ(json::parse(out), json::parse(R"([{"author": "Arwen", "message": "R&D"}])"));
}

TEST_F(Sysop, TheNewsAreOfTodayOrOfTheDayAskedFor) {
    writeFile("111526.txt", "It's a new day!\n\rAl\033ice joined the game.\n\r");
    EXPECT_EQ(run({"news"}), 0);
    EXPECT_EQ(out, "Morvek: News of 2026-11-15:\n\nIt's a new day!\nAlice joined the game.\n");
    EXPECT_EQ(run({"news", "--date", "111426"}), 0);
    EXPECT_THAT(out, HasSubstr("News of 2026-11-14:\n\nNobody has joined"));
    EXPECT_EQ(run({"news", "--date", "111526", "--json"}), 0);
    EXPECT_EQ(json::parse(out)["lines"].size(), 2u);
    EXPECT_EQ(run({"news", "--date", "133126"}), 2);
    EXPECT_EQ(run({"news", "--date", "../a"}), 2);
}

TEST_F(Sysop, PlayersAreListedAndShownWhole) {
    EXPECT_EQ(run({"players"}), 0);
    EXPECT_EQ(out, "Nobody has a character yet.\n");
    PlayerRecord zoe = character("Al\x89x", "Zo\x89");
    zoe.onlineFlag = 1;
    zoe.lastPlayedDay = 10226;
    zoe.bankGold = 5e9;
    for (const std::size_t word : {0U, 1U, 2U, 6U, 30U}) {
        zoe.worldState[word] = 1;
    }
    zoe.worldState[(888 - 272) / 4] = 1;
    save({character("Bob", "Bjorn"), zoe});

    EXPECT_EQ(run({"players"}), 0);
    EXPECT_THAT(out, HasSubstr("  2  Al\u00EBx            Zo\u00EB             Ranger       1 "
                               "          0          25  yes     2026-01-02\n"));
    EXPECT_EQ(run({"players", "--json"}), 0);
    EXPECT_EQ(json::parse(out)[1], json::parse(R"({"number": 2, "ownerName": "Alëx",
        "name": "Zoë", "className": "Ranger", "level": 1, "experience": 0, "gold": 25,
        "online": true, "lastDay": "2026-01-02"})"));

    EXPECT_EQ(run({"show", "2"}), 0);
    EXPECT_THAT(out, HasSubstr("5 of 76 places: 1-3, 7, 30\n"));
    EXPECT_THAT(out, HasSubstr("Castle Level 1                1 of 24 rooms cleared: 1\n"));
    EXPECT_EQ(run({"show", "2", "--json"}), 0);
    const json shown = json::parse(out);
    EXPECT_EQ(shown["bankGold"], 5000000000);
    EXPECT_EQ(shown["world"]["searched"], (json{1, 2, 3, 7, 30}));
    EXPECT_EQ(shown["world"]["levels"]["castle1"]["cleared"], json{1});
    EXPECT_EQ(run({"show", "3"}), 1);
    EXPECT_EQ(run({"show"}), 2);
}

TEST_F(Sysop, ShowsNoControlByteOfAnyFile) {
    std::string all;
    std::vector<PlayerRecord> slots(18, character("Bob", "Bjorn"));
    for (int byte = 1; byte < 256; ++byte) {
        all += static_cast<char>(byte);
        PlayerRecord& slot = slots[static_cast<std::size_t>(byte / 15)];
        for (TextSlot* text : {&slot.ownerName, &slot.name, &slot.className, &slot.weapon}) {
            text->assign(all.substr(all.size() / 15 * 15));
        }
    }
    save(slots);
    writeFile("scores.dat", "#5" + all + "\n" + all + "#4\x1b[2J\n");
    writeFile("scroll.dat", std::string(reinterpret_cast<const char*>(&slots[0].name), 48));
    writeFile("111526.txt", all);
    for (const std::string verb : {"players", "show 1", "check", "scores", "news", "board"}) {
        for (const char* format : {"", " --json", " --html"}) {
            std::istringstream words(verb + format);
            run({std::istream_iterator<std::string>(words), {}});
            EXPECT_TRUE(std::all_of(
                out.begin(), out.end(),
                [](char byte) {
                    return byte == '\n' || (static_cast<unsigned char>(byte) >= ' ' && byte != 127);
                }))
                << verb << format << out;
        }
    }
}
