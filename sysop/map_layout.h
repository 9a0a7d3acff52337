// Where each room stands on the map. The world's numbered places are one chart, each level is one
// of its own, and all share one grid of cells. On a chart, rooms stand as their exits' compass
// directions say, found by walking: first along the ways that lead back the way they came, then
// along those that do not. A room whose cell is taken stands further along in the same direction.
#pragma once

#include "world/world_map.h"

#include <array>
#include <map>
#include <set>
#include <span>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace morvek {

// Columns go east, rows go south.
struct Cell {
    int column = 0;
    int row = 0;

    bool operator==(const Cell&) const = default;
    bool operator<(const Cell& other) const {
        return std::tie(column, row) < std::tie(other.column, other.row);
    }
};

// One step in the direction of a compass key, 1 to 9 as on a number pad; none for other keys.
Cell stepOf(char key);

// The key of the opposite direction.
char oppositeKey(char key);

using Cells = std::map<RoomNumber, Cell>;

// Lays out rooms that belong on one chart; the least column and the least row are 0.
Cells layOut(std::span<const Room> rooms);

struct Chart {
    std::string title;
    Cells cells; // on the map's grid
    Cell corner; // the least column and row
    Cell size;   // columns and rows
};

// The charts with their places on the grid: the numbered places first, the levels where there is
// room for them and for a heading above, and a corner without rooms for the legend.
struct WorldChart {
    std::vector<Chart> charts;
    Cell legend;
    Cell size;
};

constexpr Cell legendSize{4, 6};

WorldChart chartWorld();

// How a way between two rooms is drawn.
struct Way {
    RoomNumber from = nowhere;
    RoomNumber to = nowhere;
    const Exit* exit = nullptr;
    bool isTwoWay = false; // the same way leads back
    bool isOdd = false;    // does not lead where its direction points
};

// All ways by compass key that lead somewhere, two-way ones once.
std::vector<Way> waysOf(const Chart& chart);

// The rooms that a new character can walk to.
std::set<RoomNumber> reachableRooms();

// What a room is called on the map, short: "12", or "Castle Level 1, 3".
std::string shortName(RoomNumber number);

// The room's title without its number.
std::string regionOf(const Room& room);

// Who lives in the room; empty when nobody does.
std::vector<std::string> inhabitantsOf(const Room& room);

// A full account of the room in lines: title, inhabitants, each exit, what is odd.
std::vector<std::string> accountOf(const Room& room);

} // namespace morvek
