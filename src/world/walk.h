#pragma once

#include "world/world_map.h"

namespace morvek {

// Walks the world from that room on, until the player is on his way home, dead or out of turns.
// However far he walks, a step costs a few bytes and the machine's stack stays as it is.
void walkFrom(RoomNumber first);

} // namespace morvek
