// The fight against the trainer of the player's level.
#pragma once

namespace morvek {

// The fight's screens, from "Time to Train!" to the way out. One call sets up the trainer (`T`) and
// returns; the next call fights him.
void trainingFight();

// Takes away the opponent at hand, and sets up the trainer for a player who may have one.
void prepareTrainer();

// Makes the opponent at hand the trainer of the player's level, by the need in the player's own
// record; does nothing for a player who lacks the experience or whose level has no trainer.
void setUpTrainer();

// The player's blow against the trainer; a trainer it beats raises the player's level.
void trainerAttack();

} // namespace morvek
