// Levels, the training hall, its trainers and its questions.
#include "combat/fighters.h"
#include "combat/levels.h"
#include "combat/question_trainer.h"
#include "combat/trainer_fight.h"
#include "combat/training_hall.h"

namespace {

const std::string hall = "[menu training qtr]";
const std::string entrance =
    "{`r`T`R`)`W`ime to Train!|}{`r`R`R`)`W`eturn to Towne|`r`}[menu command tr]";
const std::string returning = "{||}{`r`Returning to Towne`R`...||}";

void beginAtLevel(int level, int experience) {
    meet("Trainer of Thorns");
    game.player.level = level;
    game.player.experience = experience;
}

} // namespace

TEST(Levels, ALevelRollsHitPointsStrengthDexterityIntelligenceAndHeals) {
    beginAtLevel(1, 1000);
    chance.script({0, 0, 0, 5, 5, 5, 0, 1, 2, 3, 3, 3});
    EXPECT_THAT(caller.visit(levelUp, "x"),
                HasSubstr("{`r`+`R`}<3>{`r` hit points!|}{`r`+`R`}<18>{`r` strength!|}"
                          "{`r`+`R`}<6>{`r` dexterity!|}{`r`+`R`}<12>{`r` intelligence!|}"));
    const Player& player = game.player;
    EXPECT_THAT(
        (std::vector{player.experienceNeeded, player.hitPoints, player.maxHitPoints,
                     player.strength, player.dexterity, player.intelligence, player.restoredTurns,
                     player.restoredTurnsPerDay, player.turnsLeft, game.encounter.lastRoll}),
        ElementsAre(2250, 43, 43, 18, 21, 12, 30, 30, 5, 12));
    EXPECT_TRUE(chance.seededBefore.empty());
}

TEST(Levels, NobodyRisesAboveSeven) {
    const std::string future = "{`r`Future levels will be added later.||}{`r`Press any key!|}[key]";
    beginAtLevel(6, 10000);
    EXPECT_THAT(caller.visit(levelUp, "xx"), EndsWith("[key]" + future));
    EXPECT_EQ(caller.visit(levelUp, "x"), future);
    EXPECT_EQ(game.player.level, 7);
}

TEST(Training, HallAndQuestionTrainerRefuseAlike) {
    const std::string weak = "{`r`You need `W`}<750>{ `r`more experience.||}[any key]";
    const std::string highest = "{||}{`r`You've reached the highest level.||}[any key]";
    const Cases<int, int, std::string, int> cases{
        {3, 3000, weak, 0}, {29, 999250, weak, 0}, {30, 2000000, highest, 1}, {31, 0, "", 1}};
    for (const auto& [level, experience, refusal, inTraining] : cases) {
        beginAtLevel(level, experience);
        EXPECT_THAT(caller.visit(trainingHall, refusal.empty() ? "tr" : "tkr"),
                    HasSubstr(refusal + "[clear]"));
        game.session.inTraining = 1;
        EXPECT_THAT(caller.visit(questionTrainer, "yk"), EndsWith(refusal + "{||}"));
        EXPECT_EQ(game.session.inTraining, inTraining) << level;
    }
}

TEST(Training, AYesToTheQuestionTrainerGivesAnsiAndANoEndsTheTraining) {
    newCall(false);
    game.player.level = 7;
    game.player.experience = 13000;
    EXPECT_THAT(caller.visit(questionTrainer, "yk"), HasSubstr("whenever you are.||}[any key]"));
    EXPECT_EQ(game.session.inTraining, 1);
    EXPECT_THAT(caller.visit(questionTrainer, "n"), StartsWith("[clear]"));
    EXPECT_EQ(game.session.inTraining, 0);
}

// The need in the player's record counts, not the table's.
TEST(Training, ATrainerGrowsWithTheLevelOfAPlayerWithTheExperience) {
    const Cases<int, int, std::deque<int>, std::vector<int>> cases{{1, 5, {11}, {10, 2, 6}},
                                                                   {2, 5, {0, 15}, {15, 4, 8}},
                                                                   {29, 5, {0, 123}, {150, 20, 62}},
                                                                   {12, 4, {}, {0, 15, 6}},
                                                                   {30, 5, {}, {0, 15, 6}}};
    for (const auto& [level, experience, draws, numbers] : cases) {
        beginAtLevel(level, experience);
        game.player.experienceNeeded = 5;
        chance.script(draws);
        prepareTrainer();
        const Monster& monster = game.encounter.monster;
        EXPECT_EQ(monster.name, draws.empty() ? "" : "Trainer");
        EXPECT_THAT((std::vector{monster.maxHitPoints, monster.initiative, monster.damage}),
                    numbers);
        EXPECT_EQ(monster.hitPoints, monster.maxHitPoints);
        EXPECT_EQ(chance.drawn, static_cast<int>(draws.size()));
        EXPECT_EQ(chance.seededBefore.size(), draws.size() / 2);
    }
}

TEST(TrainingFight, TheTrainerComesWithOneTAndIsFoughtWithTheNextUntilTheStatusKey) {
    beginAtLevel(1, 1000);
    game.encounter.monster.hitPoints = 0;
    EXPECT_THROW(caller.visit(trainingHall, "ttTyx"), OutOfKeys) << "back in the hall";
    const std::string fight = "[clear]{`r`Your HP`R`: `W`}<30>{`r`\\`W`}<40>{|}{`r`}<Trainer>"
                              "{'s HP`R`: `W`}<10>{`r`\\`W`}<10>";
    EXPECT_EQ(caller.times(entrance), 1);
    EXPECT_TRUE(caller.saw("{`r`A`R`)`W`ttack|}{`r`R`R`)`W`eturn to Towne|`r`}" + fight));
    EXPECT_EQ(caller.times(fight), 2);
    EXPECT_TRUE(caller.saw("eturn to Towne|}" + returning + "[clear]{`r`Training Hall|}"));
    EXPECT_THAT(caller.screen, EndsWith(hall));
    EXPECT_EQ(game.session.inTraining, 1);
    EXPECT_EQ(game.encounter.monster.hitPoints, 0);
}

// The entrance inside a won fight sets up the next trainer; the outer fight goes on with him.
TEST(TrainingFight, AWinRaisesTheLevelAndMayBringTheNextTrainerAtOnce) {
    beginAtLevel(1, 2250);
    game.encounter.monster.hitPoints = 1;
    EXPECT_THAT(caller.visit(trainingFight, "axtr"), EndsWith("[menu command ayr]" + returning));
    EXPECT_TRUE(caller.saw(entrance + "[clear]"));
    EXPECT_EQ(game.player.level, 2);
    EXPECT_EQ(game.encounter.monster.maxHitPoints, 15);
}

TEST(TrainingFight, ALossLeadsBackToTheEntrance) {
    beginAtLevel(1, 1000);
    game.player.hitPoints = 6;
    game.encounter.monster.initiative = 16;
    chance.script({0, 0, 5, 0, 1});
    EXPECT_THAT(caller.visit(trainingFight, "axxr"), EndsWith(entrance + returning));
    EXPECT_EQ(game.player.hitPoints, 40);
}
