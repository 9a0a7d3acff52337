#pragma once

#include "state/player_record.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace morvek {

constexpr std::size_t slotCount = 50;

// The last slot is reached by the healed save alone.
constexpr std::size_t searchedSlots = 49;

// One line of the player list: a copy of a character as the file last had it.
struct PlayerListEntry {
    TextSlot version{"0.6.9a"};
    std::int32_t slotIndex = 0;
    std::int32_t lastPlayedDay = 0;
    TextSlot name;
    TextSlot className;
    std::int32_t level = 0;
    std::int32_t experience = 0;
    double gold = 0.0;
    double bankGold = 0.0;
    std::int32_t experienceNeeded = 0;
    std::int32_t hitPoints = 0;
    std::int32_t maxHitPoints = 0;
    std::int32_t strength = 0;
    std::int32_t constitution = 0;
    std::int32_t dexterity = 0;
    std::int32_t intelligence = 0;
    std::int32_t wisdom = 0;
    std::int32_t charisma = 0;
    std::int32_t weaponNumber = 0;
    TextSlot weapon;
    std::int32_t armourNumber = 0;
    TextSlot armour;
    std::int32_t turnsLeft = 0;
    std::int32_t turnsPerDay = 0;
    std::int32_t reservedCounter = 0;
    std::int32_t currentLocation = 0;
};

// An empty slot, with the mark that every slot carries from the start and no save rewrites.
constexpr PlayerRecord emptySlot() {
    PlayerRecord slot;
    slot.version.assign("0.6.8a");
    return slot;
}

constexpr std::array<PlayerRecord, slotCount> emptySlots() {
    std::array<PlayerRecord, slotCount> slots{};
    slots.fill(emptySlot());
    return slots;
}

// The character file in memory, and what the player list made of it. They take their 90,000 bytes
// when somebody first asks for them, so a caller who only looks at the title does without.
class Roster {
public:
    using Slots = std::array<PlayerRecord, slotCount>;
    using List = std::array<PlayerListEntry, slotCount>;

    Slots& slots() { return made().slots; }
    List& list() { return made().list; }

    // The slot of that number; null when there is none.
    PlayerRecord* slotAt(std::int32_t number) {
        return number >= 0 && number < static_cast<std::int32_t>(slotCount)
                   ? &slots()[static_cast<std::size_t>(number)]
                   : nullptr;
    }

    std::int32_t playerCount = 0; // the number of the last player listed, plus one

private:
    struct Tables {
        Slots slots = emptySlots();
        List list{};
    };

    Tables& made() {
        if (!tables) {
            tables = std::make_unique<Tables>();
        }
        return *tables;
    }

    std::unique_ptr<Tables> tables;
};

static_assert(sizeof(Roster::Slots) == 75000);

} // namespace morvek
