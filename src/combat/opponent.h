// What the fights of the world and those of the arena have in common: the opponent's name, who
// strikes first, the opponent's blow, and the opponent taken away after the player has lost.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace morvek {

// Values of game.encounter.attackOrder.
constexpr std::int32_t playerStrikesFirst = 0;
constexpr std::int32_t opponentStrikesFirst = 1;

// The longest names that the screens of a fight, and the arena's own lines, have room for.
constexpr std::size_t maxNameInFight = 29;
constexpr std::size_t maxNameInArena = 9;

// A blow as chance decided it: whether it lands, and how much it takes when it does.
struct Blow {
    bool hits;
    std::int32_t damage;
};

// The opponent's name, cut to so many characters; good until the name changes.
std::string_view opponentName(std::size_t longest);

// Says the name in bright white, then the text.
void sayOf(std::string_view name, const char* text);

// Says what the player's blow did; the opening is everything before the name.
void sayPlayerHits(const char* opening, std::string_view name, std::int32_t damage);

// Says what the opponent's blow did to the player.
void sayOpponentHits(std::string_view name, std::int32_t damage);

// Says that the opponent's blow went wide.
void sayOpponentMissed(std::string_view name);

// Sets `attackOrder` for this round: the player strikes first unless the opponent's initiative is
// above his dexterity.
void setAttackOrder();

// Draws the opponent's blow: three draws, whether it hits or not.
Blow drawOpponentBlow();

// Takes hit points from the opponent.
void woundOpponent(std::int32_t damage);

// Takes hit points from the player.
void woundPlayer(std::int32_t damage);

// Leaves nothing of the opponent but a name: no hit points, damage, initiative, experience, gold.
void removeOpponent();

} // namespace morvek
