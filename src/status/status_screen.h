#pragma once

namespace morvek {

// Draws "Your Status" and waits for a key. Line feeds at the end of the player's name are taken
// off the stored name for good.
void showStatus();

} // namespace morvek
