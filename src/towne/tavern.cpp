#include "towne/tavern.h"

#include "combat/training_hall.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "status/status_screen.h"
#include "towne/drinks.h"
#include "towne/inn.h"
#include "towne/scroll_board.h"

namespace morvek {
namespace {

void drawTavern() {
    clearScreen();
    say("`red`Tavern\n\r");
    say("`bright white`----------------------------------\n\r\n\r");
    say("`red`O`bright red`)`bright white`rder Drink\n\r");
    say("`red`T`bright red`)`bright white`raining\n\r");
    say("`red`L`bright red`)`bright white`ook at Morvek's Scroll\n\r");
    say("`red`G`bright red`)`bright white`et a Room\n\r");
    say("`red`Y`bright red`)`bright white`our Status\n\r");
    say("`red`R`bright red`)`bright white`eturn to Towne\n\r\n\r");
}

void status() {
    say("\n\r");
    showStatus();
    say("\n\r");
    clearAnsiOnly();
}

// True when the player has a room now, whether he took it just now or had it before.
bool getRoom() {
    if (game.session.roomRented == 0) {
        rentRoom();
    }
    return game.session.roomRented == 1;
}

} // namespace

void visitTavern() {
    while (true) {
        drawTavern();
        switch (menu("tavern", "otlrgy")) {
        case 'o':
            orderDrink();
            break;
        case 't':
            trainingHall();
            break;
        case 'l':
            scrollBoard();
            break;
        case 'g':
            if (getRoom()) {
                return;
            }
            break;
        case 'y':
            status();
            break;
        default:
            say("`bright white`Return to Towne!");
            return;
        }
    }
}

} // namespace morvek
