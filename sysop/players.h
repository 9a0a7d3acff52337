// What the tool tells of the characters: all of them as a table, and one of them whole. Characters
// go by the number of the player list, which is their slot plus one.
#pragma once

#include "sysop/game_directory.h"

#include <cstddef>
#include <ostream>

namespace morvek {

// The record of that number, 1 to 50; throws Failure when the slot is free.
PlayerRecord& playerOf(Characters& characters, std::size_t number);

// What a message calls the player of that number: "3 (Arwen, the character of Alice)".
std::string calledPlayer(const PlayerRecord& slot, std::size_t number);

void listPlayers(const GameDirectory& home, bool asJson, std::ostream& out);
void showPlayer(const GameDirectory& home, std::size_t number, bool asJson, std::ostream& out);

} // namespace morvek
