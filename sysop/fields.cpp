// Where the ranges come from: abilities are 3 to 18 at creation, and strength, dexterity,
// intelligence and hit points gain up to 18 with each of six levels; a garment is sold to who has
// 100000 gold too little for it; nobody who has no hit points left is let into Towne.

#include "sysop/fields.h"

#include "files/score_file.h"
#include "state/game_state.h"
#include "state/roster.h"
#include "state/store_player.h"
#include "state/world_words.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/game_directory.h"
#include "text/cp437.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <set>

namespace morvek {
namespace {

constexpr double mostOfWord = std::numeric_limits<std::int32_t>::max();
constexpr double mostMoney = 9007199254740992.0; // beyond, not every whole amount is a number
constexpr double deepestDebt = -100000;

constexpr std::string_view classNames =
    "Cleric, Fighter, Paladin, Ranger, Rogue, Warlock, Warlord or Wizard";

using enum FieldKind;
using enum FieldRule;

// What the shops sell, by its number.
struct Wares {
    std::string_view name;
    std::string_view number;
    std::array<std::string_view, 7> names;
};

constexpr std::array<Wares, 2> wares{{
    {"weapon", "weaponNumber", {"Fists", "Club", "Dagger", "Javelin", "Mace", "Sickle", "Spear"}},
    {"armour",
     "armourNumber",
     {"T-Shirt", "Cloth", "Feyweave", "Starweave", "Leather", "Feyleather", "Starleather"}},
}};

// clang-format off
const std::vector<Field> recordFields{
    {"version",          text,   offsetof(PlayerRecord, version), 0, 0, versionMark},
    {"bbsName",          text,   offsetof(PlayerRecord, bbsName)},
    {"slotIndex",        number, offsetof(PlayerRecord, slotIndex), 0, slotCount - 1, ownSlot},
    {"lastPlayedDay",    number, offsetof(PlayerRecord, lastPlayedDay), 0, 123199, day},
    {"onlineFlag",       number, offsetof(PlayerRecord, onlineFlag), 0, 1},
    {"ownerName",        text,   offsetof(PlayerRecord, ownerName), 0, 0, owner},
    {"name",             text,   offsetof(PlayerRecord, name), 0, 0, characterName},
    {"className",        text,   offsetof(PlayerRecord, className), 0, 0, oneOfTheClasses},
    {"level",            number, offsetof(PlayerRecord, level), 1, 7},
    {"experience",       number, offsetof(PlayerRecord, experience), 0, mostOfWord},
    {"gold",             money,  offsetof(PlayerRecord, gold), deepestDebt, mostMoney},
    {"bankGold",         money,  offsetof(PlayerRecord, bankGold), 0, mostMoney},
    {"experienceNeeded", number, offsetof(PlayerRecord, experienceNeeded), 1000, 13000},
    {"hitPoints",        number, offsetof(PlayerRecord, hitPoints), 1, 141, upToMaximum},
    {"maxHitPoints",     number, offsetof(PlayerRecord, maxHitPoints), 13, 141},
    {"strength",         number, offsetof(PlayerRecord, strength), 3, 126},
    {"constitution",     number, offsetof(PlayerRecord, constitution), 3, 18},
    {"dexterity",        number, offsetof(PlayerRecord, dexterity), 3, 126},
    {"intelligence",     number, offsetof(PlayerRecord, intelligence), 3, 126},
    {"wisdom",           number, offsetof(PlayerRecord, wisdom), 3, 18},
    {"charisma",         number, offsetof(PlayerRecord, charisma), 3, 18},
    {"weaponNumber",     number, offsetof(PlayerRecord, weaponNumber), 0, 6, ware},
    {"weapon",           text,   offsetof(PlayerRecord, weapon), 0, 0, ware},
    {"armourNumber",     number, offsetof(PlayerRecord, armourNumber), 0, 6, ware},
    {"armour",           text,   offsetof(PlayerRecord, armour), 0, 0, ware},
    {"turnsLeft",        number, offsetof(PlayerRecord, turnsLeft), 0, 30},
    {"turnsPerDay",      number, offsetof(PlayerRecord, turnsPerDay), 30, 30},
    {"reserved",         number, offsetof(PlayerRecord, reserved), 0, 0},
    {"reservedCounter",  number, offsetof(PlayerRecord, reservedCounter), 0, 0},
    {"inUse",            number, offsetof(PlayerRecord, inUse), 1, 1},
    {"currentLocation",  number, offsetof(PlayerRecord, currentLocation), 0, locationCount},
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

// The byte `inUse` is read with the three zeros behind it.
double numberIn(const Field& field, const PlayerRecord& slot) {
    return field.kind == money ? get<double>(field, slot) : get<std::int32_t>(field, slot);
}

bool isWhole(double amount) {
    return std::abs(amount) <= mostMoney && amount == std::floor(amount);
}

std::string shown(double amount) {
    if (isWhole(amount)) {
        return std::to_string(static_cast<std::int64_t>(amount));
    }
    std::array<char, 64> digits{};
    return {digits.data(), std::to_chars(digits.begin(), digits.end(), amount).ptr};
}

std::string rangeOf(const Field& field) {
    const std::string most = shown(field.most);
    return "must be " + (field.least == field.most ? most : shown(field.least) + " to " + most);
}

const Wares& waresOf(const Field& field) {
    return field.name == wares[0].name || field.name == wares[0].number ? wares[0] : wares[1];
}

// A fault that the value may have, and whether it has it.
struct Fault {
    bool isThere;
    std::string text;
};

std::vector<Fault> faultsOfNumber(const Field& field, const PlayerRecord& slot, std::size_t index) {
    const double value = numberIn(field, slot);
    const std::string is = "is " + shown(value);
    const std::string own = std::to_string(index);
    return {{!(value >= field.least && value <= field.most), is + "; " + rangeOf(field)},
            {value != std::floor(value), is + "; must be a whole number"},
            {field.rule == day && value != 0 && dayOf(slot.lastPlayedDay).empty(),
             is + "; must be a date as MMDDYY"},
            {field.rule == upToMaximum && value > slot.maxHitPoints,
             is + ", above maxHitPoints (" + std::to_string(slot.maxHitPoints) + ")"},
            {field.rule == ownSlot && value != 0 && value != static_cast<double>(index),
             is + "; must be 0 or " + own + ", as the slot"}};
}

std::vector<Fault> faultsOfText(const Field& field, const PlayerRecord& slot) {
    const TextSlot held = get<TextSlot>(field, slot);
    const std::string_view view = held.view();
    const std::string is = "is " + inQuotes(view);
    std::vector<Fault> faults{
        {held.length > TextSlot::capacity, "has the length " + std::to_string(held.length) +
                                               "; must be at most 15 (the game reads it as empty)"},
        {holdsControls(view), "contains a control byte (" + inQuotes(view) + " without it)"},
        {field.rule == versionMark && view != slotVersion,
         is + "; must be " + inQuotes(slotVersion)},
        {field.rule != none && view.empty(), "is empty"},
        {field.rule == characterName && view.find('#') != std::string_view::npos,
         is + "; a '#' would break scores.dat"},
        {field.rule == oneOfTheClasses && view != colourOfClass(view).name,
         is + "; must be " + std::string(classNames)}};
    if (field.rule == ware) {
        const Wares& kind = waresOf(field);
        const auto number = get<std::int32_t>(recordField(kind.number), slot);
        const bool isKnown = number >= 0 && number < static_cast<int>(kind.names.size());
        const std::string_view name = kind.names.at(isKnown ? static_cast<std::size_t>(number) : 0);
        faults.push_back({isKnown && view != name,
                          is + "; number " + std::to_string(number) + " is " + inQuotes(name)});
    }
    return faults;
}

void setText(const Field& field, PlayerRecord& slot, std::string_view typed) {
    const std::optional<std::string> value = text::toCp437(typed);
    const std::string subject = field.name + ": \"" + std::string(typed) + "\" ";
    refuseIf(!value, subject + "has a character that is not in CP437");
    refuseIf(value->size() > TextSlot::capacity, subject + "is longer than 15 characters");
    refuseIf(field.rule == owner && (value->starts_with(' ') || value->ends_with(' ')),
             subject + "begins or ends with a blank, which no caller's name does");
    put(field, slot, TextSlot(*value));
}

void setNumber(const Field& field, PlayerRecord& slot, std::string_view typed) {
    const std::optional<std::int64_t> value = wholeNumber(typed);
    refuseIf(!value, field.name + ": \"" + std::string(typed) + "\" is not a whole number");
    const auto amount = static_cast<double>(*value);
    refuseIf(amount < field.least || amount > field.most,
             field.name + " cannot be " + std::to_string(*value) + "; " + rangeOf(field));
    if (field.kind == money) {
        put(field, slot, amount);
    } else {
        put(field, slot, static_cast<std::int32_t>(*value));
    }
}

void setWare(PlayerRecord& slot, const Wares& kind, std::size_t number) {
    put(recordField(kind.number), slot, static_cast<std::int32_t>(number));
    put(recordField(kind.name), slot, TextSlot(kind.names.at(number)));
}

void setWareByName(const Field& field, PlayerRecord& slot, std::string_view typed) {
    const Wares& kind = waresOf(field);
    const auto found =
        std::find_if(kind.names.begin(), kind.names.end(),
                     [&](std::string_view name) { return text::sameLetters(name, typed); });
    refuseIf(found == kind.names.end(),
             field.name + ": \"" + std::string(typed) + "\" is not among the shop's wares");
    setWare(slot, kind, static_cast<std::size_t>(found - kind.names.begin()));
}

std::size_t wordOf(std::size_t kind, int number) {
    return kind == 0   ? searchedWord(number)
           : kind == 1 ? clearedWord(number)
                       : levelClearedWord(levelWords.at(kind - 2).level, number);
}

// Adds the flags: stores a world in which they hold numbers of their own, to see where each goes.
std::vector<Field> findFields() {
    resetGame();
    std::vector<std::string> names{""};
    for (std::size_t kind = 0; kind < worldPlaces.size(); ++kind) {
        for (int i = 1; i <= worldPlaces[kind].count; ++i) {
            game.world.words[wordOf(kind, i)] = static_cast<std::int32_t>(names.size());
            names.push_back(worldPlaces[kind].key + "." + std::to_string(i));
        }
    }
    PlayerRecord slot;
    storePlayer(slot, StoreKind::whole);
    resetGame();
    std::vector<Field> found = recordFields;
    std::set<std::int32_t> met;
    for (std::size_t i = 0; i < slot.worldState.size(); ++i) {
        const std::int32_t id = slot.worldState[i];
        const std::size_t offset = offsetof(PlayerRecord, worldState) + i * sizeof id;
        if (id != 0) {
            found.push_back({names.at(static_cast<std::size_t>(id)), number, offset, 0, 1,
                             met.insert(id).second ? flag : unreadFlag});
        }
    }
    return found;
}

} // namespace

const Field& recordField(std::string_view name) {
    return *std::find_if(recordFields.begin(), recordFields.end(),
                         [&](const Field& field) { return field.name == name; });
}

const std::vector<Places> worldPlaces{
    {"searched", "Places searched", locationCount},
    {"cleared", "Places cleared", locationCount},
    {"castle1", "Castle Level 1", levelWords[0].rooms},
    {"castle2", "Castle Level 2", levelWords[1].rooms},
    {"mortuary1", "Underground Mortuary Level 1", levelWords[2].rooms},
    {"cavern1", "Rattlehead Cavern Level 1", levelWords[3].rooms},
};

const std::vector<Field>& allFields() {
    static const std::vector<Field> fields = findFields();
    return fields;
}

std::vector<int> visitedPlaces(const Places& places, const PlayerRecord& slot) {
    std::vector<int> numbers;
    for (const Field& one : allFields()) {
        if (one.rule == flag && one.name.starts_with(places.key + ".") &&
            numberIn(one, slot) == 1) {
            numbers.push_back(std::stoi(one.name.substr(places.key.size() + 1)));
        }
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

std::string shownValue(const Field& field, const PlayerRecord& slot) {
    return field.kind == text ? toUtf8(get<TextSlot>(field, slot).view())
                              : shown(numberIn(field, slot));
}

Json jsonValue(const Field& field, const PlayerRecord& slot) {
    if (field.kind == text) {
        return shownValue(field, slot);
    }
    const double value = numberIn(field, slot);
    return isWhole(value) ? Json(static_cast<std::int64_t>(value)) : Json(value);
}

void setField(PlayerRecord& slot, std::string_view name, std::string_view typed) {
    bool isFound = false;
    for (const Field& field : allFields()) {
        if (!text::sameLetters(field.name, name)) {
            continue;
        }
        isFound = true;
        if (field.kind == text && field.rule == ware) {
            setWareByName(field, slot, typed);
        } else if (field.kind == text) {
            setText(field, slot, typed);
        } else {
            setNumber(field, slot, typed);
        }
        if (field.kind == number && field.rule == ware) {
            setWare(slot, waresOf(field), static_cast<std::size_t>(numberIn(field, slot)));
        }
    }
    refuseIf(!isFound, std::string(name) + " is not a field of a character (`show` lists them) or "
                                           "a flag of the world, such as searched.12");
}

std::optional<std::string> complaintAbout(const Field& field, const PlayerRecord& slot,
                                          std::size_t index) {
    for (const Fault& fault :
         field.kind == text ? faultsOfText(field, slot) : faultsOfNumber(field, slot, index)) {
        if (fault.isThere) {
            return fault.text;
        }
    }
    return std::nullopt;
}

std::optional<std::int64_t> wholeNumber(std::string_view typed) {
    std::int64_t value = 0;
    const char* end = typed.data() + typed.size();
    const auto [stopped, error] = std::from_chars(typed.data(), end, value);
    return error == std::errc() && stopped == end ? std::optional(value) : std::nullopt;
}

} // namespace morvek
