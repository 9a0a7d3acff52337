#pragma once

#include "options.h"

namespace odoors {

// Forgets the call, so that od_init() begins another one with these options. A program serves one
// call; this is for tests that hold many.
void restart(const Options& options);

} // namespace odoors
