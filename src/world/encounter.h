#pragma once

#include "world/world_map.h"

namespace morvek {

// Whether the monster at hand has hit points.
bool monsterAlive();

// Rolls the size of a group, 1 to 3, with a new seed.
void rollGroup();

// Sets up the group's next monster where the room is to have one: it has inhabitants, and either
// monsters are left and the room is not cleared, or an ambush is pending. A room of two kinds
// rolls between them, with a new seed.
void setUpInhabitant(const Room& room);

} // namespace morvek
