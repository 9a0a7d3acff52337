// The verbs that change characters, the board and the scores. The game's saves take over what
// others have changed, character by character: so a character can be changed while others play, but
// not while its own player is in the game. Nothing is backed up when there is nothing to change.
#pragma once

#include "sysop/game_directory.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace morvek {

// Sets fields of the player with that number, in pairs of a field's name and its value.
void setPlayer(const GameDirectory& home, std::size_t number, const std::vector<std::string>& pairs,
               bool forced, std::ostream& out);

// Removes the player. The last one of the file takes his place and number, since a gap would give
// every later caller a second record at his next save. A slot that is already free is filled too.
// His traces are his messages, his scores and his lines in the news.
void removePlayer(const GameDirectory& home, std::size_t number, bool traces, bool forced,
                  std::ostream& out);

// Removes the characters that nobody has played since the day, and the news of the days before;
// says first what goes, and changes nothing in a dry run. Player 1 stays: who takes his place would
// get what a robber saves there.
void purge(const GameDirectory& home, const std::string& day, bool dryRun, std::ostream& out);

// Takes the on-line mark that a call has left behind off that player, or off all with number 0.
void markOffline(const GameDirectory& home, std::size_t number, std::ostream& out);

// Takes one message off the board, or one line off the ten best and their bulletins; counted as
// `board` and `scores` show them.
void removeMessage(const GameDirectory& home, std::size_t number, std::ostream& out);
void removeScore(const GameDirectory& home, std::size_t number, std::ostream& out);

} // namespace morvek
