// The rules of the board. Each showing reads the file over the board in memory, and after the
// caller's key the board is written once more where the reading ended, so a file that was ever
// shown holds a second copy that nobody reads.
//
// Writing empties the file first. Who then declines to save has wiped the board for everyone: the
// copy that follows leaves nothing but zeros where the next showing reads.
//
// Where others write at the same time, no message is lost. Only one writer at a time empties the
// file, and only if it is as he has seen it. When he confirms, what others have confirmed meanwhile
// comes behind what he has taken, and his message behind both. Another writer leaves the file alone
// and adds to it; if he declines he removes what he has been shown. The second copy is not written.
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
    return {read->length, *read, !gameLock.isBoardTaken()};
}

// Reads the file anew; nothing when it cannot be read, or must not be written now.
std::optional<ScrollImage> readAgain(const Transaction& transaction, Showing& showing) {
    if (!transaction.mayWrite()) {
        showing.alone = false;
        return std::nullopt;
    }
    const std::optional<ScrollImage> now = readScrollFile();
    showing.alone = showing.alone && (!now || *now == showing.file) && !gameLock.isBoardTaken();
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

// Empties the file, unless others have changed or emptied it. What it held stays for backups.
void takeBoard(Showing& showing) {
    const Transaction transaction(gameLock);
    const std::optional<ScrollImage> now = readAgain(transaction, showing);
    if (!showing.alone) {
        return;
    }
    if (now) {
        replaceFile(transaction, oldScrollFileName, {now->bytes.data(), now->bytes.size()});
    }
    gameLock.setBoardTaken(true);
    emptyScrollFile();
    showing.file = {};
}

void releaseBoard(const Transaction& transaction) {
    if (transaction.mayWrite() && !gameLock.isBoardTaken()) {
        ::unlink(oldScrollFileName);
    }
    gameLock.setBoardTaken(false);
}

// Puts the message at the end of the board.
void saveMessage(Showing& showing, bool isTaken, const std::string& message) {
    const Transaction transaction(gameLock);
    const std::optional<ScrollImage> now = readAgain(transaction, showing);
    if (now) {
        Scroll others;
        overlayScroll(now->bytes, others);
        Scroll board = isTaken ? game.scroll : Scroll{};
        for (const ScrollEntry& entry : others) {
            if (!entry.author.empty() || !entry.message.empty()) {
                append(board, entry);
            }
        }
        game.scroll = board;
    }
    append(game.scroll, {game.player.name, message});
    if (now) {
        showing.file = {scrollBytes(game.scroll), scrollSize};
        writeScrollFile(showing.file.bytes);
    }
    releaseBoard(transaction);
}

// Leaves only what others have confirmed since the board was shown.
void declineMessage(Showing& showing, bool isTaken) {
    const Transaction transaction(gameLock);
    const std::optional<ScrollImage> now = readAgain(transaction, showing);
    if (now && !isTaken) {
        auto left = std::bit_cast<ScrollEntries>(now->bytes);
        for (const ScrollEntryBytes& shown : std::bit_cast<ScrollEntries>(showing.file.bytes)) {
            removeEntry(left, shown);
        }
        writeScrollFile(std::bit_cast<ScrollBytes>(left));
    }
    releaseBoard(transaction);
}

// Asks for one message and, if the caller says so, puts it at the end of the board; the oldest one
// falls off.
void writeScroll(Showing& showing) {
    takeBoard(showing);
    const bool isTaken = showing.alone;
    say("`bright red`Message`bright red`: `bright white`");
    const std::string message = askLine(maxMessageLength, 0, 127);
    say("\n\r");
    say("`red`Save message (`bright white`Y`red`/`bright white`N`red`)`bright red`: `bright "
        "white`");
    if (answer("YN") == 'Y') {
        saveMessage(showing, isTaken, message);
    } else {
        declineMessage(showing, isTaken);
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
