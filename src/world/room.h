// One room of the world: all that is particular to it. What it is called, which keys its movement
// menu takes, where they lead, who lives there, and what is odd about it.
#pragma once

#include "combat/bestiary.h"
#include "state/row_text.h"
#include "state/world_words.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace morvek {

// A row of the world: a location's own number, then the rooms of the levels in their order.
using RoomNumber = std::uint8_t;

constexpr RoomNumber nowhere = 0;
constexpr std::size_t roomCount = 172;

// The number of a level's room; position is 1 to the level's rooms.
constexpr RoomNumber roomOf(Level level, int position) {
    int number = locationCount + position;
    for (const LevelWords& words : levelWords) {
        number += words.level < level ? words.rooms : 0;
    }
    return static_cast<RoomNumber>(number);
}

static_assert(roomOf(Level::cavern1, 13) == roomCount);

// What comes of an exit's key.
enum class Passage : std::uint8_t {
    open,       // leads to a room
    painted,    // listed and accepted, but leads nowhere
    sealed,     // leads to a room, but is not listed, and its key is refused
    unfinished, // is under development, says so, and shows the room again
};

// When an exit notes the location that the player leaves, to which he comes back after a flight.
enum class Trail : std::uint8_t {
    before, // before he enters the next room
    late,   // when the next room's visit is over: the location he entered last
    none,
};

// An exit's line among the directions.
enum class Sign : std::uint8_t {
    none,
    north,
    south,
    west,
    east,
    northWest,
    northEast,
    southWest,
    southEast,
    enterCastle,
    leaveCastle,
    downToLevel2,
    upToLevel1,
    enterMortuary,
    leaveMortuary,
    exitToPathway,
    exitCavern,
};

struct Exit {
    char key = 0;
    RoomNumber to = nowhere;
    Sign sign = Sign::none;
    Trail trail = Trail::before;
    Passage passage = Passage::open;
};

// Who lives in a room: nobody, one kind, or one of two by the roll of a die for each monster.
struct Inhabitants {
    std::optional<MonsterKind> kind = std::nullopt;
    std::optional<MonsterKind> other = std::nullopt;
};

// Whether a visit that begins without a monster rolls the size of a group, or finds the count
// that the room before left.
enum class Group : std::uint8_t { rolled, kept };

// A "c" in the encounter menu, which no line offers.
enum class HiddenKey : std::uint8_t {
    none,
    status, // always taken: another "y"
    giveUp, // taken by a visit's first menu while the group is active: gives the group up,
            // redraws the room, and then is another "y"
};

struct Oddities {
    HiddenKey hiddenKey = HiddenKey::none;
    bool announcedFlight = false;  // says that the player returns, and will have him back here
    bool strayColour = false;      // a misspelt colour behind the monster's name
    bool morveksRoom = false;      // where Morvek is found
    bool closedToArrivals = false; // nobody who comes out of Towne begins here
};

struct Room {
    RoomNumber number = nowhere;
    std::optional<Level> level = std::nullopt; // none: a numbered location
    std::uint8_t position = 0;                 // in its level
    RowText<32> title{""};
    RowText<12> keys{""}; // hot keys of the movement menu
    std::array<Exit, 4> exits{};
    std::uint8_t exitCount = 0;
    Inhabitants inhabitants;
    Group group = Group::rolled;
    Oddities oddities;

    // In the order of the directions.
    [[nodiscard]] constexpr std::span<const Exit> exitList() const {
        return std::span(exits).first(exitCount);
    }

    [[nodiscard]] constexpr bool hasKey(char key) const {
        return std::string_view(keys.text()).find(key) != std::string_view::npos;
    }

    // The exit of that key, or null.
    [[nodiscard]] constexpr const Exit* exitAt(char key) const {
        const auto list = exitList();
        const auto found = std::find_if(list.begin(), list.end(),
                                        [&](const Exit& exit) { return exit.key == key; });
        return found == list.end() ? nullptr : &*found;
    }
};

} // namespace morvek
