// What the program holds on the heap: its operator new and delete keep count.
#pragma once

#include <cstddef>

namespace morvek::bench {

// The bytes held now.
std::size_t heldBytes();

// The most bytes held at one time since the meter was last reset, old and new copy of a growing
// vector included.
std::size_t mostHeldBytes();

void resetHeapMeter();

} // namespace morvek::bench
