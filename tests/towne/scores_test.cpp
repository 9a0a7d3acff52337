#include "towne/scores.h"

#include "support/temporary_directory.h"

class ScoresOfTheBoard : public InTemporaryDirectory {
protected:
    // Enters a score for the player and returns the file's new content.
    static std::string enter(const std::string& name, int score) {
        game.player = {.name = name, .className = "Rogue", .experience = score};
        prepareScore();
        updateScores(3);
        return readFile("scores.dat");
    }
    static std::string enterOver(const std::string& before, const std::string& name, int score) {
        writeFile("scores.dat", before);
        return enter(name, score);
    }
};

TEST_F(ScoresOfTheBoard, AScoreGoesBeforeTheFirstThatIsLower) {
    const std::string two = "A B#900Wizard\nC#100Wizard\n";
    EXPECT_EQ(enterOver(two, "Z", 901), "Z#901Rogue\nA B#900Wizard\nC#100Wizard\n");
    EXPECT_EQ(enterOver(two, "Z", 900), "A B#900Wizard\nZ#900Rogue\nC#100Wizard\n");
    EXPECT_EQ(enterOver(two, "Z", 100), "A B#900Wizard\nC#100Wizard\nZ#100Rogue\n");
    EXPECT_EQ(enterOver(two, "A B", 50), "A B#900Wizard\nC#100Wizard\n") << "his highest stays";
    EXPECT_EQ(enterOver("", "Z", -5), "Z#-5Rogue\n");
    fs::remove("scores.dat");
    EXPECT_EQ(enter("Arwen", 500), "Arwen#500Rogue\n");
}

TEST_F(ScoresOfTheBoard, AFullTableDropsItsLastOrIsWrittenAsItWasRead) {
    std::string eight;
    for (const char name : std::string("ABCDEFGH")) {
        eight.append(1, name).append("#1000Wizard\n");
    }
    const std::string full = eight + "I#1000Wizard\nJ#1000Wizard\n";
    EXPECT_EQ(enterOver(full, "Z", 1000), full);
    EXPECT_EQ(enterOver(full, "Z", 1001), "Z#1001Rogue\n" + eight + "I#1000Wizard\n");
    const std::string doubles = eight + "Z#1000Elf\nZ#999Elf\n";
    EXPECT_EQ(enterOver(doubles, "Z", 999), doubles) << "doubles and all";
}

TEST_F(ScoresOfTheBoard, AFileThatCannotBeWrittenCostsTheScoreWithTwoLines) {
    writeFile("scores.dat", "A#9Wizard\n", 0444);
    const AsNobody nobody;
    testing::internal::CaptureStderr();
    EXPECT_EQ(enter("Arwen", 500), "A#9Wizard\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Could not open scores.dat for output!\n"
              "Output file opened insuccessfully.  Score not saved.\n");
}

TEST_F(ScoresOfTheBoard, ShowingTheListWritesTheBulletins) {
    std::string ten;
    for (int i = 0; i < 9; ++i) {
        ten += "A#9Wizard\n";
    }
    ten += std::string(50, 'n') + "#8Hobbit\n";
    writeFile("scores.dat", ten);
    caller.visit(showTopTen);
    EXPECT_TRUE(caller.saw("{`r`}<1>{`R`. `W`   }<A>{   }[cursor 5 29]<9>[cursor 5 47]"
                           "{`bright magenta`}<Wizard>{|}"));
    EXPECT_THAT(caller.screen, EndsWith("{`r`}<10>{`R`. `W`  }<" + std::string(49, 'n') +
                                        ">{   }[cursor 14 29]<8>[cursor 14 47]{}<Hobbit>{|}"));
    EXPECT_THAT(readFile("scores.asc"), StartsWith("Morvek RPG Top Players:\n"));
    EXPECT_THAT(readFile("scores.ans"), StartsWith("\033[0;31mMorvek"));
}
