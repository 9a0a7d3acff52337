#pragma once

#include "state/player_record.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace morvek {

constexpr std::size_t slotCount = 50;

// The last slot is reached by the healed save alone.
constexpr std::size_t searchedSlots = 49;

// One line of the player list: a copy of a character as the file last had it. Its mark is its own.
using PlayerListEntry = PlayerRecord;

// The marks that slots and list entries carry from the start, and that no save rewrites.
inline constexpr std::string_view slotVersion = "0.6.8a";
inline constexpr std::string_view listVersion = "0.6.9a";

constexpr PlayerRecord emptySlot(std::string_view version = slotVersion) {
    PlayerRecord slot;
    slot.version.assign(version);
    return slot;
}

// The character file in memory, as this call last read or wrote it and with what the call has
// changed since, and what the player list made of it. Each takes its 75,000 bytes when somebody
// first asks for it, so a caller who only looks at the title does without.
class Roster {
public:
    using Slots = std::array<PlayerRecord, slotCount>;
    using List = std::array<PlayerListEntry, slotCount>;

    Slots& slots() { return madeOf(slotTable_, slotVersion); }
    Slots& stored() { return madeOf(storedTable_, slotVersion); } // as last read or written
    List& list() { return madeOf(listTable_, listVersion); }

    // The slot of that number; null when there is none.
    PlayerRecord* slotAt(std::int32_t number) {
        return number >= 0 && number < static_cast<std::int32_t>(slotCount)
                   ? &slots()[static_cast<std::size_t>(number)]
                   : nullptr;
    }

    std::int32_t playerCount = 0; // the number of the last player listed, plus one

private:
    static Slots& madeOf(std::unique_ptr<Slots>& table, std::string_view version) {
        if (!table) {
            table = std::make_unique<Slots>();
            table->fill(emptySlot(version));
        }
        return *table;
    }

    std::unique_ptr<Slots> slotTable_;
    std::unique_ptr<Slots> storedTable_;
    std::unique_ptr<List> listTable_;
};

static_assert(sizeof(Roster::Slots) == 75000);

} // namespace morvek
