#pragma once

namespace morvek {

// Towne, the main menu: runs until the caller quits or the player has no hit points left.
void towneMenu();

} // namespace morvek
