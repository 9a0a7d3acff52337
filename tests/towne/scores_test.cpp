#include "towne/scores.h"

#include "support/temporary_directory.h"

class ScoresOfTheBoard : public InTemporaryDirectory {
protected:
    // Enters a score for a player into this file; what it holds then.
    static std::string enter(const std::string& before, const std::string& name, int score) {
        writeFile("scores.dat", before);
        game.player = {.name = name, .className = "Rogue", .experience = score};
        prepareScore();
        updateScores(3);
        return readFile("scores.dat");
    }
};

TEST_F(ScoresOfTheBoard, AScoreGoesBeforeTheFirstThatIsLower) {
    const std::string two = "A B#900Wizard\nC#100Wizard\n";
    EXPECT_EQ(enter(two, "Z", 901), "Z#901Rogue\nA B#900Wizard\nC#100Wizard\n");
    EXPECT_EQ(enter(two, "Z", 900), "A B#900Wizard\nZ#900Rogue\nC#100Wizard\n");
    EXPECT_EQ(enter(two, "Z", 100), "A B#900Wizard\nC#100Wizard\nZ#100Rogue\n");
    EXPECT_EQ(enter(two, "A B", 50), "A B#900Wizard\nC#100Wizard\n") << "his highest stays";
    EXPECT_EQ(enter("", "Z", -5), "Z#-5Rogue\n");
}

TEST_F(ScoresOfTheBoard, AFullTableDropsItsLastOrIsWrittenAsItWasRead) {
    std::string eight;
    for (const char name : std::string("ABCDEFGH")) {
        eight.append(1, name).append("#1000Wizard\n");
    }
    const std::string full = eight + "I#1000Wizard\nJ#1000Wizard\n";
    EXPECT_EQ(enter(full, "Z", 1000), full);
    EXPECT_EQ(enter(full, "Z", 1001), "Z#1001Rogue\n" + eight + "I#1000Wizard\n");
    const std::string doubles = eight + "Z#1000Elf\nZ#999Elf\n";
    EXPECT_EQ(enter(doubles, "Z", 999), doubles) << "doubles and all";
}

TEST_F(ScoresOfTheBoard, AFileThatCannotBeWrittenCostsTheScoreWithTwoLines) {
    fs::create_directory("scores.dat");
    testing::internal::CaptureStderr();
    enter("", "Arwen", 500);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Could not open scores.dat for output!\n"
              "Output file opened insuccessfully.  Score not saved.\n");
}

TEST_F(ScoresOfTheBoard, ShowingTheListWritesTheBulletins) {
    std::string ten = std::string(50, 'n') + "#8Hobbit\n";
    for (int i = 0; i < 9; ++i) {
        ten.insert(0, "A#9Wizard\n");
    }
    writeFile("scores.dat", ten);
    caller.visit(showTopTen);
    EXPECT_TRUE(caller.saw("{`r`}<1>{`R`. `W`   }<A>{   }[cursor 5 29]<9>[cursor 5 47]"
                           "{`bright magenta`}<Wizard>{|}"));
    EXPECT_THAT(caller.screen, EndsWith("{`r`}<10>{`R`. `W`  }<" + std::string(49, 'n') +
                                        ">{   }[cursor 14 29]<8>[cursor 14 47]{}<Hobbit>{|}"));
    EXPECT_THAT(readFile("scores.asc"), StartsWith("Morvek RPG Top Players:\n"));
    EXPECT_THAT(readFile("scores.ans"), StartsWith("\033[0;31mMorvek"));
}
