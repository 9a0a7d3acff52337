// The rules of the board. Each showing reads the file over the board in memory, and after the
// caller's key the board is written once more where the reading ended, so a file that was ever
// shown holds a second copy that nobody reads.
//
// Writing empties the file first. Who then declines to save has wiped the board for everyone: the
// copy that follows leaves nothing but zeros where the next showing reads.
//
// Where others write at the same time, no message is lost. Who begins one takes out of the file
// what he has been shown, leaves there what others have confirmed since, and puts both together
// with his own message when he confirms it. His copy is not written.
//
// Where the file can be neither read nor created, the board in memory is shown, and a message
// lasts for the call.

#include "towne/scroll_board.h"

#include "files/data_file.h"
#include "files/game_lock.h"
#include "files/scroll_file.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "text/characters.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <span>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace morvek {
namespace {

constexpr int maxMessageLength = 49;
constexpr std::size_t maxShownLength = 49;

// One showing of the board, up to the copy behind it.
struct Showing {
    std::size_t length = 0; // of what was read
    ScrollImage file;       // as this call last read or left it
    bool alone = true;      // no other call has changed the file, or is about to
};

void createMissingFile() {
    if (isMissing(scrollFileName) && emptyScrollFile()) {
        clearAnsiOnly();
        writeScrollFile(scrollBytes(game.scroll));
    }
}

Showing readBoard() {
    const Transaction transaction(gameLock);
    if (transaction.mayWrite()) {
        createMissingFile();
    }
    const std::optional<ScrollImage> read = readScrollFile();
    if (!read) {
        return {};
    }
    overlayScroll(std::span(read->bytes).first(read->length), game.scroll);
    return {read->length, *read, !gameLock.othersType()};
}

// Reads the file anew; nothing when it cannot be read, or must not be written now.
std::optional<ScrollImage> readAgain(const Transaction& transaction, Showing& showing) {
    if (!transaction.mayWrite()) {
        showing.alone = false;
        return std::nullopt;
    }
    const std::optional<ScrollImage> now = readScrollFile();
    showing.alone = showing.alone && (!now || *now == showing.file) && !gameLock.othersType();
    return now;
}

std::string shown(const std::string& text) {
    return text::withoutControls(text.substr(0, maxShownLength));
}

// The texts are other callers': never a format, though the colour codes in them take effect.
void sayEntry(const ScrollEntry& entry, const char* lineEnd) {
    if (entry.author.empty() || entry.message.empty()) {
        return;
    }
    say("`red`");
    say("%s", shown(entry.author).c_str());
    say("`bright red`: `bright white`");
    say("%s", shown(entry.message).c_str());
    say("%s", lineEnd);
}

void drawBoard() {
    say("`bright white`-`bright red`-`red`- `bright white`Morvek's Scroll "
        "`red`-`bright red`-`bright white`-\n\r");
    say("`bright white`----------------------------------\n\r\n\r");
    for (const ScrollEntry& entry : game.scroll) {
        sayEntry(entry, &entry == &game.scroll.back() ? "\n\r\n\r" : "\n\r");
    }
    say("`red`W`bright red`)`bright white`rite to Scroll `bright white`or "
        "`red`C`bright red`)`bright white`lose Scroll\n\r\n\r");
}

void append(Scroll& board, ScrollEntry entry) {
    std::move(board.begin() + 1, board.end(), board.begin());
    board.back() = std::move(entry);
}

// The old board holds in their order all messages of the file and all that have been taken out of
// it by those who type now. There is none rather than a wrong one.
void writeOldBoard(const Transaction& transaction, const ScrollBytes& board) {
    if (replaceFile(transaction, oldScrollFileName, {board.data(), board.size()}) != 0) {
        ::unlink(oldScrollFileName);
    }
}

std::optional<ScrollBytes> readOldBoard() {
    ScrollBytes old{};
    return readInto(oldScrollFileName, old) == scrollSize ? std::optional(old) : std::nullopt;
}

// Empties the file of the messages that the caller has been shown, and returns these. What others
// have confirmed since then stays in it.
Scroll takeMessages(Showing& showing) {
    const Transaction transaction(gameLock);
    const std::optional<ScrollImage> now = readAgain(transaction, showing);
    if (now && !gameLock.othersType()) {
        writeOldBoard(transaction, now->bytes);
    }
    gameLock.setTyping(true);
    if (showing.alone) {
        emptyScrollFile();
        showing.file = {};
        return game.scroll;
    }
    Scroll taken;
    if (now) {
        const auto shown = std::bit_cast<ScrollEntries>(showing.file.bytes);
        auto left = std::bit_cast<ScrollEntries>(now->bytes);
        for (std::size_t k = 0; k < shown.size(); ++k) {
            if (removeEntry(left, shown[k])) {
                append(taken, game.scroll[k]);
            }
        }
        writeScrollFile(std::bit_cast<ScrollBytes>(left));
    }
    return taken;
}

// The messages taken and those that others have confirmed meanwhile. The old board tells their
// order; what it does not hold any more is older than ten others.
Scroll putTogether(const Scroll& taken, const ScrollBytes& file,
                   const std::optional<ScrollBytes>& old) {
    Scroll others;
    overlayScroll(file, others);
    std::vector<ScrollEntry> entries(taken.begin(), taken.end());
    entries.insert(entries.end(), others.begin(), others.end());
    std::erase_if(entries, [](const ScrollEntry& entry) {
        return entry.author.empty() && entry.message.empty();
    });
    Scroll board;
    if (!old) {
        for (const ScrollEntry& entry : entries) {
            append(board, entry);
        }
        return board;
    }
    for (const ScrollEntryBytes& bytes : std::bit_cast<ScrollEntries>(*old)) {
        const auto found =
            std::find_if(entries.begin(), entries.end(),
                         [&](const ScrollEntry& entry) { return entryBytes(entry) == bytes; });
        if (found != entries.end()) {
            append(board, *found);
            entries.erase(found);
        }
    }
    return board;
}

// The old board stays for those who still type.
void endTyping(const Transaction& transaction) {
    gameLock.setTyping(false);
    if (transaction.mayWrite() && !gameLock.othersType()) {
        ::unlink(oldScrollFileName);
    }
}

void declineMessage() {
    const Transaction transaction(gameLock);
    endTyping(transaction);
}

// Puts the message behind all others.
void saveMessage(Showing& showing, const Scroll& taken, const std::string& message) {
    const Transaction transaction(gameLock);
    const std::optional<ScrollImage> now = readAgain(transaction, showing);
    const std::optional<ScrollBytes> old = readOldBoard();
    if (now && !showing.alone) {
        game.scroll = putTogether(taken, now->bytes, old);
    }
    const ScrollEntry own{game.player.name, message};
    append(game.scroll, own);
    endTyping(transaction);
    if (!now) {
        return;
    }
    showing.file = {scrollBytes(game.scroll), scrollSize};
    writeScrollFile(showing.file.bytes);
    if (old && gameLock.othersType()) {
        auto entries = std::bit_cast<ScrollEntries>(*old);
        std::move(entries.begin() + 1, entries.end(), entries.begin());
        entries.back() = entryBytes(own);
        writeOldBoard(transaction, std::bit_cast<ScrollBytes>(entries));
    }
}

// Asks for one message and, if the caller says so, puts it at the end of the board; the oldest one
// falls off.
void writeScroll(Showing& showing) {
    const Scroll taken = takeMessages(showing);
    say("`bright red`Message`bright red`: `bright white`");
    const std::string message = askLine(maxMessageLength, 0, 127);
    say("\n\r");
    say("`red`Save message (`bright white`Y`red`/`bright white`N`red`)`bright red`: `bright "
        "white`");
    if (answer("YN") == 'Y') {
        saveMessage(showing, taken, message);
    } else {
        declineMessage();
    }
}

void writeCopy(Showing& showing) {
    const Transaction transaction(gameLock);
    const std::optional<ScrollImage> now = readAgain(transaction, showing);
    if (now && showing.alone) {
        writeScrollFile(scrollBytes(game.scroll), static_cast<off_t>(showing.length));
    }
}

// Shows the board once; false when the caller closed it.
bool showOnce() {
    Showing showing = readBoard();
    clearScreen();
    drawBoard();
    const char key = menu("tavern", "wc");
    if (key == 'w') {
        writeScroll(showing);
    }
    writeCopy(showing);
    return key != 'c';
}

} // namespace

void scrollBoard() {
    while (showOnce()) {
    }
}

} // namespace morvek
