#pragma once

namespace morvek {

// The training hall: its menu, until the player leaves it.
void trainingHall();

} // namespace morvek
