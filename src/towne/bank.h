#pragma once

namespace morvek {

// The bank: moves gold between the player's hand and his account until the caller leaves it.
void visitBank();

} // namespace morvek
