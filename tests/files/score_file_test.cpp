#include "files/score_file.h"

#include "support/game_test.h"

namespace {

// The entries of a text, one a line, fields between bars.
std::string entriesOf(std::string_view text) {
    std::array<ScoreEntry, topTenSize> table{};
    const auto count = static_cast<std::size_t>(parseScores(text, table));
    std::string lines = std::to_string(count);
    for (const ScoreEntry& entry : std::span(table).first(count)) {
        lines += " " + entry.name + "|" + std::to_string(entry.score) + "|" + entry.className;
    }
    return lines;
}

} // namespace

TEST(ScoreFile, ReadsEntriesUntilOneIsNotWhole) {
    EXPECT_EQ(entriesOf("Arwen#1500Ranger\nTom Bombadil#30Wizard\n"),
              "2 Arwen|1500|Ranger Tom Bombadil|30|Wizard");
    EXPECT_EQ(entriesOf("A# 5 Rogue extra\nB#6Rogue\n"), "2 A|5|Rogue extra\nB|6|Rogue");
    EXPECT_EQ(entriesOf("A#5Rogue\nB#9"), "2 A|5|Rogue B|9|") << "the last class may be missing";
    EXPECT_EQ(entriesOf("A#-7Rogue"), "1 A|-7|Rogue");
    for (const char* broken : {"B", "B#", "B#b#6Rogue", "B#2147483648Rogue", "B#-", "#"}) {
        EXPECT_EQ(entriesOf(std::string("A#5Rogue\n") + broken), "1 A|5|Rogue") << broken;
    }
    EXPECT_EQ(entriesOf(""), "1 |0|") << "an empty file reads as one empty entry";
    std::string eleven;
    for (int i = 0; i < 11; ++i) {
        eleven += "A#1Rogue\n";
    }
    EXPECT_EQ(entriesOf(eleven).substr(0, 3), "10 ");
}

TEST(ScoreFile, WritesBothBulletinsByteForByte) {
    std::vector<ScoreEntry> entries(10);
    entries[0] = {"Arwen of the Long Long Name", 1500, "Ranger"}; // padded, never cut
    entries[2] = {"Bi\033lbo\n", -20, "Hobbit"};                  // no colour; no control bytes
    entries[9] = {"Last", 1, "Wizard"};
    EXPECT_EQ(plainBulletin(entries),
              "Morvek RPG Top Players:\n\n"
              "Rank  Name                  Experience        Class\n"
              "-----------------------------------------------------------\n"
              "1.    Arwen of the Long Long Name1500              Ranger         \n"
              "3.    Bilbo                 -20               Hobbit         \n"
              "10.   Last                  1                 Wizard         \n");
    EXPECT_EQ(ansiBulletin(entries),
              "\033[0;31mMorvek RPG Top Players\033[1m:\n\n"
              "\033[0;31mRank  Name                  Experience        Class\033[37m\n"
              "\033[1;37m-----------------------------------------------------------\033[0m\n"
              "\033[0;31m1\033[1;31m.    \033[37mArwen of the Long Long Name1500              "
              "\033[0;33mRanger         \033[0m\n"
              "\033[0;31m3\033[1;31m.    \033[37mBilbo                 -20               "
              "Hobbit         \033[0m\n"
              "\033[0;31m10\033[1;31m.   \033[37mLast                  1                 "
              "\033[1;35mWizard         \033[0m\n");
}
