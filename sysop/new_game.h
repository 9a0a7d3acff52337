// A game directory ready to run: morvek.cfg, whose third line names the directory itself, and the
// display files. It can be moved and copied as it is.
#pragma once

#include <ostream>
#include <string>

namespace morvek {

struct NewGame {
    std::string directory;
    std::string board;  // UTF-8
    std::string menus;  // where the display files are taken from; empty: where they are installed
    std::string keeper; // of the first slot, which robbers overwrite; empty: nobody
};

// Throws Failure when the directory holds anything already, or the display files are not found.
// Nothing is left of a game that cannot be written whole.
void makeGame(const NewGame& wanted, std::ostream& out);

} // namespace morvek
