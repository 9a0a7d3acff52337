// scroll.dat, the message board: ten entries of two texts, oldest first, 480 bytes.
//
//   0 + 48k  24  author of entry k
//  24 + 48k  24  message of entry k
//
// A text is a slot of 24 bytes: a word without meaning (written as 0), the length as an unsigned
// word, and 16 bytes. A text of at most 15 characters stands in these, with zeros behind it. Of a
// longer one the file holds no character: its length is written, once more in the first 4 of the
// 16 bytes, and zeros behind it. When such a slot is read, the text in memory stays if it has that
// very length, and becomes empty otherwise; so a long message lives for the call that wrote it.
//
// A file that was ever shown goes on behind byte 479 with a second copy, which is never read.
// A short file is read over as much of the board as it covers.
//
// Unlike the game's other files this one is not replaced whole: it is emptied and written in place.
#pragma once

#include "state/scroll.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include <sys/types.h>

namespace morvek {

inline constexpr const char* scrollFileName = "scroll.dat";

// Holds the 480 bytes that a caller who types a message has taken out of scroll.dat.
inline constexpr const char* oldScrollFileName = "scroll.old";

constexpr std::size_t scrollSize = 480;
constexpr std::size_t scrollEntrySize = scrollSize / std::tuple_size_v<Scroll>;

using ScrollBytes = std::array<char, scrollSize>;

// What the file holds: the first bytes, with zeros behind its end, and how many they are.
struct ScrollImage {
    ScrollBytes bytes{};
    std::size_t length = 0;

    bool operator==(const ScrollImage&) const = default;
};

using ScrollEntryBytes = std::array<char, scrollEntrySize>;
using ScrollEntries = std::array<ScrollEntryBytes, std::tuple_size_v<Scroll>>;

// Removes one entry of these bytes and tells whether there was one. An empty one is never there.
bool removeEntry(ScrollEntries& entries, const ScrollEntryBytes& wanted);

// The board as the file holds it.
ScrollBytes scrollBytes(const Scroll& board);

// Reads as many bytes as there are, at most 480, over the board.
void overlayScroll(std::span<const char> bytes, Scroll& board);

// Reads the board's file; nothing when it cannot be opened or read, and then it is neither emptied
// nor written until it can be.
std::optional<ScrollImage> readScrollFile();

// Empties the file, creating it if there is none; false when that fails.
bool emptyScrollFile();

// Writes over the 480 bytes from that position on; zeros fill what lies before them in a file that
// is shorter. Does nothing when there is no file.
void writeScrollFile(const ScrollBytes& bytes, off_t position = 0);

} // namespace morvek
