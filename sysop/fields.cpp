// Where the ranges come from: abilities are 3 to 18 at creation, and strength, dexterity,
// intelligence and hit points gain up to 18 with each of six levels; a garment is sold to who has
// 100000 gold too little for it; nobody who has no hit points left is let into Towne.

#include "sysop/fields.h"

#include "files/score_file.h"
#include "state/roster.h"
#include "state/world_words.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/game_directory.h"
#include "text/cp437.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

namespace morvek {
namespace {

constexpr double mostOfWord = std::numeric_limits<std::int32_t>::max();
constexpr double mostMoney = 9007199254740992.0; // beyond, not every whole amount is a number
constexpr double deepestDebt = -100000;

constexpr std::string_view classNames =
    "Cleric, Fighter, Paladin, Ranger, Rogue, Warlock, Warlord or Wizard";

using enum FieldKind;
using enum FieldRule;

// clang-format off
constexpr std::array fields{
    Field{"version",          text,   offsetof(PlayerRecord, version), 0, 0, versionMark},
    Field{"bbsName",          text,   offsetof(PlayerRecord, bbsName)},
    Field{"slotIndex",        number, offsetof(PlayerRecord, slotIndex), 0, slotCount - 1},
    Field{"lastPlayedDay",    number, offsetof(PlayerRecord, lastPlayedDay), 0, 123199, day},
    Field{"onlineFlag",       number, offsetof(PlayerRecord, onlineFlag), 0, 1},
    Field{"ownerName",        text,   offsetof(PlayerRecord, ownerName), 0, 0, filled},
    Field{"name",             text,   offsetof(PlayerRecord, name), 0, 0, filled},
    Field{"className",        text,   offsetof(PlayerRecord, className), 0, 0, oneOfTheClasses},
    Field{"level",            number, offsetof(PlayerRecord, level), 1, 7},
    Field{"experience",       number, offsetof(PlayerRecord, experience), 0, mostOfWord},
    Field{"gold",             money,  offsetof(PlayerRecord, gold), deepestDebt, mostMoney},
    Field{"bankGold",         money,  offsetof(PlayerRecord, bankGold), 0, mostMoney},
    Field{"experienceNeeded", number, offsetof(PlayerRecord, experienceNeeded), 1000, 13000},
    Field{"hitPoints",        number, offsetof(PlayerRecord, hitPoints), 1, 141, upToMaximum},
    Field{"maxHitPoints",     number, offsetof(PlayerRecord, maxHitPoints), 13, 141},
    Field{"strength",         number, offsetof(PlayerRecord, strength), 3, 126},
    Field{"constitution",     number, offsetof(PlayerRecord, constitution), 3, 18},
    Field{"dexterity",        number, offsetof(PlayerRecord, dexterity), 3, 126},
    Field{"intelligence",     number, offsetof(PlayerRecord, intelligence), 3, 126},
    Field{"wisdom",           number, offsetof(PlayerRecord, wisdom), 3, 18},
    Field{"charisma",         number, offsetof(PlayerRecord, charisma), 3, 18},
    Field{"weaponNumber",     number, offsetof(PlayerRecord, weaponNumber), 0, 6},
    Field{"weapon",           text,   offsetof(PlayerRecord, weapon), 0, 0, filled},
    Field{"armourNumber",     number, offsetof(PlayerRecord, armourNumber), 0, 6},
    Field{"armour",           text,   offsetof(PlayerRecord, armour), 0, 0, filled},
    Field{"turnsLeft",        number, offsetof(PlayerRecord, turnsLeft), 0, 30},
    Field{"turnsPerDay",      number, offsetof(PlayerRecord, turnsPerDay), 30, 30},
    Field{"reserved",         number, offsetof(PlayerRecord, reserved), 0, 0},
    Field{"reservedCounter",  number, offsetof(PlayerRecord, reservedCounter), 0, 0},
    Field{"inUse",            byte,   offsetof(PlayerRecord, inUse), 1, 1},
    Field{"currentLocation",  number, offsetof(PlayerRecord, currentLocation), 0, locationCount},
};
// clang-format on

template <class Value>
Value get(const Field& field, const PlayerRecord& slot) {
    Value value;
    std::memcpy(&value, reinterpret_cast<const char*>(&slot) + field.offset, sizeof value);
    return value;
}

template <class Value>
void put(const Field& field, PlayerRecord& slot, const Value& value) {
    std::memcpy(reinterpret_cast<char*>(&slot) + field.offset, &value, sizeof value);
}

const TextSlot& textAt(const Field& field, const PlayerRecord& slot) {
    return *reinterpret_cast<const TextSlot*>(reinterpret_cast<const char*>(&slot) + field.offset);
}

std::string shown(double amount) {
    std::array<char, 400> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.15g", amount);
    return buffer.data();
}

std::string rangeOf(const Field& field) {
    if (field.least == field.most) {
        return "must be " + shown(field.least);
    }
    return "must be " + shown(field.least) + " to " + shown(field.most);
}

std::optional<std::string> complaintAboutNumber(const Field& field, const PlayerRecord& slot) {
    const FieldValue held = valueOf(field, slot);
    const double value = field.kind == money ? std::get<double>(held)
                                             : static_cast<double>(std::get<std::int64_t>(held));
    if (!(value >= field.least && value <= field.most)) {
        return "is " + shownValue(field, slot) + "; " + rangeOf(field);
    }
    if (field.kind == money && value != std::floor(value)) {
        return "is " + shownValue(field, slot) + "; must be a whole number";
    }
    if (field.rule == day && value != 0 && dayOf(static_cast<std::int64_t>(value)).empty()) {
        return "is " + shownValue(field, slot) + "; must be a date as MMDDYY";
    }
    if (field.rule == upToMaximum && value > slot.maxHitPoints) {
        return "is " + shownValue(field, slot) + ", above maxHitPoints (" +
               std::to_string(slot.maxHitPoints) + ")";
    }
    return std::nullopt;
}

std::optional<std::string> complaintAboutText(const Field& field, const PlayerRecord& slot) {
    const TextSlot& held = textAt(field, slot);
    const std::string_view view = held.view();
    if (held.length > TextSlot::capacity) {
        return "has the length " + std::to_string(held.length) +
               "; must be at most 15 (the game reads it as empty)";
    }
    if (std::any_of(view.begin(), view.end(), isControl)) {
        return "contains a control byte (" + inQuotes(view) + " without it)";
    }
    if (field.rule == versionMark && view != emptySlot().version.view()) {
        return "is " + inQuotes(view) + "; must be " + inQuotes(emptySlot().version.view());
    }
    if (field.rule == filled && view.empty()) {
        return "is empty";
    }
    if (field.rule == oneOfTheClasses && (view.empty() || view != colourOfClass(view).name)) {
        return "is " + inQuotes(view) + "; must be " + std::string(classNames);
    }
    return std::nullopt;
}

void setText(const Field& field, PlayerRecord& slot, std::string_view typed) {
    const std::optional<std::string> value = text::toCp437(typed);
    if (!value) {
        throw Misuse(std::string(field.name) + ": \"" + std::string(typed) +
                     "\" has a character that is not in CP437");
    }
    if (value->size() > TextSlot::capacity) {
        throw Misuse(std::string(field.name) + ": \"" + std::string(typed) +
                     "\" is longer than 15 characters");
    }
    put(field, slot, TextSlot(*value));
}

void setNumber(const Field& field, PlayerRecord& slot, std::string_view typed) {
    const std::optional<std::int64_t> value = wholeNumber(typed);
    if (!value) {
        throw Misuse(std::string(field.name) + ": \"" + std::string(typed) +
                     "\" is not a whole number");
    }
    const auto amount = static_cast<double>(*value);
    if (amount < field.least || amount > field.most) {
        throw Misuse(std::string(field.name) + " cannot be " + std::to_string(*value) + "; " +
                     rangeOf(field));
    }
    if (field.kind == money) {
        put(field, slot, amount);
    } else if (field.kind == byte) {
        put(field, slot, static_cast<std::uint8_t>(*value));
    } else {
        put(field, slot, static_cast<std::int32_t>(*value));
    }
}

char lower(char one) { return one >= 'A' && one <= 'Z' ? static_cast<char>(one - 'A' + 'a') : one; }

} // namespace

std::span<const Field> allFields() { return fields; }

bool sameWord(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char left, char right) { return lower(left) == lower(right); });
}

const Field* findField(std::string_view name) {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [&](const Field& field) { return sameWord(field.name, name); });
    return found == fields.end() ? nullptr : &*found;
}

FieldValue valueOf(const Field& field, const PlayerRecord& slot) {
    switch (field.kind) {
    case text:
        return textAt(field, slot).view();
    case money:
        return get<double>(field, slot);
    case byte:
        return std::int64_t{get<std::uint8_t>(field, slot)};
    case number:
        break;
    }
    return std::int64_t{get<std::int32_t>(field, slot)};
}

std::string shownValue(const Field& field, const PlayerRecord& slot) {
    const FieldValue value = valueOf(field, slot);
    if (const auto* words = std::get_if<std::string_view>(&value)) {
        return toUtf8(*words);
    }
    if (const auto* amount = std::get_if<double>(&value)) {
        return shown(*amount);
    }
    return std::to_string(std::get<std::int64_t>(value));
}

void setField(const Field& field, PlayerRecord& slot, std::string_view typed) {
    if (field.kind == text) {
        setText(field, slot, typed);
    } else {
        setNumber(field, slot, typed);
    }
    if (const std::optional<std::string> wrong = complaintAbout(field, slot)) {
        throw Misuse(std::string(field.name) + " not changed: it " + *wrong);
    }
}

std::optional<std::string> complaintAbout(const Field& field, const PlayerRecord& slot) {
    return field.kind == text ? complaintAboutText(field, slot) : complaintAboutNumber(field, slot);
}

std::string dayOf(std::int64_t stamp) {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%06lld", static_cast<long long>(stamp));
    const std::string day = sortableDay(digits.data());
    return day.empty() ? day
                       : "20" + day.substr(0, 2) + "-" + day.substr(2, 2) + "-" + day.substr(4);
}

std::optional<std::int64_t> wholeNumber(std::string_view typed) {
    std::int64_t value = 0;
    const char* end = typed.data() + typed.size();
    const auto [stopped, error] = std::from_chars(typed.data(), end, value);
    return error == std::errc() && stopped == end ? std::optional(value) : std::nullopt;
}

} // namespace morvek
