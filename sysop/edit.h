// The verbs that change the character file. The game writes the whole file from its memory at each
// save, so what is changed while somebody plays is lost: they refuse while a character is marked
// on-line, unless forced. Each makes a backup first, and none when there is nothing to change.
#pragma once

#include "sysop/game_directory.h"

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>

namespace morvek {

// Throws Failure when somebody is marked on-line and it is not forced.
void refuseWhilePlayed(const GameDirectory& home, bool forced);

struct Change {
    std::size_t number = 0; // of the player
    std::string field;      // of the record, or a flag of the world
    std::string value;
};

void setPlayer(const GameDirectory& home, const Change& change, std::ostream& out);

// Removes the player. The last one of the file takes his place and number, since a gap would give
// every later caller a second record at his next save. A slot that is already free is filled too.
void removePlayer(const GameDirectory& home, std::size_t number, std::ostream& out);

// Takes the on-line mark off that player, or off all.
void markOffline(const GameDirectory& home, std::optional<std::size_t> number, std::ostream& out);

} // namespace morvek
