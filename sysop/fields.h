// The fields of a character record, by the names that the record gives them, and what play can put
// into each.
#pragma once

#include "state/player_record.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace morvek {

enum class FieldKind : std::uint8_t { text, number, byte, money };

// What a field must fulfil beside its length or its range.
enum class FieldRule : std::uint8_t {
    none,
    versionMark,
    filled,
    oneOfTheClasses,
    day,
    upToMaximum, // of the hit points
};

struct Field {
    std::string_view name;
    FieldKind kind;
    std::size_t offset;
    double least = 0; // of a number
    double most = 0;
    FieldRule rule = FieldRule::none;
};

// In the order of the record; the world's flags are not among them.
std::span<const Field> allFields();

// The field of that name, upper and lower case alike; null when there is none.
const Field* findField(std::string_view name);

// A text as the record holds it, a whole number, or an amount of money.
using FieldValue = std::variant<std::string_view, std::int64_t, double>;

FieldValue valueOf(const Field& field, const PlayerRecord& slot);

// The value in UTF-8, as it is typed in to set it.
std::string shownValue(const Field& field, const PlayerRecord& slot);

// Puts the typed value, which is UTF-8, into the record; throws Misuse when it does not fit.
void setField(const Field& field, PlayerRecord& slot, std::string_view typed);

// What is wrong with the field as a sentence without its subject ("is 99; must be 1 to 7");
// nothing when play could have given it.
std::optional<std::string> complaintAbout(const Field& field, const PlayerRecord& slot);

// The day of a stamp as 2026-11-15; empty when the number is no day.
std::string dayOf(std::int64_t stamp);

// Whether both texts are the same but for upper and lower case.
bool sameWord(std::string_view one, std::string_view other);

// A whole number in decimal, a minus sign allowed; nothing when the text is anything else.
std::optional<std::int64_t> wholeNumber(std::string_view typed);

} // namespace morvek
