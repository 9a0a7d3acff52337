#pragma once

namespace morvek {

// Offers a room for the night, for level times 50 gold. Who takes it is out of the game for this
// call: his score is entered, he is emptied in memory, and `roomRented` is 1.
void rentRoom();

} // namespace morvek
