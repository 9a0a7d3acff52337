// The rules of the board. Each showing reads the file over the board in memory, and after the
// caller's key the board is written once more where the reading ended, so a file that was ever
// shown holds a second copy that nobody reads.
//
// Writing empties the file first. Who then declines to save has wiped the board for everyone: the
// copy that follows leaves nothing but zeros where the next showing reads.
//
// Where the file can be neither read nor created, the board in memory is shown, and a message
// lasts for the call.

#include "towne/scroll_board.h"

#include "files/data_file.h"
#include "files/scroll_file.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "text/characters.h"

#include <algorithm>
#include <string>

namespace morvek {
namespace {

constexpr int maxMessageLength = 49;
constexpr std::size_t maxShownLength = 49;

void createMissingFile() {
    if (!isMissing(scrollFileName)) {
        return;
    }
    const ScrollFile created = ScrollFile::emptied();
    if (created.isOpen()) {
        clearAnsiOnly();
        created.writeAtStart(game.scroll);
    }
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

// Shows the board once; false when the caller closed it.
bool showOnce() {
    createMissingFile();
    clearScreen();
    ScrollFile file = ScrollFile::existing();
    file.read(game.scroll);
    drawBoard();
    const char key = menu("tavern", "wc");
    if (key == 'w') {
        writeScroll();
    }
    file.writeWhereReadingEnded(game.scroll);
    return key != 'c';
}

void append(const std::string& message) {
    std::move(game.scroll.begin() + 1, game.scroll.end(), game.scroll.begin());
    game.scroll.back() = {game.player.name, message};
}

} // namespace

void scrollBoard() {
    while (showOnce()) {
    }
}

void writeScroll() {
    const ScrollFile file = ScrollFile::emptied();
    say("`bright red`Message`bright red`: `bright white`");
    const std::string message = askLine(maxMessageLength, 0, 127);
    say("\n\r");
    say("`red`Save message (`bright white`Y`red`/`bright white`N`red`)`bright red`: `bright "
        "white`");
    if (answer("YN") == 'Y') {
        append(message);
        file.writeAtStart(game.scroll);
    }
}

} // namespace morvek
