#include "combat/admission.h"

#include "combat/levels.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "state/wrapping.h"

namespace morvek {
namespace {

constexpr std::int32_t highestLevel = 30;

void refuseTheWeak(std::int32_t need) {
    say("\n\r\n\r");
    say("`red`You're too weak to train!\n\r\n\r");
    say("`red`You need `bright white`");
    show(wrappingSubtract(need, game.player.experience));
    say(" `red`more experience.\n\r\n\r");
    pressAnyKey();
    game.session.inTraining = 0;
}

void refuseTheHighest() {
    say("\n\r\n\r");
    say("`red`You've reached the highest level.\n\r\n\r");
    pressAnyKey();
}

} // namespace

bool levelHasTrainer() {
    return game.player.level >= firstLevel && game.player.level <= lastLevelWithNeed;
}

bool admittedToTraining() {
    if (game.player.level == highestLevel) {
        refuseTheHighest();
    }
    if (!levelHasTrainer()) {
        return false;
    }
    const std::int32_t need = experienceToRise(game.player.level);
    if (game.player.experience < need) {
        refuseTheWeak(need);
        return false;
    }
    return true;
}

} // namespace morvek
