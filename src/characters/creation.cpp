#include "characters/creation.h"

#include "screen/screen.h"
#include "state/dice.h"
#include "state/game_state.h"
#include "state/roster.h"

#include <algorithm>
#include <array>
#include <string>

namespace morvek {
namespace {

constexpr int maxNameLength = 50;

struct CharacterClass {
    char key;
    const char* name;
    std::int32_t hitPointBonus;
    bool rollsOnceMore; // a roll of 3d6 that changes nothing but the draws that follow
};

constexpr std::array<CharacterClass, 8> classes{{
    {'1', "Cleric", 12, true},
    {'2', "Fighter", 15, false},
    {'3', "Paladin", 15, false},
    {'4', "Ranger", 12, false},
    {'5', "Rogue", 12, false},
    {'6', "Warlock", 12, false},
    {'7', "Warlord", 12, false},
    {'8', "Wizard", 10, false},
}};

std::string askName() {
    say("\n\r");
    say("`red`Character Name`bright red`: `bright white`");
    return askLine(maxNameLength, 0, 127);
}

void refuseName() {
    game.session.nameChecked = 0;
    say("That name is unavailable, choose another one.\n\r\n\r");
    pressAnyKey();
}

// A "no" asks for another name and drops it: the name that was checked is kept.
void confirmName(const std::string& typed) {
    game.session.nameChecked = 1;
    say("\n\r`red`You are as `bright white`%s`red` correct? `bright white`", typed.c_str());
    if (answer("yn") == 'n') {
        askName();
    }
    game.player.name = typed;
}

void startingKit() {
    Player& player = game.player;
    player.level = 1;
    player.experience = 0;
    player.gold = 0.0;
    player.bankGold = 0.0;
    player.experienceNeeded = 1000;
    player.turnsPerDay = 30;
    player.turnsLeft = 30;
}

const CharacterClass& askClass() {
    clearScreen();
    while (true) {
        const char key = menu("clasmenu", "12345678");
        for (const CharacterClass& one : classes) {
            if (one.key == key) {
                return one;
            }
        }
    }
}

void rollAbilities() {
    Player& player = game.player;
    for (std::int32_t* ability : {&player.strength, &player.constitution, &player.dexterity,
                                  &player.intelligence, &player.wisdom, &player.charisma}) {
        rollAbility();
        *ability = game.session.rollResult;
    }
}

} // namespace

void enterName() {
    std::string typed = askName();
    while (game.session.nameChecked == 0) {
        if (typed == game.roster.slots().front().name.view()) {
            refuseName();
            typed = askName();
        } else {
            confirmName(typed);
        }
    }
}

void rollAbility() {
    std::array<std::int32_t, 4> dice{};
    std::int32_t sum = 0;
    for (std::int32_t& die : dice) {
        die = draw(6) + 1;
        sum += die;
    }
    game.session.rollResult = sum - *std::min_element(dice.begin(), dice.end());
}

void chooseClass() {
    startingKit();
    const CharacterClass& chosen = askClass();
    Player& player = game.player;
    player.className = chosen.name;
    rollAbilities();
    player.weaponNumber = 1;
    player.weapon = "Club";
    player.armourNumber = 1;
    player.armour = "Cloth";
    if (chosen.rollsOnceMore) {
        game.session.rollResult = roll3d6();
    }
    player.hitPoints = player.constitution + chosen.hitPointBonus;
    player.maxHitPoints = player.hitPoints;
}

} // namespace morvek
