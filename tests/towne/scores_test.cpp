#include "towne/scores.h"

#include "state/game_state.h"
#include "support/temporary_directory.h"

#include <sys/stat.h>

using namespace morvek;
using namespace morvek::test;

class ScoresOfTheBoard : public InTemporaryDirectory {
protected:
    // Enters a score for the player over the file's content and returns the new content.
    static std::string enter(const std::string& before, const std::string& name, int score) {
        writeFile("scores.dat", before);
        return enter(name, score);
    }
    static std::string enter(const std::string& name, int score) {
        game.player.name = name;
        game.player.className = "Rogue";
        game.player.experience = score;
        prepareScore();
        updateScores(3);
        return readFile("scores.dat");
    }
    static std::string tenOf(int score) {
        std::string text;
        for (int i = 0; i < 10; ++i) {
            text += std::string(1, static_cast<char>('A' + i)) + "#" + std::to_string(score) +
                    "Wizard\n";
        }
        return text;
    }
};

TEST_F(ScoresOfTheBoard, AMissingFileBecomesOneLine) {
    EXPECT_EQ(enter("Arwen", 500), "Arwen#500Rogue\n");
    EXPECT_EQ(caller.screen(), "say |\n");
    EXPECT_EQ(enter("Arwen", 800), "Arwen#800Rogue\n") << "the player keeps one line";
    EXPECT_EQ(caller.screen(), "say |\nsay |\n");
}

TEST_F(ScoresOfTheBoard, AScoreGoesBeforeTheFirstThatIsLower) {
    const std::string two = "A B#900Wizard\nC#100Wizard\n";
    EXPECT_EQ(enter(two, "Z", 901), "Z#901Rogue\nA B#900Wizard\nC#100Wizard\n");
    EXPECT_EQ(enter(two, "Z", 900), "A B#900Wizard\nZ#900Rogue\nC#100Wizard\n");
    EXPECT_EQ(enter(two, "Z", 100), "A B#900Wizard\nC#100Wizard\nZ#100Rogue\n");
    EXPECT_EQ(enter(two, "A B", 50), "A B#900Wizard\nC#100Wizard\n") << "his highest stays";
    EXPECT_EQ(enter("", "Z", 5), "Z#5Rogue\n") << "an empty file holds one empty entry";
    EXPECT_EQ(enter("", "Z", -5), "Z#-5Rogue\n");
    EXPECT_EQ(enter("broken", "Z", 5), "Z#5Rogue\n");
}

TEST_F(ScoresOfTheBoard, AFullTableDropsItsLastOrIsWrittenAsItWasRead) {
    const std::string full = tenOf(1000);
    EXPECT_EQ(enter(full, "Z", 1000), full);
    EXPECT_EQ(enter(full, "Z", 1001), "Z#1001Rogue\n" + full.substr(0, full.size() - 13));
    const std::string doubles = full.substr(0, full.size() - 26) + "Z#1000Elf\nZ#999Elf\n";
    EXPECT_EQ(enter(doubles, "Z", 999), doubles) << "doubles and all";
}

TEST_F(ScoresOfTheBoard, AFileThatCannotBeWrittenCostsTheScoreWithTwoLines) {
    std::filesystem::create_directory("scores.dat");
    testing::internal::CaptureStderr();
    enter("Arwen", 500);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Could not open scores.dat for output!\n"
              "Output file opened insuccessfully.  Score not saved.\n");
    std::filesystem::remove("scores.dat");
    writeFile("scores.dat", "A#9Wizard\n");
    ASSERT_EQ(::chmod("scores.dat", 0444), 0);
    ASSERT_EQ(::chmod(".", 0777), 0);
    caller.type("");
    testing::internal::CaptureStderr();
    {
        const AsNobody nobody;
        EXPECT_EQ(enter("Arwen", 500), "A#9Wizard\n");
    }
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
    EXPECT_TRUE(caller.calls.empty()) << "a file that could be read: nothing is said";
}

TEST_F(ScoresOfTheBoard, ShowingTheListWritesTheBulletins) {
    showTopTen();
    EXPECT_EQ(caller.screen(), "say ||\nsay `bright white`Top 10 Scores List is empty.|\n");
    EXPECT_FALSE(std::filesystem::exists("scores.asc"));

    std::string nine;
    for (int i = 0; i < 9; ++i) {
        nine += "A#9Wizard\n";
    }
    writeFile("scores.dat", nine + std::string(50, 'n') + "#8Hobbit\n");
    caller.type("");
    showTopTen();
    const std::string screen = caller.screen();
    EXPECT_EQ(screen.substr(0, screen.find("say `red`\n")),
              "clear\nsay `Red`Top 10 Players`bright red`:\nsay |\nsay |\nsay `red`Rank\n"
              "say `red`  Name                  Experience        Class\nsay |\n"
              "say `bright white`-----------------------------------------------------------|\n");
    EXPECT_TRUE(screen.find("say `red`\nshow 1\nsay `bright red`. `bright white`   \nshow A\n"
                            "say    \ncursor 5 29\nshow 9\ncursor 5 47\nsay `bright magenta`\n"
                            "show Wizard\nsay |\n") != std::string::npos);
    EXPECT_TRUE(screen.ends_with("say `red`\nshow 10\nsay `bright red`. `bright white`  \nshow " +
                                 std::string(49, 'n') +
                                 "\nsay    \ncursor 14 29\nshow 8\ncursor 14 47\nsay \n"
                                 "show Hobbit\nsay |\n"));
    EXPECT_EQ(readFile("scores.asc").substr(0, 24), "Morvek RPG Top Players:\n");
    EXPECT_EQ(readFile("scores.ans").substr(0, 7), "\033[0;31m");

    writeFile("scores.dat", "");
    caller.type("");
    showTopTen();
    EXPECT_EQ(caller.screen().find("show"), std::string::npos);
}
