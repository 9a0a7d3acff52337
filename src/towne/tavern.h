#pragma once

namespace morvek {

// The tavern: drinks, the training hall, the message board and the inn. Returns when the caller
// goes back to Towne, or when he has rented a room.
void visitTavern();

} // namespace morvek
