#include "towne/scores.h"

#include "state/scores.h"
#include "support/temporary_directory.h"

struct ScoresOfTheBoard : InTemporaryDirectory {
    // Enters a score for a player into this file; what it holds then.
    static std::string enter(const std::string& before, const std::string& name, int score) {
        writeFile("scores.dat", before);
        game.player = {.name = name, .className = "Rogue", .experience = score};
        prepareScore();
        updateScores();
        return readFile("scores.dat");
    }
};

TEST_F(ScoresOfTheBoard, ScoreGoesBeforeTheFirstThatIsLower) {
    const std::string two = "A B#900Wizard\nC#100Wizard\n";
    EXPECT_EQ(enter(two, "Z", 901), "Z#901Rogue\nA B#900Wizard\nC#100Wizard\n");
    EXPECT_EQ(enter(two, "Z", 900), "A B#900Wizard\nZ#900Rogue\nC#100Wizard\n");
    EXPECT_EQ(enter(two, "Z", 100), "A B#900Wizard\nC#100Wizard\nZ#100Rogue\n");
    EXPECT_EQ(enter(two, "A B", 50), "A B#900Wizard\nC#100Wizard\n") << "his highest stays";
    EXPECT_EQ(enter("", "Z", -5), "Z#-5Rogue\n");
}

TEST_F(ScoresOfTheBoard, FullTableDropsItsLastOrStays) {
    std::string eight;
    for (const char name : std::string("ABCDEFGH")) {
        eight.append(1, name).append("#1000Wizard\n");
    }
    const std::string full = eight + "I#1000Wizard\nJ#1000Wizard\n";
    EXPECT_EQ(enter(full, "Z", 1000), full);
    EXPECT_EQ(enter(full, "Z", 1001), "Z#1001Rogue\n" + eight + "I#1000Wizard\n");
}

TEST_F(ScoresOfTheBoard, FileIsReadUpToABrokenEntry) {
    const std::string one = "A#-7Rogue\n";
    const std::string own = "Z#-9Rogue\n"; // goes to the end
    EXPECT_EQ(enter("A# -7 Rogue extra\nB#-8Rogue\n", "Z", -9), one + "extra\nB#-8Rogue\n" + own);
    EXPECT_EQ(enter("A#-7Rogue\nB#-8", "Z", -9), one + "B#-8\n" + own) << "no class";
    for (const char* broken : {"B", "B#", "B#b#6Rogue", "B#2147483648Rogue", "B#-", "#"}) {
        EXPECT_EQ(enter(one + broken, "Z", -9), one + own) << broken;
    }
}

TEST_F(ScoresOfTheBoard, TopTenPlacesColumnsByTheCursor) {
    const std::string name(50, 'n'); // one more than is shown
    std::string ten = name + "#-10Hobbit\n";
    for (int i = 0; i < 9; ++i) {
        ten.insert(0, "A\033#9Wizard\n");
    }
    writeFile("scores.dat", ten);
    caller.visit(showTopTen);
    EXPECT_THAT(caller.screen, EndsWith("{`r`}<10>{`R`. `W`  }<" + name.substr(1) +
                                        ">{   }[cursor 14 29]<-10>[cursor 14 47]{}<Hobbit>{|}"));
    EXPECT_THAT(readFile("scores.asc"),
                EndsWith("10.   " + name + "-10               Hobbit         \n"));
}

TEST_F(ScoresOfTheBoard, BulletinsAreReplacedWhenTheyChange) {
    enter("", "Arwen", 900);
    caller.visit(showTopTen);
    fs::create_hard_link("scores.asc", "kept");
    caller.visit(showTopTen);
    EXPECT_EQ(fs::hard_link_count("kept"), 2) << "the same file";
    enter(readFile("scores.dat"), "Bors", 800);
    caller.visit(showTopTen);
    EXPECT_EQ(fs::hard_link_count("kept"), 1);
}

TEST_F(ScoresOfTheBoard, TopTenWritesABulletinInColour) {
    writeFile("scores.dat", "A\033#9Wizard\n");
    showTopTen();
    EXPECT_THAT(
        readFile("scores.ans"),
        EndsWith("\033[0;31m1\033[1;31m.    \033[37mA                     9                 "
                 "\033[1;35mWizard         \033[0m\n"));
}
