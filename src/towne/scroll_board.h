#pragma once

namespace morvek {

// Shows Morvek's Scroll, the callers' message board, until the caller closes it.
void scrollBoard();

// Asks for one message and, if the caller says so, puts it at the end of the board; the oldest one
// falls off. The board's file is emptied as soon as this begins.
void writeScroll();

} // namespace morvek
