// Levels, the training hall, its trainers and its questions.
#include "combat/levels.h"
#include "combat/question_trainer.h"
#include "combat/trainer_fight.h"
#include "combat/training_hall.h"
#include "fighters.h"

using namespace morvek;
using namespace morvek::test;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

const std::string futureLevels = "say `red`Future levels will be added later.||\n"
                                 "say `red`Press any key!|\nkey\n";
const std::string title = "clear\nsay `red`Training Hall|\n"
                          "say `bright white`----------------------------------||\n";
const std::string hall = title + "say `red`Q`bright red`)`bright white`uestion Trainer|\n"
                                 "say `red`T`bright red`)`bright white`rain me!|\n"
                                 "say `red`R`bright red`)`bright white`eturn to Towne|\n"
                                 "menu training qtr\n";
const std::string attackLine = "say `red`A`bright red`)`bright white`ttack|\n";
const std::string returnLine = "say `red`R`bright red`)`bright white`eturn to Towne|";
const std::string entrance = title + "say `red`T`bright red`)`bright white`ime to Train!|\n" +
                             returnLine + "`red`\nmenu command tr\n";
const std::string returning = "say ||\nsay `red`Returning to Towne`bright red`...||\n";

void beginAtLevel(int level, int experience) {
    meet("Trainer of Thorns");
    game.player.level = level;
    game.player.experience = experience;
}

} // namespace

TEST(Levels, TheNeedsAreThoseOfTheTable) {
    const std::vector<int> needs{1000,   2250,   3750,   5500,   7500,   10000,  13000,  16500,
                                 20500,  26000,  32000,  39000,  47000,  57000,  69000,  83000,
                                 99000,  119000, 143000, 175000, 210000, 255000, 310000, 375000,
                                 450000, 550000, 675000, 825000, 1000000};
    for (std::size_t level = 1; level <= 29; ++level) {
        EXPECT_EQ(experienceToRise(static_cast<int>(level)), needs[level - 1]) << level;
    }
}

TEST(Levels, ALevelRollsHitPointsStrengthDexterityIntelligenceAndHeals) {
    beginAtLevel(1, 1000);
    chance.script({0, 0, 0, 5, 5, 5, 0, 1, 2, 3, 3, 3});
    caller.type("x");
    levelUp();
    EXPECT_EQ(caller.screen(),
              "say `red`Congratulations!||\nsay `red`You are now level `bright red`\nshow 2\n"
              "say `red`!||\nsay `red`Your turns have been restored.||\n"
              "say `red`+`bright red`\nshow 3\nsay `red` hit points!|\n"
              "say `red`+`bright red`\nshow 18\nsay `red` strength!|\n"
              "say `red`+`bright red`\nshow 6\nsay `red` dexterity!|\n"
              "say `red`+`bright red`\nshow 12\nsay `red` intelligence!|\n"
              "say |\nsay `red`Press any key!|\nkey\n");
    const Player& player = game.player;
    EXPECT_THAT(
        (std::vector{player.experienceNeeded, player.hitPoints, player.maxHitPoints,
                     player.strength, player.dexterity, player.intelligence, player.restoredTurns,
                     player.restoredTurnsPerDay, player.turnsLeft, game.encounter.lastRoll}),
        ElementsAre(2250, 43, 43, 18, 21, 12, 30, 30, 5, 12));
    EXPECT_TRUE(chance.seededBefore.empty());
}

TEST(Levels, NobodyRisesAboveSeven) {
    beginAtLevel(6, 10000);
    caller.type("xx");
    levelUp();
    EXPECT_EQ(game.player.level, 7);
    EXPECT_THAT(caller.screen(), EndsWith("key\n" + futureLevels));
    caller.type("x");
    levelUp();
    EXPECT_EQ(game.player.level, 7);
    EXPECT_EQ(caller.screen(), futureLevels);
}

TEST(Training, HallAndQuestionTrainerRefuseAlike) {
    const std::string weak = "say ||\nsay `red`You're too weak to train!||\n"
                             "say `red`You need `bright white`\nshow 750\n"
                             "say  `red`more experience.||\nsay `red`Press any key!\nkey\n";
    const std::string highest = "say ||\nsay `red`You've reached the highest level.||\n"
                                "say `red`Press any key!\nkey\n";
    struct Case {
        int level, experience;
        std::string refusal;
        int inTraining; // which was 1
    };
    for (const Case& one : std::vector<Case>{{3, 3000, weak, 0},
                                             {29, 999250, weak, 0},
                                             {30, 2000000, highest, 1},
                                             {31, 0, "", 1}}) {
        beginAtLevel(one.level, one.experience);
        caller.type(one.refusal.empty() ? "tr" : "tkr");
        trainingHall();
        EXPECT_EQ(caller.screen(),
                  hall + one.refusal + hall + "say `bright white`Return to Towne!\n");
        game.session.inTraining = 1;
        caller.type("yk");
        questionTrainer();
        EXPECT_THAT(caller.screen(), EndsWith("`bright white`!\n" + one.refusal + "say ||\n"));
        EXPECT_EQ(game.session.inTraining, one.inTraining) << one.level;
    }
}

TEST(Training, AYesToTheQuestionTrainerGivesAnsiAndANoEndsTheTraining) {
    newCall(false);
    game.player.level = 7;
    game.player.experience = 13000;
    caller.type("ykn");
    questionTrainer();
    EXPECT_EQ(game.session.inTraining, 1);
    questionTrainer();
    const std::string question =
        "say `red`Question Trainer:||\nsay So you think you've got bigger muscles than me? \n"
        "say  `red`(`bright red`Y`red`/`bright red`N`red`)`bright red`: \nanswer YN\n";
    EXPECT_EQ(caller.screen(), "say ||\n" + question +
                                   "say `bright white`YES`bright white`!\nsay ||\n"
                                   "say `red`I'm ready whenever you are.||\n"
                                   "say `red`Press any key!\nkey\nsay ||\nclear\n" +
                                   question + "say NO!\nsay ||\n");
    EXPECT_EQ(game.session.inTraining, 0);
}

// The need in the player's record counts, not the table's.
TEST(Training, ATrainerGrowsWithTheLevelOfAPlayerWithTheExperience) {
    struct Case {
        int level, experience;
        std::deque<int> draws;
        std::vector<int> numbers; // hit points, initiative, damage
    };
    for (const Case& one : std::vector<Case>{{1, 5, {11}, {10, 2, 6}},
                                             {2, 5, {0, 15}, {15, 4, 8}},
                                             {29, 5, {0, 123}, {150, 20, 62}},
                                             {12, 4, {}, {0, 15, 6}},
                                             {30, 5, {}, {0, 15, 6}}}) {
        beginAtLevel(one.level, one.experience);
        game.player.experienceNeeded = 5;
        chance.script(one.draws);
        prepareTrainer();
        const Monster& monster = game.encounter.monster;
        EXPECT_EQ(monster.name, one.draws.empty() ? "" : "Trainer");
        EXPECT_THAT((std::vector{monster.maxHitPoints, monster.initiative, monster.damage}),
                    one.numbers);
        EXPECT_EQ(monster.hitPoints, monster.maxHitPoints);
        EXPECT_EQ(chance.drawn, static_cast<int>(one.draws.size()));
        EXPECT_EQ(chance.seededBefore.size(), one.draws.size() / 2);
    }
}

TEST(TrainingFight, TheTrainerComesWithOneTAndIsFoughtWithTheNextUntilTheStatusKey) {
    beginAtLevel(1, 1000);
    game.encounter.monster.hitPoints = 0;
    caller.type("ttTyx");
    EXPECT_THROW(trainingHall(), OutOfKeys) << "back in the hall";
    const std::string player = "say `red`Your HP`bright red`: `bright white`\n"
                               "show 30\nsay `red`\\`bright white`\nshow 40\nsay |\n";
    const std::string trainer = "HP`bright red`: `bright white`\n"
                                "show 10\nsay `red`\\`bright white`\nshow 10\n";
    const std::string fight = "clear\n" + player + "say `red`\nshow Trainer\nsay 's " + trainer +
                              "say ||\n" + attackLine +
                              "say `red`Y`bright red`)`bright white`our Status|\n" + returnLine;
    EXPECT_THAT(caller.screen(),
                testing::StartsWith(
                    hall + entrance + hall + title +
                    "say `red`You've encountered the `bright white`\nshow Trainer\nsay `red.`|\n" +
                    player + "say `bright white`\nshow Trainer\nsay 's `red`" + trainer +
                    "say |\n" + attackLine + returnLine + "`red`\n" + fight +
                    "\nmenu command ayr\nclear\nsay `red`Your Status`bright red:\n"));
    EXPECT_THAT(caller.screen(), EndsWith("key\n" + fight + "\n" + returning + hall));
    EXPECT_EQ(game.session.inTraining, 1);
    EXPECT_EQ(game.encounter.monster.hitPoints, 0);
}

// The entrance inside a won fight sets up the next trainer; the outer fight goes on with him.
TEST(TrainingFight, AWinRaisesTheLevelAndMayBringTheNextTrainerAtOnce) {
    beginAtLevel(1, 2250);
    game.encounter.monster.hitPoints = 1;
    caller.type("axtr");
    trainingFight();
    EXPECT_THAT(caller.screen(), HasSubstr("points!||\nclear\nsay `bright white`\n"
                                           "show Trainer of Thorns\nsay  `red`has been beaten!||\n"
                                           "say `red`Congratulations!||\n"));
    EXPECT_THAT(caller.screen(), HasSubstr("|\nkey\n" + entrance + "clear\n"));
    EXPECT_THAT(caller.screen(), EndsWith("menu command ayr\n" + returning));
    EXPECT_EQ(game.encounter.monster.maxHitPoints, 15);
}

TEST(TrainingFight, ALossLeadsBackToTheEntrance) {
    beginAtLevel(1, 1000);
    game.player.hitPoints = 6;
    game.encounter.monster.initiative = 16;
    caller.type("axxr");
    chance.script({0, 0, 5, 0, 1});
    trainingFight();
    EXPECT_EQ(game.player.hitPoints, 40);
    EXPECT_THAT(caller.screen(), EndsWith("say `red`You Missed!||\n" + entrance + returning));
}
