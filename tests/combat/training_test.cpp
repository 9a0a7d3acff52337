// Levels, the training hall, its trainers and its questions.
#include "combat/fighters.h"
#include "combat/levels.h"
#include "combat/trainer_fight.h"
#include "combat/training_hall.h"

namespace {

const std::string pauseWithLine = "{`r`Press any key!|}[key]";
const std::string futureLevels = "{`r`Future levels will be added later.||}" + pauseWithLine;
const std::string title = "[clear]{`r`Training Hall|}{`W`----------------------------------||}";
const std::string returnLine = "{`r`R`R`)`W`eturn to Towne|";
const std::string hall = title + "{`r`Q`R`)`W`uestion Trainer|}{`r`T`R`)`W`rain me!|}" +
                         returnLine + "}[menu training qtr]";
const std::string entrance =
    title + "{`r`T`R`)`W`ime to Train!|}" + returnLine + "`r`}[menu command tr]";
const std::string returning = "{||}{`r`Returning to Towne`R`...||}";

void beginAtLevel(int level, int experience) {
    meet("Trainer of Thorns");
    game.player.level = level;
    game.player.experience = experience;
}

} // namespace

TEST(Levels, ALevelRollsHitPointsStrengthDexterityIntelligenceAndHealsUpToTheSeventh) {
    beginAtLevel(6, 10000);
    chance.script({0, 0, 0, 5, 5, 5, 0, 1, 2, 3, 3, 3});
    EXPECT_EQ(caller.visit(levelUp, "xx"),
              "{`r`Congratulations!||}{`r`You are now level `R`}<7>{`r`!||}"
              "{`r`Your turns have been restored.||}{`r`+`R`}<3>{`r` hit points!|}"
              "{`r`+`R`}<18>{`r` strength!|}{`r`+`R`}<6>{`r` dexterity!|}"
              "{`r`+`R`}<12>{`r` intelligence!|}{|}" +
                  pauseWithLine + futureLevels);
    const Player& player = game.player;
    EXPECT_EQ(inARow(player.experienceNeeded, player.hitPoints, player.maxHitPoints,
                     player.strength, player.dexterity, player.intelligence, player.restoredTurns,
                     player.restoredTurnsPerDay, player.turnsLeft, game.encounter.lastRoll,
                     chance.seededBefore.size()),
              "13000 43 43 18 21 12 30 30 5 12 0");
    EXPECT_EQ(caller.visit(levelUp, "x"), futureLevels);
    EXPECT_EQ(player.level, 7);
}

TEST(Training, HallAndQuestionTrainerRefuseAlike) {
    const std::string weak = "{||}{`r`You're too weak to train!||}{`r`You need `W`}<750>"
                             "{ `r`more experience.||}[any key]";
    const std::string highest = "{||}{`r`You've reached the highest level.||}[any key]";
    const Cases<int, int, std::string, int> cases{{3, 3000, weak, 0},        {17, 98250, weak, 0},
                                                  {23, 309250, weak, 0},     {29, 999250, weak, 0},
                                                  {30, 2000000, highest, 1}, {31, 0, "", 1}};
    for (const auto& [level, experience, refusal, inTraining] : cases) {
        beginAtLevel(level, experience);
        EXPECT_EQ(caller.visit(trainingHall, refusal.empty() ? "tr" : "tkr"),
                  hall + refusal + hall + "{`W`Return to Towne!}");
        game.session.inTraining = 1;
        EXPECT_THAT(caller.visit(questionTrainer, "yk"),
                    EndsWith("{`W`YES`W`!}" + refusal + "{||}"));
        EXPECT_EQ(game.session.inTraining, inTraining) << level;
    }
}

TEST(Training, AYesToTheQuestionTrainerGivesAnsiAndANoEndsTheTraining) {
    newCall(false);
    game.player.level = 7;
    game.player.experience = 13000;
    const std::string question =
        "{`r`Question Trainer:||}{So you think you've got bigger muscles than me? }"
        "{ `r`(`R`Y`r`/`R`N`r`)`R`: }[answer YN]";
    EXPECT_EQ(caller.visit(questionTrainer, "yk"),
              "{||}" + question + "{`W`YES`W`!}{||}{`r`I'm ready whenever you are.||}[any key]" +
                  "{||}");
    EXPECT_EQ(game.session.inTraining, 1);
    EXPECT_EQ(caller.visit(questionTrainer, "n"), "[clear]" + question + "{NO!}{||}");
    EXPECT_EQ(game.session.inTraining, 0);
}

// The need in the player's record counts, not the table's. The last two numbers: draws and seeds.
TEST(Training, ATrainerGrowsWithTheLevelOfAPlayerWithTheExperience) {
    const Cases<int, int, std::deque<int>, std::string> cases{
        {1, 5, {11}, "Trainer 10 10 2 6 1 0"},
        {2, 5, {0, 15}, "Trainer 15 15 4 8 2 1"},
        {29, 5, {0, 123}, "Trainer 150 150 20 62 2 1"},
        {12, 4, {}, " 0 0 15 6 0 0"},
        {30, 5, {}, " 0 0 15 6 0 0"}};
    for (const auto& [level, experience, draws, trainer] : cases) {
        beginAtLevel(level, experience);
        game.player.experienceNeeded = 5;
        chance.script(draws);
        prepareTrainer();
        const Monster& monster = game.encounter.monster;
        EXPECT_EQ(inARow(monster.name, monster.hitPoints, monster.maxHitPoints, monster.initiative,
                         monster.damage, chance.drawn, chance.seededBefore.size()),
                  trainer);
    }
}

TEST(TrainingFight, TheTrainerComesWithOneTAndIsFoughtWithTheNextUntilTheStatusKey) {
    beginAtLevel(1, 1000);
    game.encounter.monster.hitPoints = 0;
    EXPECT_THROW(caller.visit(trainingHall, "ttTyx"), OutOfKeys) << "back in the hall";
    const std::string player = "{`r`Your HP`R`: `W`}<30>{`r`\\`W`}<40>{|}";
    const std::string trainer = "HP`R`: `W`}<10>{`r`\\`W`}<10>";
    const std::string fight = "[clear]" + player + "{`r`}<Trainer>{'s " + trainer +
                              "{||}{`r`A`R`)`W`ttack|}{`r`Y`R`)`W`our Status|}" + returnLine + "}";
    EXPECT_THAT(caller.screen,
                StartsWith(hall + entrance + hall + title +
                           "{`r`You've encountered the `W`}<Trainer>{`red.`|}" + player +
                           "{`W`}<Trainer>{'s `r`" + trainer + "{|}{`r`A`R`)`W`ttack|}" +
                           returnLine + "`r`}" + fight + "[menu command ayr][clear]{`r`Your St"));
    EXPECT_THAT(caller.screen, EndsWith("[any key]" + fight + returning + hall));
    EXPECT_EQ(game.session.inTraining, 1);
    EXPECT_EQ(game.encounter.monster.hitPoints, 0);
}

// The entrance inside a won fight sets up the next trainer; the outer fight goes on with him.
TEST(TrainingFight, AWinRaisesTheLevelAndMayBringTheNextTrainerAtOnceALossTheEntrance) {
    beginAtLevel(1, 2250);
    game.encounter.monster.hitPoints = 1;
    const std::string& screen = caller.visit(trainingFight, "axtr");
    EXPECT_THAT(screen, HasSubstr("points!||}[clear]{`W`}<Trainer of Thorns>"
                                  "{ `r`has been beaten!||}{`r`Congratulations!||}"));
    EXPECT_THAT(screen, HasSubstr(pauseWithLine + entrance + "[clear]"));
    EXPECT_THAT(screen, EndsWith("[menu command ayr]" + returning));
    EXPECT_EQ(game.encounter.monster.maxHitPoints, 15);

    beginAtLevel(1, 1000);
    game.player.hitPoints = 6;
    game.encounter.monster.initiative = 16;
    chance.script({0, 0, 5, 0, 1});
    EXPECT_THAT(caller.visit(trainingFight, "axxr"),
                EndsWith("{`r`You Missed!||}" + entrance + returning));
}
