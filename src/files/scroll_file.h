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
// Unlike the game's other files this one is not replaced whole: it is held open while it is shown,
// emptied under that open file and written in place.
#pragma once

#include "state/scroll.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>

#include <sys/types.h>

namespace morvek {

inline constexpr const char* scrollFileName = "scroll.dat";
constexpr std::size_t scrollSize = 480;

using ScrollBytes = std::array<char, scrollSize>;

// The board as the file holds it.
ScrollBytes scrollBytes(const Scroll& board);

// Reads as many bytes as there are, at most 480, over the board.
void overlayScroll(std::span<const char> bytes, Scroll& board);

// The board's file, open for reading and writing as long as this lives. On a file that is not open
// nothing is read or written.
class ScrollFile {
public:
    // Opens the file that there is.
    static ScrollFile existing();

    // Opens the file and empties it, or creates it. Opens nothing if the last read failed.
    static ScrollFile emptied();

    ~ScrollFile();
    ScrollFile(const ScrollFile&) = delete;
    ScrollFile& operator=(const ScrollFile&) = delete;

    [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }

    // Reads the file's first 480 bytes over the board, as far as there are so many. When that
    // fails the board stays as it was, and the file is closed.
    void read(Scroll& board);

    // Writes the board over the file's first 480 bytes.
    void writeAtStart(const Scroll& board) const;

    // Writes the board behind the bytes that were read; if the file has become shorter than that,
    // zeros fill what lies between.
    void writeWhereReadingEnded(const Scroll& board) const;

private:
    explicit ScrollFile(int opened) : descriptor_(opened) {}
    void writeAt(off_t position, const Scroll& board) const;

    void close();

    int descriptor_;
    off_t readingEnded_ = 0;
};

} // namespace morvek
