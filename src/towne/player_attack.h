#pragma once

namespace morvek {

// Asks for the number of a player on the list and turns his stored character into the opponent at
// hand; true when a target was confirmed in this very choice. On false the opponent is as before.
bool attackAnotherPlayer();

} // namespace morvek
