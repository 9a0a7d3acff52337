#include "towne/news.h"

#include "files/data_file.h"
#include "files/game_lock.h"
#include "screen/screen.h"
#include "state/game_state.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace morvek {
namespace {

constexpr std::size_t maxPieceLength = 49;
constexpr std::string_view firstLine = "It's a new day!\n\r";

std::string newsFileName() { return game.session.dateStamp + ".txt"; }

std::size_t pieceLength(std::string_view text) {
    const std::size_t lineEnd = text.find('\n');
    const std::size_t line = lineEnd == std::string_view::npos ? text.size() : lineEnd + 1;
    return std::min(line, maxPieceLength);
}

std::optional<std::string> readNews() {
    const Transaction transaction(gameLock);
    const std::string path = newsFileName();
    if (transaction.mayWrite()) {
        createWith(path, firstLine);
    }
    return readWhole(path);
}

} // namespace

void newsJoined() {
    const Transaction transaction(gameLock);
    if (!transaction.mayWrite()) {
        return;
    }
    const std::string path = newsFileName();
    createWith(path, firstLine);
    appendTo(path, std::string(userName()) + " joined the game.\n\r");
}

void showNews() {
    const std::optional<std::string> news = readNews();
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
