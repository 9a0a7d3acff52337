// A fight in the arena, against a trainer or another player: no armour, better odds for the
// player, and nobody dies of it.
#pragma once

namespace morvek {

// Draws the screen of such a fight: both hit points and what the player can do.
void drawArena();

// Says that the player goes back to Towne, and takes the opponent's hit points.
void leaveArena();

// Plays one round, with `playersAttack` as the player's blow.
void arenaRound(void (*playersAttack)());

// Decides who strikes first this round, sets `attackOrder` and says so.
void arenaFirstStrike();

// The player's blow; `win` runs when it brings the opponent's hit points below 1.
void arenaAttack(void (*win)());

// The opponent's blow. A player whom it beats is whole again, and the opponent has nothing left.
void arenaOpponentAttack();

} // namespace morvek
