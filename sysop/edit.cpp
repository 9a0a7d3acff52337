#include "sysop/edit.h"

#include "files/score_file.h"
#include "files/scroll_file.h"
#include "state/roster.h"
#include "sysop/bulletins.h"
#include "sysop/change.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/fields.h"
#include "sysop/players.h"

#include <algorithm>
#include <map>

namespace morvek {
namespace {

std::string joinedLine(const PlayerRecord& slot) {
    return std::string(slot.ownerName.view()) + " joined the game.\n\r";
}

void refuseInside(const GameDirectory& home, const PlayerRecord& slot, std::size_t number,
                  bool forced) {
    if (!forced && home.isInside(slot)) {
        throw Failure("player " + calledPlayer(slot, number) + " is in the game now; the next " +
                      "save would undo the change (--force changes nevertheless)");
    }
}

void refuseSecondSlot(const Characters& characters, std::size_t number) {
    const std::string_view owner = characters[number - 1].ownerName.view();
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (i + 1 != number && characters[i].ownerName.view() == owner) {
            throw Misuse("ownerName: " + inQuotes(owner) + " already owns player " +
                         std::to_string(i + 1));
        }
    }
}

// What has changed, a line for each field. Throws Misuse when play could not have given it.
std::string changesOf(const PlayerRecord& before, const PlayerRecord& after, std::size_t number) {
    std::string lines;
    for (const auto* fields : {&recordFields(), &worldFields()}) {
        for (const Field& field : *fields) {
            const auto fault = complaintAbout(field, after, number - 1);
            const std::string was = shownValue(field, before);
            const std::string is = shownValue(field, after);
            if (fault && (was != is || !complaintAbout(field, before, number - 1))) {
                throw Misuse(field.name + " would be wrong: it " + *fault);
            }
            if (was != is && !field.isCopy) {
                lines += "Player " + calledPlayer(before, number) + ": " + field.name + " " + was +
                         " -> " + is + "\n";
            }
        }
    }
    return lines;
}

// Moves the last character of the file to a free slot before it, and says so. A record knows its
// own slot or, before it was first healed, 0. A caller who is in the game knows it too: his
// character is not moved.
std::string fillGap(const GameDirectory& home, Characters& characters, std::size_t gap,
                    bool forced) {
    const auto last = std::find_if_not(characters.rbegin(), characters.rend(), isFree);
    const auto from = static_cast<std::size_t>(characters.rend() - last);
    if (from <= gap + 1) {
        return {};
    }
    const std::string moved = calledPlayer(*last, gap + 1) + " was player " + std::to_string(from);
    if (!forced && home.isInside(*last)) {
        throw Failure("player " + calledPlayer(*last, from) + " would become player " +
                      std::to_string(gap + 1) + ", but is in the game now; nothing was changed");
    }
    if (last->slotIndex == static_cast<std::int32_t>(from - 1)) {
        last->slotIndex = static_cast<std::int32_t>(gap);
    }
    characters[gap] = *last;
    *last = emptySlot();
    return "Player " + moved + ".\n";
}

template <typename Condition>
void removeEntries(const GameDirectory& home, Change& change, Condition isToGo) {
    if (home.lock->othersType()) {
        throw Failure("a caller is typing a message now; nothing was changed");
    }
    std::vector<std::string> entries = boardEntries(readBoard(home));
    const std::size_t count = entries.size();
    std::erase_if(entries, [&](const std::string& entry) { return isToGo(textsOf(entry)); });
    std::string board((count - entries.size()) * scrollEntrySize, '\0');
    for (const std::string& entry : entries) {
        board += entry;
    }
    if (board.size() > 0 && count > entries.size()) {
        change.write(scrollFileName, board);
    }
}

template <typename Condition>
void removeScores(const GameDirectory& home, Change& change, Condition isToGo) {
    std::vector<ScoreEntry> entries = scoresOf(home);
    if (std::erase_if(entries, isToGo) == 0) {
        return;
    }
    std::string lines;
    for (const ScoreEntry& entry : entries) {
        lines += scoreLine(entry);
    }
    const Contents files{{scoreFileName, lines},
                         {plainBulletinName, plainBulletin(entries)},
                         {ansiBulletinName, ansiBulletin(entries)}};
    for (const auto& [name, content] : files) {
        if (entries.empty()) {
            change.remove(name);
        } else {
            change.write(name, content);
        }
    }
}

void removeTraces(const GameDirectory& home, Change& change, const PlayerRecord& slot) {
    const std::string_view name = slot.name.view();
    removeEntries(home, change,
                  [&](const ScrollEntry& entry) { return !name.empty() && entry.author == name; });
    // While he creates his character, a name of more than 15 characters is in use.
    removeScores(home, change, [&](const ScoreEntry& entry) {
        return std::string_view(entry.name).substr(0, TextSlot::capacity) == name;
    });
    const std::string line = joinedLine(slot);
    for (const std::string& file : dataFiles(home)) {
        std::string news = isNewsFileName(file) ? readData(home, file) : "";
        const std::size_t length = news.size();
        for (std::size_t at = 0; (at = news.find(line, at)) != std::string::npos;) {
            if (at == 0 || news[at - 1] == '\r') {
                news.erase(at, line.size());
            } else {
                ++at;
            }
        }
        if (news.size() < length) {
            change.write(file, news);
        }
    }
}

// The last day that the player is known to have played, by his record or by the news.
std::string lastDayOf(const PlayerRecord& slot, const std::map<std::string, std::string>& news) {
    std::string last = dayOf(slot.lastPlayedDay);
    for (const auto& [day, text] : news) {
        if (text.find(joinedLine(slot)) != std::string::npos) {
            last = std::max(last, day);
        }
    }
    return last;
}

} // namespace

void setPlayer(const GameDirectory& home, std::size_t number, const std::vector<std::string>& pairs,
               bool forced, std::ostream& out) {
    Change change(home);
    Characters characters = readCharacters(home);
    PlayerRecord& slot = playerOf(characters, number);
    const PlayerRecord before = slot;
    std::string unchanged;
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
        const Field& field = setField(slot, pairs[i], pairs[i + 1]);
        unchanged += "Player " + calledPlayer(before, number) + ": " + field.name + " is already " +
                     shownValue(field, before) + ".\n";
    }
    const std::string changes = changesOf(before, slot, number);
    refuseSecondSlot(characters, number);
    refuseInside(home, before, number, forced);
    refuseInside(home, slot, number, forced);
    if (sameBytes(before, slot)) {
        out << unchanged;
        return;
    }
    change.write(characterFileName, bytesOf(characters));
    change.commit(out);
    out << changes;
}

void removePlayer(const GameDirectory& home, std::size_t number, bool traces, bool forced,
                  std::ostream& out) {
    Change change(home);
    Characters characters = readCharacters(home);
    PlayerRecord& slot = characters.at(number - 1);
    const bool isGap = isFree(slot);
    const std::string removed =
        isGap ? std::to_string(number) + " (nobody)" : calledPlayer(slot, number);
    refuseInside(home, slot, number, forced);
    if (traces) {
        removeTraces(home, change, playerOf(characters, number));
    }
    slot = emptySlot();
    const std::string moved = fillGap(home, characters, number - 1, forced);
    if (isGap && moved.empty()) {
        throw Failure("no player " + std::to_string(number));
    }
    change.write(characterFileName, bytesOf(characters));
    change.commit(out);
    out << "Removed player " << removed << ".\n" << moved;
}

void purge(const GameDirectory& home, const std::string& day, bool dryRun, std::ostream& out) {
    Change change(home);
    std::map<std::string, std::string> news;
    std::string lines;
    for (const std::string& file : dataFiles(home)) {
        const std::string filed = isNewsFileName(file) ? dayOf(file.substr(0, 6)) : "";
        if (!filed.empty() && filed < day) {
            change.remove(file);
            lines += file + "\n";
        } else if (!filed.empty()) {
            news[filed] = readData(home, file);
        }
    }
    Characters characters = readCharacters(home);
    for (std::size_t i = 1; i < characters.size(); ++i) {
        PlayerRecord& slot = characters[i];
        const std::string last = lastDayOf(slot, news);
        if (!isFree(slot) && last < day && !home.isInside(slot)) {
            lines += "Player " + calledPlayer(slot, i + 1) + ", last played " +
                     (last.empty() ? "on an unknown day" : last) + "\n";
            slot = emptySlot();
        }
    }
    out << (lines.empty() ? "There is nothing to remove.\n" : "To be removed:\n" + lines);
    std::string moved;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        moved += isFree(characters[i]) ? fillGap(home, characters, i, false) : "";
    }
    if (!dryRun && !lines.empty()) {
        if (bytesOf(characters) != bytesOf(readCharacters(home))) {
            change.write(characterFileName, bytesOf(characters));
        }
        change.commit(out);
        out << "Removed.\n" << moved;
    }
}

void markOffline(const GameDirectory& home, std::size_t number, std::ostream& out) {
    Change change(home);
    Characters characters = readCharacters(home);
    if (number != 0) {
        const PlayerRecord& slot = playerOf(characters, number);
        if (home.isInside(slot)) {
            throw Failure("player " + calledPlayer(slot, number) + " is in the game now");
        }
    }
    std::string lines;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        PlayerRecord& slot = characters[i];
        const bool isMeant = number == 0 || number == i + 1;
        if (isMeant && !isFree(slot) && slot.onlineFlag != 0 && !home.isInside(slot)) {
            slot.onlineFlag = 0;
            lines += "Player " + calledPlayer(slot, i + 1) + " is marked off-line.\n";
        }
    }
    if (lines.empty()) {
        out << "No mark to clear.\n";
        return;
    }
    change.write(characterFileName, bytesOf(characters));
    change.commit(out);
    out << lines;
}

void removeMessage(const GameDirectory& home, std::size_t number, std::ostream& out) {
    Change change(home);
    std::size_t count = 0;
    std::string removed;
    removeEntries(home, change, [&](const ScrollEntry& entry) {
        const bool isMeant = isShown(entry) && ++count == number;
        removed = isMeant ? shownText(entry.author + ": " + entry.message) : removed;
        return isMeant;
    });
    if (count < number) {
        throw Failure("the board has no message " + std::to_string(number));
    }
    change.commit(out);
    out << "Removed from the board: " << toUtf8(removed) << '\n';
}

void removeScore(const GameDirectory& home, std::size_t number, std::ostream& out) {
    Change change(home);
    const std::vector<ScoreEntry> entries = scoresOf(home);
    if (entries.size() < number) {
        throw Failure("the list has no line " + std::to_string(number));
    }
    std::size_t count = 0;
    removeScores(home, change, [&](const ScoreEntry&) { return ++count == number; });
    change.commit(out);
    const ScoreEntry& removed = entries[number - 1];
    out << "Removed from the ten best: " << toUtf8(removed.name) << ", " << removed.score << '\n';
}

void restoreBackup(const GameDirectory& home, const std::string& named, bool forced,
                   std::ostream& out) {
    Change change(home);
    const fs::path path = findBackup(home, named);
    const Contents files = readBackup(path);
    if (!forced) {
        change.refuseWhilePlayed();
    }
    const std::vector<std::string> before = dataFiles(home);
    for (const auto& [name, content] : files) {
        change.write(name, content);
    }
    for (const std::string& name : before) {
        if (files.count(name) == 0) {
            change.remove(name);
        }
    }
    change.commit(out, path);
    for (const auto& [name, content] : files) {
        if (std::find(before.begin(), before.end(), name) == before.end()) {
            fs::permissions(home.file(name), fs::status(path / name).permissions());
        }
    }
    out << "Restored " << path.string() << ": " << summaryOf(files) << ".\n";
}

void beginSeason(const GameDirectory& home, bool forced, std::ostream& out) {
    Change change(home);
    const std::vector<std::string> names = dataFiles(home);
    if (!forced) {
        change.refuseWhilePlayed();
    }
    if (names.empty()) {
        out << "There is nothing to reset: nobody has played yet.\n";
        return;
    }
    for (const std::string& name : names) {
        change.remove(name);
    }
    change.commit(out);
    out << "A new season: " << counted(names.size(), "data file") << " removed.\n";
}

} // namespace morvek
