#include "combat/question_trainer.h"

#include "combat/admission.h"
#include "screen/screen.h"
#include "state/game_state.h"

namespace morvek {
namespace {

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

} // namespace morvek
