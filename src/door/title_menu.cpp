#include "door/title_menu.h"

#include "characters/character_file.h"
#include "files/game_lock.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "status/status_screen.h"
#include "towne/news.h"
#include "towne/scores.h"
#include "towne/towne_menu.h"

namespace morvek {
namespace {

constexpr std::int32_t guessesOfAGame = 3;

// The exit status also of a call that may not be made beside another one (-ONECALLER).
constexpr int otherCallStatus = 5;

void showVersion() {
    say("`red`Morvek v`bright red`0`red`.`bright red`6`red`.`bright red`9a\n\r");
    say("`red`By: `bright red`The Morvek developers\n\r");
    say("\n\r");
    say("`red`Hosted by`bright red`: `bright white`%s", game.session.hostName.c_str());
    say("\n\r");
    say("\n\r\n\r");
}

// One user in two calls would save over himself.
void enterOnce() {
    if (gameLock.enter(userName())) {
        return;
    }
    say("\n\r\n\r`red`You are already in the game on another node. "
        "Please leave it there first.\n\r");
    leave(otherCallStatus);
}

void startGame() {
    enterOnce();
    game.session.entered = 0;
    game.world.playerDead = 0;
    game.world.currentLocation = 0;
    game.session.guessesLeft = guessesOfAGame;
    enterGame();
    game.session.inGame = 1;
    savePlayer();
    towneMenu();
    gameLock.leave();
}

void showScores() {
    game.player.name.clear();
    game.player.experience = 0;
    showTopTen();
    say("\n\r");
    pressAnyKey();
}

// The player is already in memory; only the name that the board gives him is set again.
void reenter() {
    game.session.entered = 0;
    game.session.newPlayer = 0;
    clearAnsiOnly();
    game.session.doorUserName = userName();
}

} // namespace

void setDisplayName() {
    game.session.displayUserName = userName().empty() ? "Default" : userName();
}

void enterGame() {
    game.session.entered = 0;
    loadPlayer();
    game.session.newPlayer = 1;
    game.session.entered = 1;
    game.session.roomRented = 0;
    game.world.currentLocation = 0;
    reenter();
    showStatus();
    setDisplayName();
    if (!userName().empty()) {
        newsJoined();
    }
    game.session.sessionStartExperience = game.player.experience;
}

void titleMenu() {
    while (true) {
        clearScreen();
        showVersion();
        switch (menu("intmenu", "SHQ")) {
        case 'Q':
            say("`bright white`Quit Game\n\r\n\r");
            leave(0);
        case 'S':
            startGame();
            showScores();
            break;
        case 'H':
            showScores();
            break;
        default:
            break;
        }
    }
}

} // namespace morvek
