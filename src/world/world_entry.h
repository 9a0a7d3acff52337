#pragma once

namespace morvek {

// Takes the player out into the world, at the location he stands at or, when he has left the world
// before, at the one where he left a trail; returns when he is back in Towne, dead or alive.
void enterWorld();

} // namespace morvek
