// Any listed number is a valid target unless its character has the player's own name. A free slot
// has an empty name, so only a player without a name is refused it. A player who is in the game
// right now is refused too: his next save would bring back what was taken.
//
// An opponent of this kind always has initiative 4 and a damage die of 1 to 8, drawn after one
// draw that decides nothing.

#include "towne/player_attack.h"

#include "characters/character_file.h"
#include "screen/screen.h"
#include "state/dice.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "state/roster.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace morvek {
namespace {

constexpr int maxNumberLength = 50;
constexpr std::int32_t opponentInitiative = 4;
constexpr std::int32_t opponentDamageSides = 8;

// The character with that number on the list; null when he cannot be attacked.
const PlayerRecord* findTarget(std::int32_t number) {
    if (number <= 0 || number >= game.roster.playerCount) {
        return nullptr;
    }
    const PlayerRecord& slot = game.roster.slots().at(static_cast<std::size_t>(number - 1));
    return slot.name.view() == game.player.name ? nullptr : &slot;
}

void pause() {
    say("\n\r\n\r`red`Press any key!");
    waitForKey();
}

void refuseNumber() {
    say("\n\r");
    say("`red`Invalid player number!");
    pause();
}

void refusePlaying(std::string_view name) {
    say("\n\r");
    show(name);
    say(" `red`is in the game right now and cannot be attacked.");
    pause();
}

bool isConfirmed(std::string_view name) {
    say("\n\r");
    say("`red`Attacking player`bright red`: `bright white`");
    show(name);
    say("`red`? `bright white`");
    return answer("YN") == 'Y';
}

void setUpOpponent(const PlayerRecord& target) {
    Monster& opponent = game.encounter.monster;
    opponent.name = target.name.view();
    opponent.hitPoints = target.hitPoints;
    opponent.maxHitPoints = target.maxHitPoints;
    opponent.initiative = opponentInitiative;
    std::rand();
    opponent.damage = draw(opponentDamageSides) + 1;
}

} // namespace

bool attackAnotherPlayer() {
    say("\n\r`red`Enter player # to attack`bright red`: `bright white`");
    const std::int32_t number = typedNumber(askLine(maxNumberLength, 0, 127));
    const PlayerRecord* target = findTarget(number);
    if (target == nullptr) {
        refuseNumber();
        return false;
    }
    if (isPlaying(*target)) {
        refusePlaying(target->name.view());
        return false;
    }
    game.session.chosenNumber = number;
    if (!isConfirmed(target->name.view())) {
        return false;
    }
    turnAnsiOn();
    say("`bright white`YES`bright white`!");
    game.session.targetSlot = number - 1;
    setUpOpponent(*target);
    return true;
}

} // namespace morvek
