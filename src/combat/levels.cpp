// The rules of rising. Experience is never spent: a level's need is the sum of all that was ever
// earned. A level brings 3d6 of hit points, strength, dexterity and intelligence, in this order,
// and makes the player whole. It says that his turns are restored, but the counters that it sets
// are read by nobody.
//
// Nobody rises above level 7, although the table goes on.

#include "combat/levels.h"

#include "screen/screen.h"
#include "state/dice.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "state/wrapping.h"

#include <array>
#include <cstddef>

namespace morvek {
namespace {

constexpr std::int32_t highestLevelReached = 7;
constexpr std::int32_t restoredTurns = 30;

// The highest level first: from 29 down to 1.
constexpr std::array<std::int32_t, lastLevelWithNeed> needs{
    1000000, 825000, 675000, 550000, 450000, 375000, 310000, 255000, 210000, 175000,
    143000,  119000, 99000,  83000,  69000,  57000,  47000,  39000,  32000,  26000,
    20500,   16500,  13000,  10000,  7500,   5500,   3750,   2250,   1000,
};

void rollGain(std::int32_t& gain) {
    gain = roll3d6();
    game.encounter.lastRoll = gain;
}

void sayGain(std::int32_t gain, const char* text) {
    say("`red`+`bright red`");
    show(gain);
    say("%s", text);
}

void gainHitPoints() {
    Player& player = game.player;
    rollHitPointGain();
    player.maxHitPoints = wrappingAdd(player.maxHitPoints, player.hitPointGain);
    player.hitPoints = player.maxHitPoints;
    sayGain(player.hitPointGain, "`red` hit points!\n\r");
}

void gainAbilities() {
    Player& player = game.player;
    rollStrengthGain();
    player.strength = wrappingAdd(player.strength, player.strengthGain);
    sayGain(player.strengthGain, "`red` strength!\n\r");
    rollDexterityGain();
    player.dexterity = wrappingAdd(player.dexterity, player.dexterityGain);
    sayGain(player.dexterityGain, "`red` dexterity!\n\r");
    rollIntelligenceGain();
    player.intelligence = wrappingAdd(player.intelligence, player.intelligenceGain);
    sayGain(player.intelligenceGain, "`red` intelligence!\n\r");
}

void rise() {
    Player& player = game.player;
    ++player.level;
    player.experienceNeeded = experienceToRise(player.level);
    say("`red`Congratulations!\n\r\n\r");
    say("`red`You are now level `bright red`");
    show(player.level);
    say("`red`!\n\r\n\r");
    say("`red`Your turns have been restored.\n\r\n\r");
    player.restoredTurns = restoredTurns;
    player.restoredTurnsPerDay = restoredTurns;
    gainHitPoints();
    gainAbilities();
    say("\n\r");
    say("`red`Press any key!\n\r");
    waitForKey();
}

constexpr std::int32_t highestLevel = 30;

void refuseTooWeak(std::int32_t need) {
    say("\n\r\n\r");
    say("`red`You're too weak to train!\n\r\n\r");
    say("`red`You need `bright white`");
    show(wrappingSubtract(need, game.player.experience));
    say(" `red`more experience.\n\r\n\r");
    pressAnyKey();
    game.session.inTraining = 0;
}

void refuseHighestLevel() {
    say("\n\r\n\r");
    say("`red`You've reached the highest level.\n\r\n\r");
    pressAnyKey();
}

} // namespace

std::int32_t experienceToRise(std::int32_t level) {
    return needs[static_cast<std::size_t>(lastLevelWithNeed - level)];
}

bool levelHasTrainer() {
    return game.player.level >= firstLevel && game.player.level <= lastLevelWithNeed;
}

bool admittedToTraining() {
    if (game.player.level == highestLevel) {
        refuseHighestLevel();
    }
    if (!levelHasTrainer()) {
        return false;
    }
    const std::int32_t need = experienceToRise(game.player.level);
    if (game.player.experience < need) {
        refuseTooWeak(need);
        return false;
    }
    return true;
}

void levelUp() {
    if (game.player.level >= firstLevel && game.player.level < highestLevelReached) {
        rise();
    }
    if (game.player.level >= highestLevelReached) {
        say("`red`Future levels will be added later.\n\r\n\r");
        say("`red`Press any key!\n\r");
        waitForKey();
    }
}

void rollHitPointGain() { rollGain(game.player.hitPointGain); }

void rollStrengthGain() { rollGain(game.player.strengthGain); }

void rollDexterityGain() { rollGain(game.player.dexterityGain); }

void rollIntelligenceGain() { rollGain(game.player.intelligenceGain); }

} // namespace morvek
