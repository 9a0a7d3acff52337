#include "sysop/map_layout.h"

#include "combat/bestiary.h"
#include "sysop/world_progress.h"

#include <algorithm>
#include <deque>

namespace morvek {
namespace {

constexpr int spareColumns = 1; // beside the numbered places

Cell operator+(Cell one, Cell other) {
    return {one.column + other.column, one.row + other.row};
}

bool isCompass(char key) {
    return stepOf(key) != Cell{};
}

bool isOpen(const Exit& exit) {
    return exit.passage == Passage::open;
}

// Whether the room that the exit leads to has the same way back.
bool leadsBack(const Exit& exit, RoomNumber from, const Room& to) {
    const Exit* back = to.exitAt(oppositeKey(exit.key));
    return back != nullptr && isOpen(*back) && back->to == from;
}

class Layout {
public:
    explicit Layout(std::span<const Room> charted) : rooms(charted) {}

    Cells run() {
        while (cells.size() < rooms.size()) {
            if (!placeByOneWay()) {
                placeBelow();
            }
            walkTwoWays();
        }
        moveToOrigin();
        return cells;
    }

private:
    std::span<const Room> rooms;
    Cells cells;
    std::set<Cell> taken;
    std::deque<RoomNumber> toWalk;

    [[nodiscard]] bool isPlaced(RoomNumber number) const { return cells.contains(number); }

    // The room of that number; null when it is on another chart.
    [[nodiscard]] const Room* find(RoomNumber number) const {
        const auto found = std::find_if(rooms.begin(), rooms.end(),
                                        [&](const Room& room) { return room.number == number; });
        return found == rooms.end() ? nullptr : &*found;
    }

    [[nodiscard]] bool leadsOn(const Exit& exit) const {
        return isOpen(exit) && isCompass(exit.key) && find(exit.to) != nullptr;
    }

    void place(RoomNumber number, Cell from, Cell step) {
        Cell cell = from + step;
        while (taken.contains(cell)) {
            cell = cell + step;
        }
        cells[number] = cell;
        taken.insert(cell);
        toWalk.push_back(number);
    }

    void walkTwoWays() {
        while (!toWalk.empty()) {
            const RoomNumber from = toWalk.front();
            toWalk.pop_front();
            for (const Exit& exit : find(from)->exitList()) {
                if (leadsOn(exit) && leadsBack(exit, from, *find(exit.to)) && !isPlaced(exit.to)) {
                    place(exit.to, cells.at(from), stepOf(exit.key));
                }
            }
        }
    }

    // Places one room that leads to, or is led to from, one that stands already.
    bool placeByOneWay() {
        for (const Room& room : rooms) {
            for (const Exit& exit : room.exitList()) {
                if (!leadsOn(exit) || isPlaced(room.number) == isPlaced(exit.to)) {
                    continue;
                }
                if (isPlaced(room.number)) {
                    place(exit.to, cells.at(room.number), stepOf(exit.key));
                } else {
                    place(room.number, cells.at(exit.to), stepOf(oppositeKey(exit.key)));
                }
                return true;
            }
        }
        return false;
    }

    void placeBelow() {
        const auto next = std::find_if(rooms.begin(), rooms.end(),
                                       [&](const Room& room) { return !isPlaced(room.number); });
        int row = 0;
        for (const Cell& cell : taken) {
            row = std::max(row, cell.row + 2);
        }
        place(next->number, {0, row - 1}, {0, 1});
    }

    void moveToOrigin() {
        Cell least = *taken.begin();
        for (const Cell& cell : taken) {
            least = {std::min(least.column, cell.column), std::min(least.row, cell.row)};
        }
        for (auto& [number, cell] : cells) {
            cell = {cell.column - least.column, cell.row - least.row};
        }
    }
};

Cell sizeOf(const Cells& cells) {
    Cell size;
    for (const auto& [number, cell] : cells) {
        size = {std::max(size.column, cell.column + 1), std::max(size.row, cell.row + 1)};
    }
    return size;
}

// The grid that the charts share.
class Grid {
public:
    void take(Cell corner, Cell size) {
        for (int column = 0; column < size.column; ++column) {
            for (int row = 0; row < size.row; ++row) {
                taken.insert({corner.column + column, corner.row + row});
            }
        }
    }

    // The first corner, row by row, from which such a block is free between two columns.
    [[nodiscard]] Cell findFree(Cell size, int firstColumn, int endColumn) const {
        for (Cell corner;; ++corner.row) {
            for (corner.column = firstColumn; corner.column + size.column <= endColumn;
                 ++corner.column) {
                if (isFree(corner, size)) {
                    return corner;
                }
            }
        }
    }

private:
    std::set<Cell> taken;

    [[nodiscard]] bool isFree(Cell corner, Cell size) const {
        return std::none_of(taken.begin(), taken.end(), [&](const Cell& cell) {
            return cell.column >= corner.column && cell.column < corner.column + size.column &&
                   cell.row >= corner.row && cell.row < corner.row + size.row;
        });
    }
};

Chart chartOf(std::string title, std::span<const Room> rooms) {
    Chart chart{std::move(title), layOut(rooms), {}, {}};
    chart.size = sizeOf(chart.cells);
    return chart;
}

// Places a chart with one column free to either side, a row below it, and one for its heading.
void placeChart(Chart& chart, Grid& grid, int columns) {
    const Cell found = grid.findFree(chart.size + Cell{2, 2}, -1, columns + 1);
    const Cell corner = found + Cell{1, 1};
    grid.take(found + Cell{1, 0}, chart.size + Cell{0, 1});
    for (auto& [number, cell] : chart.cells) {
        cell = {cell.column - chart.corner.column + corner.column,
                cell.row - chart.corner.row + corner.row};
    }
    chart.corner = corner;
}

// Places the charts in their present order; the map's size.
Cell placeCharts(std::span<Chart> charts, Grid grid, int columns) {
    for (Chart& chart : charts) {
        placeChart(chart, grid, columns);
    }
    Cell size;
    for (const Chart& chart : charts) {
        const Cell reached = sizeOf(chart.cells);
        size = {std::max(size.column, reached.column), std::max(size.row, reached.row)};
    }
    return size;
}

// Places the charts in the order that leaves the map lowest.
void placeChartsLow(std::span<Chart> charts, const Grid& grid, int columns) {
    const auto byTitle = [](const Chart& one, const Chart& other) {
        return one.title < other.title;
    };
    std::sort(charts.begin(), charts.end(), byTitle);
    std::vector<Chart> best(charts.begin(), charts.end());
    int least = placeCharts(best, grid, columns).row;
    while (std::next_permutation(charts.begin(), charts.end(), byTitle)) {
        const int rows = placeCharts(charts, grid, columns).row;
        if (rows < least) {
            least = rows;
            best.assign(charts.begin(), charts.end());
        }
    }
    std::copy(best.begin(), best.end(), charts.begin());
}

std::string sentenceOf(const Exit& exit) {
    std::string key(1, exit.key);
    switch (exit.passage) {
    case Passage::painted:
        return key + " is listed, but leads nowhere";
    case Passage::unfinished:
        return key + " is under development";
    case Passage::sealed:
        return key + " would lead to " + roomAt(exit.to).title.text() + ", but is refused";
    case Passage::open:
        break;
    }
    const Room& to = roomAt(exit.to);
    return key + " leads to " + (to.level ? shortName(exit.to) : std::string(to.title.text()));
}

void addOddities(const Room& room, std::vector<std::string>& lines) {
    const Oddities& odd = room.oddities;
    if (room.group == Group::kept) {
        lines.emplace_back("No group is rolled: the count of the room before stays");
    }
    if (odd.closedToArrivals) {
        lines.emplace_back("Nobody who comes out of Towne begins here");
    }
    if (odd.hiddenKey != HiddenKey::none) {
        lines.emplace_back("A hidden key, c, in the encounter menu");
    }
    if (odd.morveksRoom) {
        lines.emplace_back("Morvek is found here");
    }
}

} // namespace

Cell stepOf(char key) {
    if (key < '1' || key > '9') {
        return {};
    }
    const int index = key - '1';
    return {index % 3 - 1, 1 - index / 3};
}

char oppositeKey(char key) {
    return static_cast<char>('1' + '9' - key);
}

Cells layOut(std::span<const Room> rooms) {
    return Layout(rooms).run();
}

WorldChart chartWorld() {
    const std::span<const Room> all = allRooms();
    WorldChart world;
    world.charts.push_back(chartOf("The world", all.first(locationCount)));
    for (const LevelWords& words : levelWords) {
        world.charts.push_back(
            chartOf(nameOf(words.level).title,
                    all.subspan(roomOf(words.level, 1) - 1U, static_cast<unsigned>(words.rooms))));
    }
    Grid grid;
    for (const auto& [number, cell] : world.charts.front().cells) {
        grid.take(cell, {1, 1});
    }
    const int columns = world.charts.front().size.column + spareColumns;
    world.legend = grid.findFree(legendSize, 0, columns);
    grid.take(world.legend, legendSize);
    placeChartsLow(std::span(world.charts).subspan(1), grid, columns);
    for (const Chart& chart : world.charts) {
        const Cell size = sizeOf(chart.cells);
        world.size = {std::max(world.size.column, size.column), std::max(world.size.row, size.row)};
    }
    return world;
}

std::vector<Way> waysOf(const Chart& chart) {
    std::vector<Way> ways;
    for (const auto& [number, cell] : chart.cells) {
        for (const Exit& exit : roomAt(number).exitList()) {
            if (!isOpen(exit) || !isCompass(exit.key)) {
                continue;
            }
            const Cell to = chart.cells.at(exit.to);
            const Cell step = stepOf(exit.key);
            const int distance =
                std::max(std::abs(to.column - cell.column), std::abs(to.row - cell.row));
            const bool straight =
                to == Cell{cell.column + step.column * distance, cell.row + step.row * distance};
            const bool twoWay = leadsBack(exit, number, roomAt(exit.to));
            if (!twoWay || number < exit.to) {
                ways.push_back({number, exit.to, &exit, twoWay, !straight});
            }
        }
    }
    return ways;
}

std::set<RoomNumber> reachableRooms() {
    std::set<RoomNumber> reached{1};
    std::deque<RoomNumber> toWalk{1};
    while (!toWalk.empty()) {
        for (const Exit& exit : roomAt(toWalk.front()).exitList()) {
            if (isOpen(exit) && reached.insert(exit.to).second) {
                toWalk.push_back(exit.to);
            }
        }
        toWalk.pop_front();
    }
    return reached;
}

std::string shortName(RoomNumber number) {
    const Room& room = roomAt(number);
    return room.level ? nameOf(*room.level).title + (", " + std::to_string(room.position))
                      : std::to_string(number);
}

std::string regionOf(const Room& room) {
    if (room.level) {
        return nameOf(*room.level).title;
    }
    std::string title = room.title.text();
    title.erase(std::min(title.find_first_of("0123456789"), title.size()));
    title.erase(title.find_last_not_of(' ') + 1);
    return title;
}

std::vector<std::string> inhabitantsOf(const Room& room) {
    std::vector<std::string> names;
    for (const auto& kind : {room.inhabitants.kind, room.inhabitants.other}) {
        if (kind) {
            names.emplace_back(monsterName(*kind));
        }
    }
    return names;
}

std::vector<std::string> accountOf(const Room& room) {
    std::vector<std::string> lines{room.level ? shortName(room.number) : room.title.text()};
    const std::vector<std::string> names = inhabitantsOf(room);
    lines.push_back(names.empty() ? "Nobody lives here"
                                  : names[0] + (names.size() > 1 ? " or " + names[1] : ""));
    for (const Exit& exit : room.exitList()) {
        lines.push_back(sentenceOf(exit));
        if (!room.level && exit.trail != Trail::before && isOpen(exit)) {
            lines.back() += exit.trail == Trail::none ? " (leaves no trail)" : " (late trail)";
        }
    }
    addOddities(room, lines);
    return lines;
}

} // namespace morvek
