// Towne is left in three ways: the player is dead on arrival, he has no hit points left when the
// menu would be shown, or the caller quits. Only quitting takes the player off the on-line list,
// enters his score and empties him in memory.

#include "towne/towne_menu.h"

#include "characters/character_file.h"
#include "characters/player_list.h"
#include "combat/player_fight.h"
#include "screen/screen.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "status/health_shrine.h"
#include "status/status_screen.h"
#include "towne/bank.h"
#include "towne/player_attack.h"
#include "towne/player_reset.h"
#include "towne/scores.h"
#include "towne/shop.h"
#include "towne/tavern.h"
#include "world/world_entry.h"

#include <array>

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
    if (game.world.playerDead == 0 && attackAnotherPlayer()) {
        fightPlayer();
    }
}

// Who was sent back from inside the world resumes where he last left a place.
void goToWorld() {
    if (game.player.turnsLeft <= 0) {
        say("\n\r\n\r`bright white`You are out of turns for today.\n\r");
        say("`red`Come back tomorrow...");
        say("\n\r\n\r");
        pressAnyKey();
        return;
    }
    World& world = game.world;
    if (world.currentLocation <= 0) {
        world.currentLocation = 1;
    }
    if (world.leavingWorld != 0) {
        world.currentLocation = world.previousLocation;
        game.encounter.monster.hitPoints = 0;
        world.leavingWorld = 0;
    }
    enterWorld();
}

void enter(void (*place)()) {
    say("\n\r");
    place();
}

// A room at the inn keeps the caller out of the tavern for the rest of his game.
void tavern() {
    if (game.session.roomRented == 0) {
        visitTavern();
    }
}

void status() {
    say("\n\r");
    showStatus();
    say("\n\r");
}

void recordScore() {
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
    updateScores();
}

void quit() {
    say("`bright white`Quit!\n\r");
    game.session.inGame = 0;
    savePlayer();
    recordScore();
    clearPlayer();
    clearScores();
    say("\n\r");
    pressAnyKey();
}

struct Choice {
    char key;
    void (*visit)();
};

// "m" stands among the keys, but nothing is behind it.
constexpr std::array<Choice, 11> choices{{
    {'f', goToWorld},
    {'h', [] { enter(healthShrine); }},
    {'w', [] { enter(weaponShop); }},
    {'a', [] { enter(armourShop); }},
    {'m', [] { say("\n\r"); }},
    {'b', [] { enter(visitBank); }},
    {'t', [] { enter(tavern); }},
    {'l', listPlayers},
    {'y', status},
    {'o', showUsersOnline},
    {'p', attackPlayer},
}};

void visitChosen(char key) {
    for (const Choice& choice : choices) {
        if (choice.key == key) {
            choice.visit();
        }
    }
}

} // namespace

void towneMenu() {
    if (!arrive()) {
        return;
    }
    while (game.player.hitPoints > 0) {
        clearScreen();
        const char key = menu("townmenu", "fhwambtlyoqp");
        if (key == 'q') {
            quit();
            return;
        }
        visitChosen(key);
    }
}

} // namespace morvek
