// The character file. What play can give is told field by field in fields.cpp; here is what
// concerns a whole record, its flags of the world, or several records.

#include "state/roster.h"
#include "sysop/charset.h"
#include "sysop/check.h"
#include "sysop/fields.h"
#include "sysop/world_progress.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>

namespace morvek {
namespace {

constexpr std::size_t wholeFile = slotCount * sizeof(PlayerRecord);

// The findings about one record.
class RecordFindings {
public:
    RecordFindings(Findings& all, const PlayerRecord& slot, std::size_t index) : findings_(all) {
        place_ = "player " + std::to_string(index + 1);
        if (!isFree(slot)) {
            place_ += " (" + toUtf8(slot.ownerName.view()) + ")";
        }
    }

    void add(Severity severity, std::string_view field, const std::string& text) {
        findings_.push_back({severity, characterFileName, place_, std::string(field), text});
    }

private:
    Findings& findings_;
    std::string place_;
};

void checkLength(std::size_t size, Findings& findings) {
    if (size < wholeFile) {
        findings.push_back({Severity::error, characterFileName, "", "",
                            "has " + std::to_string(size) +
                                " bytes; must be 75000: it ends in player " +
                                std::to_string(size / sizeof(PlayerRecord) + 1)});
    } else if (size > wholeFile) {
        findings.push_back(
            {Severity::warning, characterFileName, "", "",
             "has " + std::to_string(size) + " bytes; must be 75000: the rest is never read"});
    }
}

bool zeroBehind(const TextSlot& text) {
    return text.length > TextSlot::capacity ||
           std::all_of(text.bytes.begin() + text.length, text.bytes.end(),
                       [](char one) { return one == '\0'; });
}

void checkPadding(const Field& field, const PlayerRecord& slot, RecordFindings& findings) {
    TextSlot text;
    std::memcpy(&text, reinterpret_cast<const char*>(&slot) + field.offset, sizeof text);
    if (!zeroBehind(text)) {
        findings.add(Severity::warning, field.name, "is not padded with zeros");
    }
}

// What the game never reads harms nobody, and a character may be created without a name.
Severity severityOf(const Field& field, const PlayerRecord& slot) {
    if (field.name == "name" && slot.name.length == 0) {
        return Severity::note;
    }
    for (const char* unread : {"version", "bbsName", "reserved", "reservedCounter", "inUse"}) {
        if (field.name == unread) {
            return Severity::warning;
        }
    }
    return Severity::error;
}

void checkFields(const PlayerRecord& slot, RecordFindings& findings) {
    for (const Field& field : allFields()) {
        if (const std::optional<std::string> wrong = complaintAbout(field, slot)) {
            findings.add(severityOf(field, slot), field.name, *wrong);
        }
        if (field.kind == FieldKind::text) {
            checkPadding(field, slot, findings);
        }
    }
    if (slot.afterInUse != PlayerRecord{}.afterInUse) {
        findings.add(Severity::warning, "inUse", "is not followed by three zeros");
    }
}

void checkWorld(const PlayerRecord& slot, RecordFindings& findings) {
    bool strayWord = false;
    for (std::size_t i = 0; i < worldFlags().size(); ++i) {
        const WorldFlag& flag = worldFlags()[i];
        const std::int32_t value = slot.worldState[i];
        if (flag.name.empty()) {
            strayWord = strayWord || value != 0;
        } else if (value != 0 && value != 1) {
            findings.add(flag.isCopy ? Severity::warning : Severity::error,
                         flag.isCopy ? flag.name + " (its copy)" : flag.name,
                         "is " + std::to_string(value) + "; must be 0 or 1");
        }
    }
    if (strayWord) {
        findings.add(Severity::warning, "worldState", "is not zero where nothing is stored");
    }
}

void checkFreeSlot(const PlayerRecord& slot, RecordFindings& findings) {
    if (slot.ownerName.length > TextSlot::capacity) {
        findings.add(Severity::error, "ownerName", *complaintAbout(*findField("ownerName"), slot));
    } else if (slot.version.view() != emptySlot().version.view()) {
        const auto wrong = complaintAbout(*findField("version"), slot);
        findings.add(Severity::warning, "version", wrong.value_or("is wrong"));
    } else if (!sameBytes(slot, emptySlot())) {
        findings.add(Severity::warning, "",
                     "has no owner but is not empty; its character is " +
                         inQuotes(slot.name.view()));
    }
}

void checkTakenSlot(const PlayerRecord& slot, std::size_t index, RecordFindings& findings) {
    checkFields(slot, findings);
    checkWorld(slot, findings);
    if (index >= searchedSlots) {
        // Who is killed while the game is full comes to stand here.
        findings.add(Severity::note, "",
                     "is never searched by the game: `remove` another player, and this one "
                     "moves to his slot");
    }
    if (slot.onlineFlag == 1) {
        findings.add(Severity::note, "onlineFlag",
                     "is 1: playing now, or the call was dropped (see `offline`)");
    }
}

// How the game finds characters: each caller has one, and there is no gap before the last.
void checkOwners(const Characters& characters, Findings& findings) {
    std::map<std::string_view, std::size_t> firstOf;
    std::size_t gap = characters.size();
    for (std::size_t i = 0; i < characters.size(); ++i) {
        RecordFindings about(findings, characters[i], i);
        if (isFree(characters[i])) {
            gap = std::min(gap, i);
            continue;
        }
        const auto [first, isNew] = firstOf.try_emplace(characters[i].ownerName.view(), i);
        if (!isNew) {
            about.add(Severity::error, "ownerName",
                      "owns player " + std::to_string(first->second + 1) +
                          " too, which the game finds first: `remove` this one");
        }
        if (gap < i) {
            about.add(Severity::error, "",
                      "is behind player " + std::to_string(gap + 1) +
                          ", which is free: the next save makes a second character; `remove " +
                          std::to_string(gap + 1) + "` closes the gap");
            gap = characters.size();
        }
    }
}

} // namespace

void checkCharacters(const GameDirectory& home, Findings& findings) {
    const std::optional<std::string> content = contentToCheck(home, characterFileName, findings);
    if (!content) {
        return;
    }
    checkLength(content->size(), findings);
    const Characters characters = charactersIn(*content);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        RecordFindings about(findings, characters[i], i);
        if (isFree(characters[i])) {
            checkFreeSlot(characters[i], about);
        } else {
            checkTakenSlot(characters[i], i, about);
        }
    }
    checkOwners(characters, findings);
}

} // namespace morvek
