// Levels, the training hall, its trainers and its questions.
#include "combat/fighters.h"
#include "combat/levels.h"
#include "combat/trainer_fight.h"
#include "combat/training_hall.h"

namespace {

const std::string hall = "{`r`R`R`)`W`eturn to Towne|}[menu training qtr]";
const std::string entrance =
    "{`r`T`R`)`W`ime to Train!|}{`r`R`R`)`W`eturn to Towne|`r`}[menu command tr]";
const std::string returning = "{||}{`r`Returning to Towne`R`...||}";

void beginAtLevel(int level, int experience) {
    meet("Trainer of Thorns");
    game.player.level = level;
    game.player.experience = experience;
}

} // namespace

TEST(Levels, LevelRollsFourGainsAndHeals) {
    beginAtLevel(6, 10000);
    chance.script({0, 0, 0, 5, 5, 5, 0, 1, 2, 3, 3, 3});
    EXPECT_THAT(caller.visit(levelUp, "xx"),
                StartsWith("{`r`Congratulations!||}{`r`You are now level `R`}<7>{`r`!||}"
                           "{`r`Your turns have been restored.||}{`r`+`R`}<3>{`r` hit points!|}"
                           "{`r`+`R`}<18>{`r` strength!|}{`r`+`R`}<6>{`r` dexterity!|}"
                           "{`r`+`R`}<12>{`r` intelligence!|}{|}"
                           "{`r`Press any key!|}[key]{`r`Future levels will be added later."));
    EXPECT_EQ(game.player.experienceNeeded, 13000);
    EXPECT_EQ(game.player.hitPoints, 43);
    EXPECT_EQ(game.player.maxHitPoints, 43);
    EXPECT_EQ(game.player.strength, 18);
    EXPECT_EQ(game.player.dexterity, 15 + 6);
    EXPECT_EQ(game.player.intelligence, 12);
    EXPECT_EQ(game.player.turnsLeft, 5) << "whatever is said";
    EXPECT_TRUE(chance.seededBefore.empty());
}

TEST(Levels, NobodyRisesAboveTheSeventh) {
    beginAtLevel(7, 13000);
    EXPECT_EQ(caller.visit(levelUp, "x"), "{`r`Future levels will be added later.||}"
                                          "{`r`Press any key!|}[key]");
    EXPECT_EQ(game.player.level, 7);
}

TEST(Training, RefusesTheWeakAndTheHighest) {
    const std::string weak = "{||}{`r`You're too weak to train!||}{`r`You need `W`}<750>"
                             "{ `r`more experience.||}[any key]";
    const std::string highest = "{||}{`r`You've reached the highest level.||}[any key]";
    const Cases<int, int, std::string> cases{
        {3, 3000, weak}, {23, 309250, weak}, {29, 999250, weak}, {30, 2000000, highest}};
    for (const auto& [level, experience, refusal] : cases) {
        beginAtLevel(level, experience);
        EXPECT_THAT(caller.visit(trainingHall, "tkr"), HasSubstr(hall + refusal + "[clear]"));
        game.session.inTraining = 1;
        EXPECT_THAT(caller.visit(questionTrainer, "yk"),
                    EndsWith("{`W`YES`W`!}" + refusal + "{||}"));
        EXPECT_EQ(game.session.inTraining, refusal == weak ? 0 : 1);
    }
}

TEST(QuestionTrainer, YesGivesAnsiNoEndsTraining) {
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

TEST(Trainer, GrowsWithTheLevel) {
    // Level, draws, hit points, initiative, damage.
    const Cases<int, std::deque<int>, int, int, int> cases{
        {1, {11}, 10, 2, 6}, {2, {0, 15}, 15, 4, 8}, {29, {0, 123}, 150, 20, 62}};
    for (const auto& [level, draws, hitPoints, initiative, damage] : cases) {
        beginAtLevel(level, 5);
        game.player.experienceNeeded = 5; // this counts, not the table
        chance.script(draws);
        prepareTrainer();
        const Monster& trainer = game.encounter.monster;
        EXPECT_EQ(trainer.name, "Trainer");
        EXPECT_EQ(trainer.hitPoints, hitPoints);
        EXPECT_EQ(trainer.maxHitPoints, hitPoints);
        EXPECT_EQ(trainer.initiative, initiative);
        EXPECT_EQ(trainer.damage, damage);
        EXPECT_EQ(chance.seededBefore.size(), draws.size() - 1);
    }
}

TEST(TrainingFight, SecondTBeginsTheFight) {
    beginAtLevel(1, 1000);
    game.encounter.monster.hitPoints = 0;
    caller.visit(trainingHall, "ttTyxr"); // the status ends the fight
    const std::string player = "{`r`Your HP`R`: `W`}<30>{`r`\\`W`}<40>{|}";
    EXPECT_TRUE(caller.saw(entrance + "[clear]{`r`Training Hall"));
    EXPECT_TRUE(caller.saw("{`r`You've encountered the `W`}<Trainer>{`red.`|}" + player +
                           "{`W`}<Trainer>{'s `r`HP`R`: `W`}<10>{`r`\\`W`}<10>{|}"));
    EXPECT_TRUE(caller.saw("[clear]" + player + "{`r`}<Trainer>{'s HP`R`: `W`}<10>{`r`\\`W`}<10>"));
    EXPECT_TRUE(
        caller.saw("ttack|}{`r`Y`R`)`W`our Status|}{`r`R`R`)`W`eturn to Towne|}" + returning));
    EXPECT_EQ(game.session.inTraining, 1);
    EXPECT_EQ(game.encounter.monster.hitPoints, 0);
}

// The entrance inside a won fight sets up the next trainer; the outer fight goes on with him.
TEST(TrainingFight, WinMayBringTheNextTrainer) {
    beginAtLevel(1, 2250);
    game.encounter.monster.hitPoints = 1;
    const std::string& screen = caller.visit(trainingFight, "axtr");
    EXPECT_THAT(screen, HasSubstr("points!||}[clear]{`W`}<Trainer of Thorns>"
                                  "{ `r`has been beaten!||}{`r`Congratulations!||}"));
    EXPECT_THAT(screen, HasSubstr(entrance + "[clear]"));
    EXPECT_THAT(screen, EndsWith("[menu command ayr]" + returning));
    EXPECT_EQ(game.encounter.monster.maxHitPoints, 15);
}

TEST(TrainingFight, LossLeadsToTheEntrance) {
    beginAtLevel(1, 1000);
    game.player.hitPoints = 6;
    game.encounter.monster.initiative = 16;
    chance.script({0, 0, 5, 0, 1});
    EXPECT_THAT(caller.visit(trainingFight, "axxr"), EndsWith(entrance + returning));
    EXPECT_TRUE(caller.saw("{`r`You Missed!||}[clear]"));
}
