// The fields of a character record, by the names that the record gives them, and what play can put
// into each. What a character has done to the world are fields too, flags that are 0 or 1:
// searched.12 and cleared.12 for the numbered places, castle1.3, castle2.3, mortuary1.3 and
// cavern1.3 for the cleared rooms of the levels.
#pragma once

#include "state/player_record.h"
#include "sysop/charset.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvek {

enum class FieldKind : std::uint8_t { text, number, money };

// What a field must fulfil beside its length or its range.
enum class FieldRule : std::uint8_t {
    none,
    versionMark,
    owner, // as a board gives a caller's name
    characterName,
    oneOfTheClasses,
    ware, // the name of what the number says
    ownSlot,
    day,
    upToMaximum, // of the hit points
    flag,        // of the world
    unreadFlag,  // its copy, which the game never reads
};

struct Field {
    std::string name;
    FieldKind kind;
    std::size_t offset;
    double least = 0; // of a number
    double most = 0;
    FieldRule rule = FieldRule::none;

    [[nodiscard]] bool isFlag() const {
        return rule == FieldRule::flag || rule == FieldRule::unreadFlag;
    }
};

// All fields in the order of the record.
const std::vector<Field>& allFields();

// The field of that very name.
const Field& recordField(std::string_view name);

// A kind of place: the beginning of its flags' names, what it is called, and how many there are.
struct Places {
    std::string key;
    std::string title;
    int count;
};

extern const std::vector<Places> worldPlaces;

// The numbers of those places whose flags are set.
std::vector<int> visitedPlaces(const Places& places, const PlayerRecord& slot);

// The value in UTF-8, as it is typed in to set it.
std::string shownValue(const Field& field, const PlayerRecord& slot);

// The value as JSON: a text in UTF-8, a whole number where it is one.
Json jsonValue(const Field& field, const PlayerRecord& slot);

// Puts the typed value, which is UTF-8, into the fields of that name, upper and lower case alike. A
// weapon's or an armour's number is set with its name and its name with the number. Throws Misuse
// when there is no such field or the value is not of its kind.
void setField(PlayerRecord& slot, std::string_view name, std::string_view typed);

// What is wrong with the field in the slot of that number, as a sentence without its subject ("is
// 99; must be 1 to 7"); nothing when play could have given it.
std::optional<std::string> complaintAbout(const Field& field, const PlayerRecord& slot,
                                          std::size_t index);

// A whole number in decimal, a minus sign allowed; nothing when the text is anything else.
std::optional<std::int64_t> wholeNumber(std::string_view typed);

} // namespace morvek
