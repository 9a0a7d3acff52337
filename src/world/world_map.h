// The world: 76 numbered locations and the rooms of four levels, one row each. What is not in a row
// is the same in all rooms.
#pragma once

#include "world/room.h"

#include <span>

namespace morvek {

// The line with its colour codes; null for none.
const char* lineOf(Sign sign);

// All rooms; the one numbered n stands at n - 1.
std::span<const Room, roomCount> allRooms();

// The row of a room; number is 1 to roomCount.
const Room& roomAt(RoomNumber number);

} // namespace morvek
