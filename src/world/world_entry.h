#pragma once

namespace morvek {

// Walks the player through the world, starting at `currentLocation`, or at `previousLocation` after
// a return to Towne; returns when he is back in Towne, dead or alive.
void enterWorld();

} // namespace morvek
