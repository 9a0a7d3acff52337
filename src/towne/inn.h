#pragma once

namespace morvek {

// Offers a room for the night, for level times 50 gold. A player who takes it leaves the game: his
// score is entered, he is emptied in memory, and `roomRented` is 1 until he starts again.
void rentRoom();

} // namespace morvek
