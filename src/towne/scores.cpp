// Entering a score. It goes before the first entry that is lower, so behind its equals; into an
// empty place when none is lower; nowhere when a full table has none that is lower, and then the
// file is written as it was read. Otherwise the player keeps one line of the file: his highest.

#include "towne/scores.h"

#include "files/data_file.h"
#include "files/game_lock.h"
#include "files/score_file.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "state/scores.h"

#include <algorithm>
#include <cstdio>
#include <span>

namespace morvek {
namespace {

constexpr std::size_t maxShownNameLength = 49;
constexpr int firstRow = 5;
constexpr int scoreColumn = 29;
constexpr int classColumn = 47;

void complain() {
    std::fprintf(stderr, "Could not open %s for output!\n", scoreFileName);
    std::fputs("Output file opened insuccessfully.  Score not saved.\n", stderr);
}

std::span<const ScoreEntry> entriesRead(std::int32_t count) {
    return std::span(game.scores.table).first(static_cast<std::size_t>(count));
}

// Where the new score belongs among the entries read; the table's size when it has no place.
std::size_t placeOf(std::int32_t score) {
    const std::span<const ScoreEntry> entries = entriesRead(game.scores.count);
    const auto lower = std::find_if(entries.begin(), entries.end(),
                                    [score](const ScoreEntry& one) { return one.score < score; });
    return static_cast<std::size_t>(lower - entries.begin());
}

ScoreEntry playersEntry() {
    return {game.player.name, game.scores.entry.score, game.player.className};
}

void insertAt(std::size_t place) {
    auto& table = game.scores.table;
    std::move_backward(table.begin() + static_cast<std::ptrdiff_t>(place), table.end() - 1,
                       table.end());
    table[place] = playersEntry();
    game.scores.count = std::min(game.scores.count + 1, static_cast<std::int32_t>(topTenSize));
}

std::string fileText(bool onceForThePlayer) {
    std::string text;
    bool written = false;
    for (const ScoreEntry& entry : entriesRead(game.scores.count)) {
        const bool players = entry.name == game.player.name;
        if (!isEmptyEntry(entry) && !(onceForThePlayer && players && written)) {
            text += scoreLine(entry);
        }
        written = written || players;
    }
    return text;
}

void createScores(Replacement& file) {
    game.scores.entry.name = game.player.name;
    game.scores.entry.className = game.player.className;
    game.scores.table.front() = game.scores.entry;
    if (file.replace(scoreLine(game.scores.entry)) != 0) {
        complain();
    }
}

void insertScore(Replacement& file) {
    const std::size_t place = placeOf(game.scores.entry.score);
    const bool hasPlace = place < topTenSize;
    if (hasPlace) {
        insertAt(place);
    }
    if (file.replace(fileText(hasPlace)) != 0) {
        complain();
    }
}

void drawEntry(const ScoreEntry& entry, int index) {
    say("`red`");
    show(index + 1);
    say("%s", index + 1 < static_cast<int>(topTenSize) ? "`bright red`. `bright white`   "
                                                       : "`bright red`. `bright white`  ");
    show(std::string_view(entry.name).substr(0, maxShownNameLength));
    say("   ");
    moveCursor(index + firstRow, scoreColumn);
    show(entry.score);
    moveCursor(index + firstRow, classColumn);
    say("%s", colourOfClass(entry.className).screenCode);
    show(entry.className);
    say("\n\r");
}

void publish(const Transaction& transaction, const char* name, const std::string& bulletin) {
    if (readWhole(name) != bulletin) {
        replaceFile(transaction, name, bulletin);
    }
}

// Reads the scores and brings the bulletins up to date with them; false when there are none.
bool publishScores() {
    const Transaction transaction(gameLock);
    if (!readScores()) {
        return false;
    }
    const std::span<const ScoreEntry> entries = entriesRead(game.scores.count);
    publish(transaction, plainBulletinName, plainBulletin(entries));
    publish(transaction, ansiBulletinName, ansiBulletin(entries));
    return true;
}

} // namespace

bool readScores() {
    const std::optional<std::string> text = readWhole(scoreFileName);
    if (!text) {
        return false;
    }
    game.scores.count = parseScores(*text, game.scores.table);
    return true;
}

void prepareScore() {
    game.scores.entry.name = game.player.name;
    game.scores.entry.score = game.player.experience;
}

void updateScores() {
    const Transaction transaction(gameLock);
    const bool isRead = readScores();
    if (!isRead) {
        say("\n\r");
    }
    Replacement file(transaction, scoreFileName);
    const bool readingFailed = !isRead && canRead(scoreFileName); // others' scores are in it
    if (!file.isOpen() || readingFailed) {
        complain();
        return;
    }
    if (!isRead) {
        createScores(file);
        return;
    }
    say("\n\r");
    insertScore(file);
}

void showTopTen() {
    if (publishScores()) {
        drawTopTen(game.scores.count);
    } else {
        say("\n\r\n\r");
        say("`bright white`Top 10 Scores List is empty.\n\r");
    }
}

void drawTopTen(std::int32_t count) {
    clearScreen();
    say("`Red`Top 10 Players`bright red`:");
    say("\n\r");
    say("\n\r");
    say("`red`Rank");
    say("`red`  Name                  Experience        Class");
    say("\n\r");
    say("`bright white`-----------------------------------------------------------\n\r");
    const std::span<const ScoreEntry> entries = entriesRead(count);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!isEmptyEntry(entries[i])) {
            drawEntry(entries[i], static_cast<int>(i));
        }
    }
}

void clearScores() { game.scores.table.fill(ScoreEntry{}); }

} // namespace morvek
