// The top ten on the disk.
//
// scores.dat, text, best first, at most ten entries, one a line: the name, "#", the score in
// decimal, the class name, a line feed; nothing stands between score and class:
//
//   Arwen#1500Ranger
//
// scores.asc and scores.ans are the bulletins that a board shows: plain, and in ANSI colour.
#pragma once

#include "state/scores.h"

#include <span>
#include <string>
#include <string_view>

namespace morvek {

inline constexpr const char* scoreFileName = "scores.dat";
inline constexpr const char* plainBulletinName = "scores.asc";
inline constexpr const char* ansiBulletinName = "scores.ans";

// The colour that a class has on the screen and in the ANSI bulletin; both empty for a class that
// is none of the eight.
struct ClassColour {
    const char* name;
    const char* screenCode;
    const char* ansiSequence;
};

const ClassColour& colourOfClass(std::string_view className);

// Whether an entry holds nothing at all; such a one is neither shown nor written.
bool isEmptyEntry(const ScoreEntry& entry);

// Reads entries over the table until it is full, the text ends, or an entry cannot be read whole,
// and returns their number. An empty text reads as one empty entry.
std::int32_t parseScores(std::string_view text, std::span<ScoreEntry> table);

// The entry's line in scores.dat.
std::string scoreLine(const ScoreEntry& entry);

// The whole text of a bulletin of these entries.
std::string plainBulletin(std::span<const ScoreEntry> entries);
std::string ansiBulletin(std::span<const ScoreEntry> entries);

} // namespace morvek
