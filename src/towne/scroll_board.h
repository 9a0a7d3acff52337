#pragma once

namespace morvek {

// Shows Morvek's Scroll, the callers' message board, until the caller closes it.
void scrollBoard();

} // namespace morvek
