#pragma once

namespace morvek {

// The program: opens the session, prepares the game and runs the title, which ends the process.
// Returns only when the configuration cannot be used: with the process's status 1, before the
// caller is connected.
int runDoor(int argc, char* argv[]);

} // namespace morvek
