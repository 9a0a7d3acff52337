#pragma once

namespace morvek {

// The Health Shrine: sells hit points, plays a guessing game that grants nothing, and returns when
// the caller leaves it.
void healthShrine();

} // namespace morvek
