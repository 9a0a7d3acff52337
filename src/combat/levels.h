// Levels, the experience that they need, and who may train.
#pragma once

#include <cstdint>

namespace morvek {

// The levels from which the table knows a need.
constexpr std::int32_t firstLevel = 1;
constexpr std::int32_t lastLevelWithNeed = 29;

// All the experience needed to rise from that level, 1 to 29, to the next.
std::int32_t experienceToRise(std::int32_t level);

// Whether the player's level has a trainer: levels 1 to 29 do.
bool levelHasTrainer();

// Whether the player has the experience that his level needs to rise. If not, says what he lacks
// and clears `inTraining`; at level 30, says that there is no higher one; at other levels that the
// table does not know, says nothing.
bool admittedToTraining();

// Raises the player by a level, with his gains, and shows them. From level 7 on nobody rises; a
// player there, or now there, reads that future levels are to come.
void levelUp();

// The gains of a level: each rolls 3d6 and keeps the roll in the player's gain of that name and in
// `lastRoll`, without adding it.
void rollHitPointGain();
void rollStrengthGain();
void rollDexterityGain();
void rollIntelligenceGain();

} // namespace morvek
