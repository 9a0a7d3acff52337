// The character file. What play can give is told field by field in fields.cpp; here is what
// concerns a whole record, its flags of the world, or several records.

#include "state/roster.h"
#include "sysop/charset.h"
#include "sysop/check.h"
#include "sysop/fields.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <set>

namespace morvek {
namespace {

using enum Severity;

constexpr std::size_t wholeFile = slotCount * sizeof(PlayerRecord);
constexpr std::size_t manyPlaces = 45;

const std::set<std::string> unreadFields{"version", "bbsName", "reserved", "reservedCounter",
                                         "inUse"};

bool isPadded(const Field& field, const PlayerRecord& slot) {
    const char* const bytes = reinterpret_cast<const char*>(&slot) + field.offset;
    const TextSlot& text = *reinterpret_cast<const TextSlot*>(bytes);
    return text.length > TextSlot::capacity || text.bytes == TextSlot(text.view()).bytes;
}

// What the game never reads harms nobody, and a character may be created without a name.
Severity severityOf(const Field& field, const PlayerRecord& slot) {
    return field.name == "name" && slot.name.length == 0                               ? note
           : field.rule == FieldRule::unreadFlag || unreadFields.count(field.name) > 0 ? warning
                                                                                       : error;
}

void checkTakenSlot(const GameDirectory& home, const PlayerRecord& slot, std::size_t index,
                    const Subject& about) {
    PlayerRecord unstored = slot;
    for (const Field& field : allFields()) {
        const bool isUnread = field.rule == FieldRule::unreadFlag;
        const Subject here = about.at(field.name + (isUnread ? " (its copy)" : ""));
        const auto fault = complaintAbout(field, slot, index);
        here(severityOf(field, slot), fault.has_value(), fault.value_or(""));
        here(warning, field.kind == FieldKind::text && !isPadded(field, slot),
             "is not padded with zeros");
        if (field.isFlag()) {
            std::memset(reinterpret_cast<char*>(&unstored) + field.offset, 0, sizeof(std::int32_t));
        }
    }
    about.at("worldState")(warning, unstored.worldState != PlayerRecord{}.worldState,
                           "is not zero where nothing is stored");
    // Who is killed while the game is full comes to stand here.
    about(note, index >= searchedSlots,
          "is never searched by the game: `remove` another player, "
          "and this one moves to his slot");
    about.at("onlineFlag")(
        note, slot.onlineFlag == 1 && !home.isInside(slot),
        "is 1, but nobody is inside: the call was dropped, or ended at the inn (see "
        "`offline`)");
}

void checkFreeSlot(const PlayerRecord& slot, std::size_t index, const Subject& about) {
    if (!about.at("ownerName")(error, slot.ownerName.length > 0,
                               *complaintAbout(recordField("ownerName"), slot, index))) {
        about(warning, !sameBytes(slot, emptySlot()),
              "has no owner but is not as a free slot; its character is " +
                  inQuotes(slot.name.view()));
    }
}

std::string placeOf(const PlayerRecord& slot, std::size_t index) {
    const std::string place = "player " + std::to_string(index + 1);
    return isFree(slot) ? place : place + " (" + toUtf8(slot.ownerName.view()) + ")";
}

} // namespace

void checkCharacters(const GameDirectory& home, Findings& findings) {
    const std::optional<std::string> content = contentToCheck(home, characterFileName, findings);
    if (!content) {
        return;
    }
    const Subject about(findings, characterFileName);
    const std::string size = "has " + std::to_string(content->size()) + " bytes; must be 75000: ";
    about(error, content->size() < wholeFile,
          size + "it ends in player " + std::to_string(content->size() / sizeof(PlayerRecord) + 1));
    about(warning, content->size() > wholeFile, size + "the rest is never read");
    const Characters characters = charactersIn(*content);
    // How the game finds characters: each caller has one, and there is no gap before the last.
    std::map<std::string_view, std::size_t> firstOf;
    std::size_t gap = characters.size();
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const Subject here = about.at(placeOf(characters[i], i));
        if (isFree(characters[i])) {
            checkFreeSlot(characters[i], i, here);
            gap = std::min(gap, i);
            continue;
        }
        checkTakenSlot(home, characters[i], i, here);
        const auto [first, isNew] = firstOf.try_emplace(characters[i].ownerName.view(), i);
        here.at("ownerName")(error, !isNew,
                             "owns player " + std::to_string(first->second + 1) +
                                 " too, which the game finds first: `remove` this one");
        std::string text = "is behind player ";
        text.append(std::to_string(gap + 1))
            .append(", which is free: the next save makes a second ");
        text.append("character; `remove ")
            .append(std::to_string(gap + 1))
            .append("` closes the gap");
        if (here(error, gap < i, text)) {
            gap = characters.size();
        }
    }
    const std::string taken = std::to_string(takenPlaces(characters));
    about(warning, takenPlaces(characters) >= manyPlaces,
          "has " + taken + " of 49 places taken: who finds none cannot save (see `purge`)");
}

} // namespace morvek
