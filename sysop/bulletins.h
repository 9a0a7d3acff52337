// What a board shows its callers outside the game: the ten best, the day's news, the message
// board. Plain text and ANSI are CP437, as bulletins are; HTML and JSON are UTF-8. A control byte
// in what callers have written never comes through, and neither does a colour code.
#pragma once

#include "sysop/game_directory.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace morvek {

enum class Format : std::uint8_t { text, ansi, html, json };

void writeScores(const GameDirectory& home, Format format, std::ostream& out);

// The news of a day; the stamp is MMDDYY. A day without news is told as one.
void writeNews(const GameDirectory& home, const std::string& stamp, Format format,
               std::ostream& out);

void writeBoard(const GameDirectory& home, Format format, std::ostream& out);

// The text that a caller sees of one with colour codes: what stands between two backquotes, or
// behind the last of an odd number, is none of it.
std::string withoutColourCodes(std::string_view text);

} // namespace morvek
