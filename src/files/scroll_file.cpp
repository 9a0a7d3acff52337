#include "files/scroll_file.h"

#include "files/data_file.h"
#include "files/open_file.h"
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

bool removeEntry(ScrollEntries& entries, const ScrollEntryBytes& wanted) {
    const auto found = std::find(entries.begin(), entries.end(), wanted);
    if (wanted == ScrollEntryBytes{} || found == entries.end()) {
        return false;
    }
    std::move_backward(entries.begin(), found, found + 1);
    entries.front() = {};
    return true;
}

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

std::optional<ScrollImage> readScrollFile() {
    ScrollImage image;
    const OpenFile file(openFile(scrollFileName, O_RDWR));
    bool isRead = file.isOpen();
    while (isRead && image.length < scrollSize) {
        const ssize_t got = ::pread(file.get(), image.bytes.data() + image.length,
                                    scrollSize - image.length, static_cast<off_t>(image.length));
        if (got == 0) {
            break;
        }
        if (got > 0) {
            image.length += static_cast<std::size_t>(got);
        } else if (errno != EINTR) {
            isRead = false;
        }
    }
    game.session.scrollUnread = isRead ? 0 : 1;
    return isRead ? std::optional(image) : std::nullopt;
}

bool emptyScrollFile() {
    if (game.session.scrollUnread == 0 || isMissing(scrollFileName)) {
        const OpenFile file(openFile(scrollFileName, O_RDWR | O_CREAT | O_TRUNC));
        game.session.scrollUnread = file.isOpen() ? 0 : 1;
        return file.isOpen();
    }
    return false;
}

void writeScrollFile(const ScrollBytes& bytes, off_t position) {
    const OpenFile file(game.session.scrollUnread == 0 ? openFile(scrollFileName, O_RDWR) : -1);
    std::size_t total = 0;
    while (file.isOpen() && total < bytes.size()) {
        const ssize_t put = ::pwrite(file.get(), bytes.data() + total, bytes.size() - total,
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
