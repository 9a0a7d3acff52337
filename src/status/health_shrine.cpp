// The rules of the shrine. A hit point costs 5 gold. "Heal" takes a number of points; a number
// below 1 means all that are missing, unless even that is more than are missing. Every choice
// except "r" returns to the shrine. A refused amount also reports that no guesses are left.
//
// The guessing game grants nothing. It draws a number and shows it beside the guess, and takes one
// of the guesses left, or two for a guess of 7 or 8.

#include "status/health_shrine.h"

#include "screen/screen.h"
#include "state/game_state.h"
#include "state/wrapping.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace morvek {
namespace {

constexpr int goldPerPoint = 5;
constexpr int maxAmountLength = 8;

std::int32_t missingPoints() {
    return wrappingSubtract(game.player.maxHitPoints, game.player.hitPoints);
}

double priceOf(std::int32_t points) { return static_cast<double>(points) * goldPerPoint; }

void drawShrine() {
    clearScreen();
    say("`red`Health Shrine\n\r");
    say("`bright white`----------------------------------------\n\r\n\r");
    say("`red`Hit Points`bright red`: `bright white`");
    showPair(game.player.hitPoints, "`red`\\`bright white`", game.player.maxHitPoints);
    say("\n\r");
    say("`red`Money on Hand `bright red`: `bright white`");
    showMoney(game.player.gold);
    say("`red` gold`red`.");
    say("\n\r\n\r");
}

void sayOutOfGuesses() {
    say("\n\r\n\r");
    say("`red`You are out of guesses!");
    say("\n\r\n\r");
    pressAnyKey();
}

void sayNoHealingNeeded() {
    say("\n\r\n\r");
    say("`red`You don't need healing.\n\r");
    say("\n\r");
    pressAnyKey();
}

void healAll() {
    Player& player = game.player;
    const std::int32_t missing = missingPoints();
    say("\n\r\n\r");
    if (player.hitPoints < player.maxHitPoints && priceOf(missing) <= player.gold) {
        player.hitPoints = player.maxHitPoints;
        player.gold -= priceOf(missing);
        say("`bright white`");
        show(missing);
        say("`red` hits points recovered.\n\r\n\r");
    } else {
        say("`red`No points were recovered.\n\r");
        say("\n\r");
    }
    pressAnyKey();
}

void healTyped(std::int32_t points, const std::string& typed) {
    game.player.hitPoints = wrappingAdd(game.player.hitPoints, points);
    game.player.gold -= priceOf(points);
    say("\n\r");
    say("`red`Healed `bright white`");
    show(typed);
    say("`red` points.\n\r");
    say("\n\r");
    pressAnyKey();
}

void refuseTyped(std::int32_t points) {
    if (points > missingPoints()) {
        say("`red`You don't need that much healing.\n\r");
    } else {
        say("\n\r\n\r");
        say("`red`You don't have enough gold.\n\r\n\r");
        pressAnyKey();
    }
    if (game.session.guessesLeft < 1) {
        sayOutOfGuesses();
    }
}

void healByPoints() {
    if (game.player.hitPoints == game.player.maxHitPoints) {
        sayNoHealingNeeded();
        return;
    }
    say("\n\r\n\r");
    say("`bright white`5`red` gold per point.\n\r");
    say("`red`Points to Heal`bright red`: `bright white`");
    const std::string typed = askLine(maxAmountLength, 32, 127);
    const std::int32_t points = typedNumber(typed);
    if (points < 1 && points <= missingPoints()) {
        healAll();
    } else if (points <= missingPoints() && priceOf(points) <= game.player.gold) {
        healTyped(points, typed);
    } else {
        refuseTyped(points);
    }
}

void sayGuess(char guess) {
    const char* guessLine = "`red`You guessed`bright red`: `bright white`%c`red`.\n\r";
    if (guess == '6') {
        say(guessLine, guess);
        say("\n\r\n\r");
    } else {
        say("\n\r\n\r");
        say(guessLine, guess);
    }
}

void playGuessingGame() {
    const int drawn = std::rand();
    say("\n\r\n\r");
    say("`bright red`#`red` of Guesses left`bright red`: `bright white`");
    show(game.session.guessesLeft);
    say("\n\r\n\r");
    say("`red`Guess a number between `bright red`(`bright white`1`bright red`-`bright white`9"
        "`bright red`)`red`: `bright white`");
    const char guess = menu("command", "123456789");
    sayGuess(guess);
    say("`red`The correct answer was`bright red`: `bright white`");
    show(drawn % 9 + 1);
    say("`red`.\n\r");
    say("\n\r");
    pressAnyKey();
    game.session.guessesLeft -= guess == '7' || guess == '8' ? 2 : 1;
}

void guess() {
    if (game.session.guessesLeft < 1) {
        sayOutOfGuesses();
    } else if (game.player.hitPoints == game.player.maxHitPoints) {
        sayNoHealingNeeded();
    } else if (game.player.hitPoints < game.player.maxHitPoints) {
        playGuessingGame();
    }
}

} // namespace

void healthShrine() {
    while (true) {
        drawShrine();
        switch (menu("heal", "hagr")) {
        case 'h':
            healByPoints();
            break;
        case 'a':
            healAll();
            break;
        case 'g':
            guess();
            break;
        default:
            return;
        }
    }
}

} // namespace morvek
