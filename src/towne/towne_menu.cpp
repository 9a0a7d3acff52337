// Towne is left in three ways: the player is dead on arrival, he has no hit points left when the
// menu would be shown, or the caller quits. Only quitting takes the player off the on-line list,
// enters his score and empties him in memory.

#include "towne/towne_menu.h"

#include "characters/character_file.h"
#include "characters/player_list.h"
#include "door/screen.h"
#include "state/game_state.h"
#include "towne/player_reset.h"
#include "towne/scores.h"
#include "towne/status_screen.h"

namespace morvek {
namespace {

// Saves the player on his way into Towne; false when he must leave it at once.
bool arrive() {
    savePlayer();
    game.encounter.monster.hitPoints = 0;
    if (game.world.playerDead != 0) {
        if (game.player.hitPoints <= 0) {
            savePlayerHealed();
        }
        return false;
    }
    if (game.player.hitPoints <= 0) {
        return false;
    }
    savePlayer();
    return true;
}

void listPlayers() {
    loadRoster();
    showPlayerList();
    say("\n\r");
    pressAnyKey();
}

void attackPlayer() {
    loadRoster();
    showPlayerList();
}

void status() {
    say("\n\r");
    showStatus();
    say("\n\r");
}

void enterScoreOfCall() {
    if (game.player.experience <= 0 ||
        game.player.experience == game.session.sessionStartExperience) {
        return;
    }
    game.session.today = dayNumber();
    if (PlayerRecord* slot = ownSlot()) {
        slot->lastPlayedDay = game.session.today;
    }
    prepareScore();
    savePlayer();
    updateScores(3);
}

void quit() {
    say("`bright white`Quit!\n\r");
    game.session.inGame = 0;
    savePlayer();
    enterScoreOfCall();
    clearPlayer();
    forgetScores();
    say("\n\r");
    pressAnyKey();
}

} // namespace

void towneMenu() {
    if (!arrive()) {
        return;
    }
    while (game.player.hitPoints > 0) {
        clearScreen();
        switch (menu("townmenu", "fhwambtlyoqp")) {
        case 'l':
            listPlayers();
            break;
        case 'p':
            attackPlayer();
            break;
        case 'o':
            showUsersOnline();
            break;
        case 'y':
            status();
            break;
        case 'm':
            say("\n\r");
            break;
        case 'q':
            quit();
            return;
        default:
            break;
        }
    }
}

} // namespace morvek
