#pragma once

namespace morvek {

// The training hall: its menu, until the player leaves it.
void trainingHall();

// Asks the trainer whether the player is ready for him. Who says yes has ANSI graphics from then
// on.
void questionTrainer();

} // namespace morvek
