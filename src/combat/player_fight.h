#pragma once

namespace morvek {

// Fights the player who is the opponent at hand, and whose slot of the roster is `targetSlot`,
// until one of them is beaten or the caller leaves. A beaten player loses his money on hand.
void fightPlayer();

} // namespace morvek
