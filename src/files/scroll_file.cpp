#include "files/scroll_file.h"

#include "files/data_file.h"
#include "state/game_state.h"
#include "state/text_slot.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace morvek {
namespace {

// O_NONBLOCK keeps a pipe that stands in the file's place from holding up the game; it can be
// neither read nor written at a position, so such a board lives in memory.
constexpr int openFlags = O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
constexpr mode_t newFileMode = 0666;

struct EntryImage {
    TextSlot author;
    TextSlot message;
};

using BoardImage = std::array<EntryImage, std::tuple_size_v<Scroll>>;

static_assert(sizeof(BoardImage) == scrollSize);

TextSlot slotOf(const std::string& text) {
    TextSlot slot;
    if (text.size() <= TextSlot::capacity) {
        slot.assign(text);
    } else {
        slot.length = static_cast<std::uint32_t>(text.size());
        std::memcpy(slot.bytes.data(), &slot.length, sizeof slot.length);
    }
    return slot;
}

void overlay(const TextSlot& slot, std::string& text) {
    if (slot.length <= TextSlot::capacity) {
        text = slot.view();
    } else if (slot.length != text.size()) {
        text.clear();
    }
}

} // namespace

ScrollBytes scrollBytes(const Scroll& board) {
    BoardImage image;
    for (std::size_t k = 0; k < board.size(); ++k) {
        image[k] = {slotOf(board[k].author), slotOf(board[k].message)};
    }
    return std::bit_cast<ScrollBytes>(image);
}

void overlayScroll(std::span<const char> bytes, Scroll& board) {
    ScrollBytes whole = scrollBytes(board);
    std::copy_n(bytes.begin(), std::min(bytes.size(), whole.size()), whole.begin());
    const auto image = std::bit_cast<BoardImage>(whole);
    for (std::size_t k = 0; k < board.size(); ++k) {
        overlay(image[k].author, board[k].author);
        overlay(image[k].message, board[k].message);
    }
}

ScrollFile ScrollFile::existing() { return ScrollFile(::open(scrollFileName, openFlags)); }

ScrollFile ScrollFile::emptied() {
    constexpr int flags = openFlags | O_CREAT | O_TRUNC;
    const bool mayBeEmptied = game.session.scrollUnread == 0 || isMissing(scrollFileName);
    return ScrollFile(mayBeEmptied ? ::open(scrollFileName, flags, newFileMode) : -1);
}

ScrollFile::~ScrollFile() { close(); }

void ScrollFile::close() {
    if (isOpen()) {
        ::close(descriptor_);
    }
    descriptor_ = -1;
}

void ScrollFile::read(Scroll& board) {
    ScrollBytes bytes{};
    std::size_t total = 0;
    while (isOpen() && total < bytes.size()) {
        const ssize_t got = ::pread(descriptor_, bytes.data() + total, bytes.size() - total,
                                    static_cast<off_t>(total));
        if (got == 0) {
            break;
        }
        if (got > 0) {
            total += static_cast<std::size_t>(got);
        } else if (errno != EINTR) {
            close();
        }
    }
    game.session.scrollUnread = isOpen() ? 0 : 1;
    if (!isOpen()) {
        return;
    }
    readingEnded_ = static_cast<off_t>(total);
    overlayScroll(std::span(bytes).first(total), board);
}

void ScrollFile::writeAtStart(const Scroll& board) const { writeAt(0, board); }

void ScrollFile::writeWhereReadingEnded(const Scroll& board) const {
    writeAt(readingEnded_, board);
}

void ScrollFile::writeAt(off_t position, const Scroll& board) const {
    const ScrollBytes bytes = scrollBytes(board);
    std::size_t total = 0;
    while (isOpen() && total < bytes.size()) {
        const ssize_t put = ::pwrite(descriptor_, bytes.data() + total, bytes.size() - total,
                                     position + static_cast<off_t>(total));
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put <= 0) {
            break;
        }
        total += static_cast<std::size_t>(put);
    }
}

} // namespace morvek
