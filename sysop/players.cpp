#include "sysop/players.h"

#include "state/roster.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/fields.h"

#include <algorithm>

namespace morvek {
namespace {

using Row = std::vector<std::string>;

// Whether a column of the list holds numbers: the player's, and level, experience and gold.
bool isNumber(std::size_t column) { return column == 0 || (column >= 4 && column <= 6); }

Row rowOf(const GameDirectory& home, const PlayerRecord& slot, std::size_t number) {
    Row row{std::to_string(number)};
    for (const char* name : {"ownerName", "name", "className", "level", "experience", "gold"}) {
        row.push_back(shownValue(recordField(name), slot));
    }
    const std::string day = dayOf(slot.lastPlayedDay);
    row.emplace_back(home.isInside(slot) ? "inside" : slot.onlineFlag != 0 ? "marked" : "-");
    row.push_back(day.empty() ? "-" : day);
    return row;
}

void writeTable(const std::vector<Row>& rows, std::ostream& out) {
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            std::size_t width = 0;
            for (const Row& one : rows) {
                width = std::max(width, lengthOf(one[i]));
            }
            out << (i > 0 ? "  " : "")
                << padded(row[i], i + 1 < row.size() ? width : 0, isNumber(i));
        }
        out << '\n';
    }
}

Json jsonOf(const GameDirectory& home, const PlayerRecord& slot, std::size_t number) {
    Json whole{{"number", number}};
    for (const Field& field : allFields()) {
        if (!field.isFlag()) {
            whole[field.name] = jsonValue(field, slot);
        }
    }
    const std::string day = dayOf(slot.lastPlayedDay);
    whole["online"] = slot.onlineFlag != 0;
    whole["inside"] = home.isInside(slot);
    whole["lastDay"] = day.empty() ? Json(nullptr) : Json(day);
    for (const Places& places : worldPlaces) {
        whole["world"][places.key] = visitedPlaces(places, slot);
    }
    return whole;
}

// The numbers with runs drawn together: 1-3, 7.
std::string runsOf(const std::vector<int>& numbers) {
    std::string text;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::size_t first = i;
        while (i + 1 < numbers.size() && numbers[i + 1] == numbers[i] + 1) {
            ++i;
        }
        text.append(first == 0 ? ": " : ", ").append(std::to_string(numbers[first]));
        text.append(i > first ? "-" + std::to_string(numbers[i]) : "");
    }
    return text;
}

void writeWhole(const GameDirectory& home, const PlayerRecord& slot, std::size_t number,
                std::ostream& out) {
    out << "Player " << calledPlayer(slot, number)
        << (home.isInside(slot) ? ", is in the game now" : "") << "\n\n";
    for (const Field& field : allFields()) {
        const std::string day = field.rule == FieldRule::day ? dayOf(slot.lastPlayedDay) : "";
        if (!field.isFlag()) {
            out << "  " << padded(field.name, 18) << shownValue(field, slot)
                << (day.empty() ? "" : " (" + day + ")") << '\n';
        }
    }
    out << "\nWorld\n";
    for (const Places& places : worldPlaces) {
        const std::vector<int> visited = visitedPlaces(places, slot);
        out << "  " << padded(places.title, 30) << visited.size() << " of " << places.count
            << runsOf(visited) << '\n';
    }
}

} // namespace

PlayerRecord& playerOf(Characters& characters, std::size_t number) {
    PlayerRecord& slot = characters.at(number - 1);
    failIf(isFree(slot), "no player " + std::to_string(number));
    return slot;
}

std::string calledPlayer(const PlayerRecord& slot, std::size_t number) {
    return std::to_string(number) + " (" + toUtf8(slot.name.view()) + ", the character of " +
           toUtf8(slot.ownerName.view()) + ")";
}

void listPlayers(const GameDirectory& home, bool asJson, std::ostream& out) {
    const Characters characters = readCharacters(home);
    std::vector<Row> rows{{"No.", "Owner", "Character", "Class", "Level", "Experience", "Gold",
                           "On-line", "Last day"}};
    Json list = Json::array();
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (!isFree(characters[i])) {
            rows.push_back(rowOf(home, characters[i], i + 1));
            list.push_back(jsonOf(home, characters[i], i + 1));
        }
    }
    if (asJson) {
        out << list.dump(2) << '\n';
        return;
    }
    writeTable(rows, out);
    out << takenPlaces(characters) << " of " << searchedSlots << " places are taken.\n";
}

void showPlayer(const GameDirectory& home, std::size_t number, bool asJson, std::ostream& out) {
    Characters characters = readCharacters(home);
    const PlayerRecord& slot = playerOf(characters, number);
    if (asJson) {
        out << jsonOf(home, slot, number).dump(2) << '\n';
    } else {
        writeWhole(home, slot, number, out);
    }
}

} // namespace morvek
