#pragma once

namespace morvek {

// Searches the place, once the room has found that it may be searched: pays the player, and either
// springs an ambush or shows him a treasure chest.
void search();

} // namespace morvek
