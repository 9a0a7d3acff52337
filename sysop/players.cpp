#include "sysop/players.h"

#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/fields.h"
#include "sysop/world_progress.h"

#include <nlohmann/json.hpp>
#include <variant>

namespace morvek {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t nameWidth = 16;
constexpr std::size_t fieldWidth = 18;

const Field& field(std::string_view name) { return *findField(name); }

void writeRow(const PlayerRecord& slot, std::size_t number, std::ostream& out) {
    const std::string day = dayOf(slot.lastPlayedDay);
    out << rightColumn(std::to_string(number), 3) << "  "
        << column(slot.ownerName.view(), nameWidth) << column(slot.name.view(), nameWidth)
        << column(slot.className.view(), 9) << rightColumn(std::to_string(slot.level), 5)
        << rightColumn(std::to_string(slot.experience), 12)
        << rightColumn(shownValue(field("gold"), slot), 12) << "  "
        << column(slot.onlineFlag != 0 ? "yes" : "-", 8) << (day.empty() ? "-" : day) << '\n';
}

Json jsonOf(const Field& one, const PlayerRecord& slot) {
    const FieldValue value = valueOf(one, slot);
    if (const auto* text = std::get_if<std::string_view>(&value)) {
        return toUtf8(*text);
    }
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        return *number;
    }
    // Money is whole, and is written without a fraction then.
    const double amount = std::get<double>(value);
    return complaintAbout(one, slot) ? Json(amount) : Json(static_cast<std::int64_t>(amount));
}

Json jsonOfDay(const PlayerRecord& slot) {
    const std::string day = dayOf(slot.lastPlayedDay);
    return day.empty() ? Json(nullptr) : Json(day);
}

Json jsonRow(const PlayerRecord& slot, std::size_t number) {
    Json row{{"number", number}};
    for (const char* name : {"ownerName", "name", "className", "level", "experience", "gold"}) {
        row[name] = jsonOf(field(name), slot);
    }
    row["online"] = slot.onlineFlag != 0;
    row["lastDay"] = jsonOfDay(slot);
    return row;
}

Json jsonOfLevels(const Progress& progress) {
    Json levels;
    for (const LevelWords& words : levelWords) {
        levels[nameOf(words.level).key] = {
            {"rooms", words.rooms},
            {"cleared", progress.levels[static_cast<std::size_t>(words.level)]}};
    }
    return levels;
}

Json jsonOf(const PlayerRecord& slot, std::size_t number) {
    Json whole{{"number", number}};
    for (const Field& one : allFields()) {
        whole[std::string(one.name)] = jsonOf(one, slot);
    }
    whole["lastDay"] = jsonOfDay(slot);
    const Progress progress = progressOf(slot);
    whole["world"] = {{"places", locationCount},
                      {"searched", progress.searched},
                      {"cleared", progress.cleared},
                      {"levels", jsonOfLevels(progress)}};
    return whole;
}

// The numbers with runs drawn together: 1-3, 7.
std::string runsOf(const std::vector<int>& numbers) {
    std::string text;
    for (std::size_t i = 0; i < numbers.size();) {
        std::size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) {
            ++last;
        }
        text.append(text.empty() ? "" : ", ").append(std::to_string(numbers[i]));
        if (last > i) {
            text.append(last == i + 1 ? ", " : "-").append(std::to_string(numbers[last]));
        }
        i = last + 1;
    }
    return text;
}

void writeProgress(std::string_view what, const std::vector<int>& numbers, int of,
                   std::string_view things, std::ostream& out) {
    out << "  " << column(what, 30) << numbers.size() << " of " << of << things;
    out << (numbers.empty() ? "" : ": ") << runsOf(numbers) << '\n';
}

void writeWorld(const PlayerRecord& slot, std::ostream& out) {
    const Progress progress = progressOf(slot);
    out << "\nWorld\n";
    writeProgress("searched", progress.searched, locationCount, " places", out);
    writeProgress("cleared", progress.cleared, locationCount, " places", out);
    for (const LevelWords& words : levelWords) {
        writeProgress(nameOf(words.level).title,
                      progress.levels[static_cast<std::size_t>(words.level)], words.rooms,
                      " rooms cleared", out);
    }
}

void writeWhole(const PlayerRecord& slot, std::size_t number, std::ostream& out) {
    out << "Player " << calledPlayer(slot, number) << "\n\n";
    for (const Field& one : allFields()) {
        const std::string day = one.rule == FieldRule::day ? dayOf(slot.lastPlayedDay) : "";
        out << "  " << column(one.name, fieldWidth) << shownValue(one, slot)
            << (day.empty() ? "" : " (" + day + ")") << '\n';
    }
    writeWorld(slot, out);
}

} // namespace

PlayerRecord& playerOf(Characters& characters, std::size_t number) {
    PlayerRecord& slot = characters.at(number - 1);
    if (isFree(slot)) {
        throw Failure("no player " + std::to_string(number));
    }
    return slot;
}

std::string calledPlayer(const PlayerRecord& slot, std::size_t number) {
    return std::to_string(number) + " (" + toUtf8(slot.name.view()) + ", the character of " +
           toUtf8(slot.ownerName.view()) + ")";
}

void listPlayers(const GameDirectory& home, bool asJson, std::ostream& out) {
    Json rows = Json::array();
    std::size_t count = 0;
    const Characters characters = readCharacters(home);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (isFree(characters[i])) {
            continue;
        }
        if (asJson) {
            rows.push_back(jsonRow(characters[i], i + 1));
            continue;
        }
        if (count++ == 0) {
            out << "No.  Owner           Character       Class    Level  Experience        Gold  "
                   "On-line Last day\n";
        }
        writeRow(characters[i], i + 1, out);
    }
    if (asJson) {
        out << rows.dump(2) << '\n';
    } else if (count == 0) {
        out << "Nobody has a character yet.\n";
    }
}

void showPlayer(const GameDirectory& home, std::size_t number, bool asJson, std::ostream& out) {
    Characters characters = readCharacters(home);
    const PlayerRecord& slot = playerOf(characters, number);
    if (asJson) {
        out << jsonOf(slot, number).dump(2) << '\n';
    } else {
        writeWhole(slot, number, out);
    }
}

} // namespace morvek
