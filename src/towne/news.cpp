#include "towne/news.h"

#include "files/data_file.h"
#include "screen/screen.h"
#include "state/game_state.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace morvek {
namespace {

constexpr std::size_t maxPieceLength = 49;
constexpr std::string_view firstLine = "It's a new day!\n\r";

std::string newsFileName() { return game.session.dateStamp + ".txt"; }

// A file that is there but cannot be read keeps what it holds.
void createNewsFile(const std::string& path) {
    if (!canRead(path)) {
        createWith(path, firstLine);
    }
}

std::size_t pieceLength(std::string_view text) {
    const std::size_t lineEnd = text.find('\n');
    const std::size_t line = lineEnd == std::string_view::npos ? text.size() : lineEnd + 1;
    return std::min(line, maxPieceLength);
}

} // namespace

void newsJoined() {
    const std::string path = newsFileName();
    createNewsFile(path);
    appendTo(path, std::string(userName()) + " joined the game.\n\r");
}

void showNews() {
    const std::string path = newsFileName();
    createNewsFile(path);
    const std::optional<std::string> news = readWhole(path);
    if (!news) {
        return;
    }
    clearScreen();
    say("\n\r`red`News for today`bright red`:\n\r\n\r");
    say("`bright white`");
    for (std::string_view rest = *news; !rest.empty();) {
        const std::size_t length = pieceLength(rest);
        showPiece(rest.substr(0, length));
        say("\n\r");
        rest.remove_prefix(length);
    }
    pressAnyKey();
}

} // namespace morvek
