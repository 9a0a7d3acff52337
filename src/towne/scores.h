// The ten best scores of the board: a character's experience when he leaves the game.
#pragma once

#include <cstdint>

namespace morvek {

// Reads the score file into the table and leaves the number of entries in `count`; false when it
// cannot be opened.
bool readScores();

// Enters the score in `game.scores.entry` for the player and writes the file again. A file that
// cannot be written costs the score, with two lines on standard error.
void updateScores();

// Shows the list to the caller and writes the board's two bulletins where they have changed.
void showTopTen();

// Draws so many entries of the table.
void drawTopTen(std::int32_t count);

// Takes the player's name and experience for the score about to be entered.
void prepareScore();

// Empties all ten entries of the table in memory.
void clearScores();

} // namespace morvek
