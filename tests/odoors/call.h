// Whole calls of the library in a process of their own: what a door does, and the caller's end.
#pragma once

#include "support/process.h"

using Arguments = std::vector<std::string>;
using Door = std::function<void()>;

// A child that opens a session with these arguments and runs the door. A door that comes to its
// end leaves with status 0.
Child doorChild(const Arguments& arguments, const Door& door);

inline Outcome callWithKeys(const Arguments& arguments, const std::string& keys, const Door& door) {
    return runWithKeys(doorChild(arguments, door), keys);
}

// A door whose caller sits at a pseudo-terminal.
struct DoorCall : TerminalCall {
    DoorCall(const Arguments& arguments, const Door& door, bool controlling = true)
        : TerminalCall(doorChild(arguments, door), controlling) {}
};

// Puts the clock of this process forward.
void passSeconds(long seconds);
