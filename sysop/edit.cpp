#include "sysop/edit.h"

#include "state/roster.h"
#include "sysop/backup.h"
#include "sysop/charset.h"
#include "sysop/failure.h"
#include "sysop/fields.h"
#include "sysop/players.h"
#include "sysop/world_progress.h"

#include <algorithm>
#include <vector>

namespace morvek {
namespace {

void refuseSecondSlot(const Characters& characters, const PlayerRecord& changed,
                      std::size_t number) {
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (i + 1 != number && characters[i].ownerName.view() == changed.ownerName.view()) {
            throw Misuse(inQuotes(changed.ownerName.view()) + " already owns player " +
                         std::to_string(i + 1));
        }
    }
}

// The value of the field, or of the flag where there is no field.
std::string shownIn(const PlayerRecord& slot, const Field* field, std::size_t flag) {
    return field != nullptr ? shownValue(*field, slot) : std::to_string(slot.worldState[flag]);
}

std::size_t flagOf(const std::string& name) {
    const auto& flags = worldFlags();
    const auto found = std::find_if(flags.begin(), flags.end(), [&](const WorldFlag& flag) {
        return !flag.name.empty() && sameWord(flag.name, name);
    });
    if (found == flags.end()) {
        throw Misuse(name + " is not a field of a character (`show` lists them) or a flag of the "
                            "world, such as searched.12");
    }
    return static_cast<std::size_t>(found - flags.begin());
}

void setFlag(PlayerRecord& slot, const Change& change) {
    const std::optional<std::int64_t> value = wholeNumber(change.value);
    if (value != 0 && value != 1) {
        throw Misuse(change.field + " must be 0 or 1, not \"" + change.value + "\"");
    }
    setWorldFlag(slot, change.field, static_cast<std::int32_t>(*value));
}

// Where the last character of the file stands; the size when there is none behind the index.
std::size_t lastTakenBehind(const Characters& characters, std::size_t index) {
    for (std::size_t i = characters.size() - 1; i > index; --i) {
        if (!isFree(characters[i])) {
            return i;
        }
    }
    return characters.size();
}

// Moves a record to another slot. It knows its own number or, before it was first healed, 0.
void moveRecord(Characters& characters, std::size_t from, std::size_t to) {
    characters[to] = characters[from];
    characters[from] = emptySlot();
    if (characters[to].slotIndex == static_cast<std::int32_t>(from)) {
        characters[to].slotIndex = static_cast<std::int32_t>(to);
    }
}

// The numbers of those that are marked among the player of that number, or among all.
std::vector<std::size_t> markedNumbers(Characters& characters, std::optional<std::size_t> number) {
    std::vector<std::size_t> marked;
    for (std::size_t one = number.value_or(1); one <= number.value_or(characters.size()); ++one) {
        const PlayerRecord& slot = number ? playerOf(characters, one) : characters[one - 1];
        if (!isFree(slot) && slot.onlineFlag != 0) {
            marked.push_back(one);
        }
    }
    return marked;
}

} // namespace

void refuseWhilePlayed(const GameDirectory& home, bool forced) {
    const std::string names = namesOnline(readCharacters(home));
    if (!forced && !names.empty()) {
        throw Failure("marked on-line: " + names +
                      "; a caller's next save would undo the change. If nobody is in the game, " +
                      "clear the mark with `offline`, or use --force");
    }
}

void setPlayer(const GameDirectory& home, const Change& change, std::ostream& out) {
    Characters characters = readCharacters(home);
    PlayerRecord& slot = playerOf(characters, change.number);
    PlayerRecord changed = slot;
    const Field* field = findField(change.field);
    const std::size_t flag = field == nullptr ? flagOf(change.field) : 0;
    if (field != nullptr) {
        setField(*field, changed, change.value);
        refuseSecondSlot(characters, changed, change.number);
    } else {
        setFlag(changed, change);
    }
    const std::string name = field != nullptr ? std::string(field->name) : worldFlags()[flag].name;
    const std::string subject = "Player " + calledPlayer(slot, change.number) + ": " + name;
    const std::string before = shownIn(slot, field, flag);
    if (sameBytes(changed, slot)) {
        out << subject << " is already " << before << ".\n";
        return;
    }
    backUp(home, out);
    slot = changed;
    writeCharacters(home, characters);
    out << subject << ' ' << before << " -> " << shownIn(slot, field, flag) << '\n';
}

void removePlayer(const GameDirectory& home, std::size_t number, std::ostream& out) {
    Characters characters = readCharacters(home);
    const std::size_t index = number - 1;
    const std::size_t last = lastTakenBehind(characters, index);
    const bool isGap = isFree(characters[index]) && last < characters.size();
    const std::string removed = isGap ? std::to_string(number) + " (nobody)"
                                      : calledPlayer(playerOf(characters, number), number);
    backUp(home, out);
    characters[index] = emptySlot();
    if (last < characters.size()) {
        moveRecord(characters, last, index);
    }
    writeCharacters(home, characters);
    out << "Removed player " << removed << ".\n";
    if (last < characters.size()) {
        out << "Player " << calledPlayer(characters[index], number) << " was player " << last + 1
            << ".\n";
    }
}

void markOffline(const GameDirectory& home, std::optional<std::size_t> number, std::ostream& out) {
    Characters characters = readCharacters(home);
    const std::vector<std::size_t> marked = markedNumbers(characters, number);
    if (marked.empty()) {
        out << (number
                    ? "Player " + calledPlayer(playerOf(characters, *number), *number) + " is not"
                    : std::string("Nobody is"))
            << " marked on-line.\n";
        return;
    }
    backUp(home, out);
    for (const std::size_t one : marked) {
        characters[one - 1].onlineFlag = 0;
    }
    writeCharacters(home, characters);
    for (const std::size_t one : marked) {
        out << "Player " << calledPlayer(characters[one - 1], one) << " is marked off-line.\n";
    }
}

} // namespace morvek
