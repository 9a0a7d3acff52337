#pragma once

namespace morvek {

// The training hall: its menu, until the player returns to Towne.
void trainingHall();

} // namespace morvek
