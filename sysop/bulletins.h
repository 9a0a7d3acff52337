// What a board shows its callers outside the game: the ten best, the day's news, the message
// board. Plain text and ANSI are CP437, as bulletins are; HTML and JSON are UTF-8. A control byte
// in what callers have written never comes through, and neither does a colour code.
#pragma once

#include "state/scores.h"
#include "sysop/game_directory.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace morvek {

enum class Format : std::uint8_t { text, ansi, html, json };

void writeScores(const GameDirectory& home, Format format, std::ostream& out);

// The news of a day; the stamp is MMDDYY. A day without news is told as one.
void writeNews(const GameDirectory& home, const std::string& stamp, Format format,
               std::ostream& out);

void writeBoard(const GameDirectory& home, Format format, std::ostream& out);

// The ten best, without empty entries.
std::vector<ScoreEntry> scoresOf(const GameDirectory& home);

// Whether the board shows the entry: a text of more than 15 characters is not in the file.
bool isShown(const ScrollEntry& entry);

// The text that a caller sees of one with colour codes: what stands between two backquotes, or
// behind the last of an odd number, is none of it, and neither is a control byte.
std::string shownText(std::string_view text);

} // namespace morvek
