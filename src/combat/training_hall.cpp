#include "combat/training_hall.h"

#include "combat/levels.h"
#include "combat/trainer_fight.h"
#include "screen/screen.h"
#include "state/game_state.h"

namespace morvek {
namespace {

void drawHall() {
    clearScreen();
    say("`red`Training Hall\n\r");
    say("`bright white`----------------------------------\n\r\n\r");
    say("`red`Q`bright red`)`bright white`uestion Trainer\n\r");
    say("`red`T`bright red`)`bright white`rain me!\n\r");
    say("`red`R`bright red`)`bright white`eturn to Towne\n\r");
}

void challengeTrainer() {
    turnAnsiOn();
    say("`bright white`YES`bright white`!");
    if (admittedToTraining()) {
        say("\n\r\n\r");
        say("`red`I'm ready whenever you are.\n\r\n\r");
        pressAnyKey();
        game.session.inTraining = 1;
    }
}

void train() {
    if (admittedToTraining()) {
        game.session.inTraining = 1;
        trainingFight();
    }
}

} // namespace

void questionTrainer() {
    clearScreen();
    say("`red`Question Trainer:\n\r\n\r");
    say("So you think you've got bigger muscles than me? ");
    say(" `red`(`bright red`Y`red`/`bright red`N`red`)`bright red`: ");
    if (answer("YN") == 'Y') {
        challengeTrainer();
    } else {
        say("NO!");
        game.session.inTraining = 0;
    }
    say("\n\r\n\r");
}

void trainingHall() {
    game.session.inTraining = 0;
    while (true) {
        drawHall();
        switch (menu("training", "qtr")) {
        case 'q':
            questionTrainer();
            break;
        case 't':
            train();
            break;
        default:
            say("`bright white`Return to Towne!");
            return;
        }
    }
}

} // namespace morvek
