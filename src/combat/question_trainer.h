#pragma once

namespace morvek {

// Asks the trainer whether the player is ready for him. Who says yes has ANSI graphics from then
// on.
void questionTrainer();

} // namespace morvek
