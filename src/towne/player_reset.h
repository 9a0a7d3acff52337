#pragma once

namespace morvek {

// Empties the player in memory, who has left the game; his hit points become 0.
void clearPlayer();

} // namespace morvek
