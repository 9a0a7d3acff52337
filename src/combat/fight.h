// A fight in the world: rounds of blows between the player and the monster at hand.
#pragma once

namespace morvek {

// Rolls the player's `weaponDamage` and `armourValue` for the round to come. Bare fists and a
// T-shirt roll nothing and keep the values of the round before.
void rollPlayerCombatValues();

// Plays one round: both hit points, the first strike, the blows. What came of it stands in the hit
// points of both, `playerDead` and `leavingWorld`.
void fightRound();

// Decides who strikes first this round, sets `attackOrder` and says so.
void decideFirstStrike();

// The player's blow, with all that a kill brings.
void playerAttack();

// The monster's blow against the player's armour; it may kill him, and is then saved at once.
void monsterAttack();

} // namespace morvek
