// Two views of the roster: every stored character, and those inside the game now. Both show a
// character under the number of his slot plus one, and neither ever shows the last slot.
#pragma once

namespace morvek {

// Reads the character file into the roster and copies every character to the player list.
void loadRoster();

// Shows the player list; leaves the last number shown plus one in `playerCount`.
void showPlayerList();

// Shows who is marked on-line in the roster in memory, and waits for a key.
void showUsersOnline();

} // namespace morvek
