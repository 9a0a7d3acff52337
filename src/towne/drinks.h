#pragma once

namespace morvek {

// Pours drinks until the caller leaves, then saves the character. A drink can give a turn back.
void orderDrink();

} // namespace morvek
