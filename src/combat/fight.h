// A fight in the world: rounds of blows between the player and the monster at hand.
#pragma once

namespace morvek {

// Rolls the player's `weaponDamage` and `armourValue` for the round to come. Bare fists and a
// T-shirt roll nothing and keep the values of the round before.
void rollPlayerCombatValues();

// Plays one round: both hit points, the first strike, the blows. The result is in both hit
// points, `playerDead` and `leavingWorld`.
void fightRound();

// Decides who strikes first this round, sets `attackOrder` and says so.
void decideFirstStrike();

// The player's blow, with all that a kill brings.
void playerAttack();

// The monster's blow against the player's armour. If the player dies, he is saved at once.
void monsterAttack();

} // namespace morvek
