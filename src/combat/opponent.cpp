#include "combat/opponent.h"

#include "screen/screen.h"
#include "state/dice.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "state/wrapping.h"

namespace morvek {

std::string_view opponentName(std::size_t longest) {
    return std::string_view(game.encounter.monster.name).substr(0, longest);
}

void sayOf(std::string_view name, const char* text) {
    say("`bright white`");
    show(name);
    say("%s", text);
}

void sayPlayerHits(const char* opening, std::string_view name, std::int32_t damage) {
    say("%s", opening);
    show(name);
    say(" `red`for`bright white` ");
    show(damage);
    say(" `red`points!\n\r\n\r");
}

void sayOpponentHits(std::string_view name, std::int32_t damage) {
    sayOf(name, " `red`hit you for `bright white`");
    show(damage);
    say(" `red`points!\n\r\n\r");
}

void sayOpponentMissed(std::string_view name) { sayOf(name, " `red`Missed!\n\r\n\r"); }

void setAttackOrder() {
    game.encounter.attackOrder = game.encounter.monster.initiative <= game.player.dexterity
                                     ? playerStrikesFirst
                                     : opponentStrikesFirst;
}

Blow drawOpponentBlow() {
    const std::int32_t skill = draw(20);
    const std::int32_t luck = draw(20);
    const std::int32_t damage = draw(game.encounter.monster.damage) + 1;
    return {skill >= luck, damage};
}

void woundOpponent(std::int32_t damage) {
    std::int32_t& hitPoints = game.encounter.monster.hitPoints;
    hitPoints = wrappingSubtract(hitPoints, damage);
}

void woundPlayer(std::int32_t damage) {
    game.player.hitPoints = wrappingSubtract(game.player.hitPoints, damage);
}

void removeOpponent() {
    Monster& monster = game.encounter.monster;
    monster.maxHitPoints = 0;
    monster.hitPoints = 0;
    monster.experience = 0;
    monster.initiative = 0;
    monster.damage = 0;
    monster.gold = 0.0;
}

} // namespace morvek
