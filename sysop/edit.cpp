#include "sysop/edit.h"

#include "files/score_file.h"
#include "files/scroll_file.h"
#include "state/roster.h"
#include "sysop/backup.h"
#include "sysop/bulletins.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/fields.h"
#include "sysop/players.h"

#include <algorithm>
#include <functional>
#include <map>
#include <numeric>

namespace morvek {
namespace {

const std::string lineEnd = "\n\r";

// His line in the news, between two line ends.
std::string joinedLine(const PlayerRecord& slot) {
    return std::string(lineEnd).append(slot.ownerName.view()) + " joined the game.\n\r";
}

void refuseInside(const GameDirectory& home, const PlayerRecord& slot, std::size_t number,
                  bool forced) {
    failIf(!forced && home.isInside(slot), "player " + calledPlayer(slot, number) +
                                               " is in the game now, and the next save would " +
                                               "undo the change");
}

void refuseSecondSlot(const Characters& characters, std::size_t number) {
    const std::string_view owner = characters[number - 1].ownerName.view();
    for (std::size_t i = 0; i < characters.size(); ++i) {
        refuseIf(i + 1 != number && characters[i].ownerName.view() == owner,
                 "ownerName: " + inQuotes(owner) + " already owns player " + std::to_string(i + 1));
    }
}

// What has changed, a line for each field. Throws Misuse when play could not have given it.
std::string changesOf(const PlayerRecord& before, const PlayerRecord& after, std::size_t number) {
    std::string lines;
    for (const Field& field : allFields()) {
        const auto fault = complaintAbout(field, after, number - 1);
        const std::string was = shownValue(field, before);
        const std::string is = shownValue(field, after);
        refuseIf(fault && (was != is || !complaintAbout(field, before, number - 1)),
                 field.name + " would be wrong: it " + fault.value_or(""));
        if (was != is && field.rule != FieldRule::unreadFlag) {
            lines.append(field.name + " ").append(was).append(" -> ").append(is).append("\n");
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
    failIf(!forced && home.isInside(*last), "player " + calledPlayer(*last, from) +
                                                " would become player " + std::to_string(gap + 1) +
                                                ", but is in the game now; nothing was changed");
    if (last->slotIndex == static_cast<std::int32_t>(from - 1)) {
        last->slotIndex = static_cast<std::int32_t>(gap);
    }
    characters[gap] = *last;
    *last = emptySlot();
    return "Player " + moved + ".\n";
}

// Takes entries off the board; how many.
std::size_t removeEntries(const GameDirectory& home, Contents& files,
                          const std::function<bool(const ScrollEntry&)>& isToGo) {
    failIf(home.lock->isBoardTaken(), "a caller is typing a message now; nothing was changed");
    std::vector<std::string> entries = boardEntries(readBoard(home));
    const std::size_t removed =
        std::erase_if(entries, [&](const std::string& entry) { return isToGo(textsOf(entry)); });
    if (removed > 0) {
        files[scrollFileName] = std::accumulate(entries.begin(), entries.end(),
                                                std::string(removed * scrollEntrySize, '\0'));
    }
    return removed;
}

// Puts the scores into their file and the bulletins; an empty list has no files.
void putScores(const std::vector<ScoreEntry>& entries, Contents& files) {
    std::string lines;
    for (const ScoreEntry& entry : entries) {
        lines += scoreLine(entry);
    }
    const Contents whole{{scoreFileName, lines},
                         {plainBulletinName, plainBulletin(entries)},
                         {ansiBulletinName, ansiBulletin(entries)}};
    for (const auto& [name, content] : whole) {
        files[name] = entries.empty() ? std::nullopt : content;
    }
}

void removeTraces(const GameDirectory& home, const PlayerRecord& slot, Contents& files) {
    const std::string_view name = slot.name.view();
    removeEntries(home, files,
                  [&](const ScrollEntry& entry) { return !name.empty() && entry.author == name; });
    std::vector<ScoreEntry> scores = scoresOf(home);
    // A new character keeps a name of more than 15 characters until its first call ends.
    if (std::erase_if(scores, [&](const ScoreEntry& entry) {
            return std::string_view(entry.name).substr(0, TextSlot::capacity) == name;
        }) > 0) {
        putScores(scores, files);
    }
    const std::string line = joinedLine(slot);
    for (const std::string& file : dataFiles(home)) {
        const std::string before = isNewsFileName(file) ? lineEnd + readData(home, file) : "";
        std::string news = before;
        for (std::size_t at = news.find(line); at != std::string::npos; at = news.find(line)) {
            news.erase(at, line.size() - lineEnd.size());
        }
        if (news != before) {
            files[file] = news.substr(lineEnd.size());
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
    const Change change(home);
    Characters characters = readCharacters(home);
    PlayerRecord& slot = playerOf(characters, number);
    const PlayerRecord before = slot;
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
        setField(slot, pairs[i], pairs[i + 1]);
    }
    const std::string changes = changesOf(before, slot, number);
    refuseSecondSlot(characters, number);
    refuseInside(home, before, number, forced);
    refuseInside(home, slot, number, forced);
    if (sameBytes(before, slot)) {
        out << "There is nothing to change.\n";
        return;
    }
    change.commit({{characterFileName, bytesOf(characters)}}, out);
    out << "Player " << calledPlayer(slot, number) << '\n' << changes;
}

void removePlayer(const GameDirectory& home, std::size_t number, bool traces, bool forced,
                  std::ostream& out) {
    const Change change(home);
    Characters characters = readCharacters(home);
    const PlayerRecord slot = characters.at(number - 1);
    Contents files;
    refuseInside(home, slot, number, forced);
    if (traces) {
        removeTraces(home, slot, files);
    }
    characters[number - 1] = emptySlot();
    const std::string moved = fillGap(home, characters, number - 1, forced);
    failIf(isFree(slot) && moved.empty(), "no player " + std::to_string(number));
    files[characterFileName] = bytesOf(characters);
    change.commit(files, out);
    out << "Removed player " << calledPlayer(slot, number) << ".\n" << moved;
}

void purge(const GameDirectory& home, const std::string& day, bool dryRun, std::ostream& out) {
    const Change change(home);
    Contents files;
    std::map<std::string, std::string> news;
    for (const std::string& file : dataFiles(home)) {
        const std::string filed = isNewsFileName(file) ? dayOf(file.substr(0, 6)) : "";
        if (!filed.empty()) {
            news[filed] = lineEnd + readData(home, file);
        }
        if (!filed.empty() && filed < day) {
            files.try_emplace(file);
            out << "To be removed: " << file << '\n';
        }
    }
    Characters characters = readCharacters(home);
    const std::string before = bytesOf(characters);
    for (std::size_t i = 1; i < characters.size(); ++i) {
        PlayerRecord& slot = characters[i];
        const std::string last = lastDayOf(slot, news);
        if (!isFree(slot) && last < day && !home.isInside(slot)) {
            out << "To be removed: player " << calledPlayer(slot, i + 1) << ", last played "
                << (last.empty() ? "on an unknown day" : last) << '\n';
            slot = emptySlot();
        }
    }
    std::string moved;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        moved += isFree(characters[i]) ? fillGap(home, characters, i, false) : "";
    }
    if (bytesOf(characters) != before) {
        files[characterFileName] = bytesOf(characters);
    }
    if (files.empty()) {
        out << "There is nothing to remove.\n";
    } else if (!dryRun) {
        change.commit(files, out);
        out << moved;
    }
}

void markOffline(const GameDirectory& home, std::size_t number, std::ostream& out) {
    const Change change(home);
    Characters characters = readCharacters(home);
    if (number != 0) {
        refuseInside(home, playerOf(characters, number), number, false);
    }
    std::string cleared;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        PlayerRecord& slot = characters[i];
        const bool isMeant = number == 0 || number == i + 1;
        if (isMeant && !isFree(slot) && slot.onlineFlag != 0 && !home.isInside(slot)) {
            slot.onlineFlag = 0;
            cleared += "Player " + calledPlayer(slot, i + 1) + " is marked off-line.\n";
        }
    }
    if (!cleared.empty()) {
        change.commit({{characterFileName, bytesOf(characters)}}, out);
    }
    out << (cleared.empty() ? "No mark to clear.\n" : cleared);
}

void removeMessage(const GameDirectory& home, std::size_t number, std::ostream& out) {
    const Change change(home);
    Contents files;
    std::size_t count = 0;
    std::string removed;
    const auto isMeant = [&](const ScrollEntry& entry) {
        const bool isIt = isShown(entry) && ++count == number;
        removed = isIt ? shownText(entry.author) + ": " + shownText(entry.message) : removed;
        return isIt;
    };
    failIf(removeEntries(home, files, isMeant) == 0,
           "the board has no message " + std::to_string(number));
    change.commit(files, out);
    out << "Removed: " << toUtf8(removed) << '\n';
}

void removeScore(const GameDirectory& home, std::size_t number, std::ostream& out) {
    const Change change(home);
    std::vector<ScoreEntry> entries = scoresOf(home);
    failIf(entries.size() < number, "the list has no line " + std::to_string(number));
    const ScoreEntry removed = entries[number - 1];
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(number) - 1);
    Contents files;
    putScores(entries, files);
    change.commit(files, out);
    out << "Removed: " << toUtf8(removed.name) << ", " << removed.score << '\n';
}

} // namespace morvek
