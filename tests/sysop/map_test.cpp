#include "sysop/map_layout.h"
#include "sysop/tool.h"

namespace {

std::vector<Room> someRooms(std::initializer_list<RoomNumber> numbers) {
    std::vector<Room> rooms;
    for (const RoomNumber number : numbers) {
        rooms.push_back(roomAt(number));
    }
    return rooms;
}

} // namespace

TEST(Map, RoomsStandWhereTheirExitsPoint) {
    const Cells cells = layOut(someRooms({1, 2, 14, 15, 27}));
    EXPECT_EQ(cells.at(1), (Cell{2, 1}));
    EXPECT_EQ(cells.at(2), (Cell{2, 0}));
    EXPECT_EQ(cells.at(14), (Cell{1, 1}));
    EXPECT_EQ(cells.at(15), (Cell{0, 2}));
    EXPECT_EQ(cells.at(27), (Cell{3, 1}));
    // Rooms that no way joins stand below one another.
    EXPECT_EQ(layOut(someRooms({1, 40, 70})), (Cells{{1, {0, 0}}, {40, {0, 2}}, {70, {0, 4}}}));
}

TEST(Map, ARoomWhoseCellIsTakenStandsFurtherAlong) {
    // Round a corner and back: 4 would stand on 1, and on 2 then.
    const auto leads = [](RoomNumber from, char key, RoomNumber to) {
        Room room;
        room.number = from;
        room.exitCount = 1;
        room.exits[0] = {.key = key, .to = to};
        return room;
    };
    const std::vector<Room> rooms{leads(1, '6', 2), leads(2, '8', 3), leads(3, '1', 4),
                                  leads(4, '1', 1)};
    EXPECT_EQ(layOut(rooms), (Cells{{1, {1, 1}}, {2, {2, 1}}, {3, {2, 0}}, {4, {0, 2}}}));
}

TEST(Map, EveryRoomHasACellOfItsOwnApartFromTheLegend) {
    const WorldChart world = chartWorld();
    std::set<Cell> taken;
    for (const Chart& chart : world.charts) {
        for (const auto& [number, cell] : chart.cells) {
            EXPECT_TRUE(taken.insert(cell).second) << int{number};
            EXPECT_FALSE(cell.column < legendSize.column && cell.row < legendSize.row);
            EXPECT_TRUE(cell.column >= 0 && cell.column < world.size.column);
            EXPECT_TRUE(cell.row >= 0 && cell.row < world.size.row);
        }
    }
    EXPECT_EQ(taken.size(), roomCount);
}

TEST(Map, WaysAreTwoWayOneWayOrOdd) {
    std::vector<std::string> odd;
    std::size_t ends = 0;
    for (const Chart& chart : chartWorld().charts) {
        for (const Way& way : waysOf(chart)) {
            ends += way.isTwoWay ? 2U : 1U;
            EXPECT_FALSE(way.isTwoWay && way.isOdd);
            if (way.isOdd) {
                odd.push_back(shortName(way.from) + way.exit->key + shortName(way.to));
            }
        }
    }
    EXPECT_THAT(odd, testing::ElementsAre("Castle Level 1, 104Castle Level 1, 7",
                                          "Castle Level 2, 181Castle Level 2, 13"));
    std::size_t compassExits = 0;
    for (const Room& room : allRooms()) {
        for (const Exit& exit : room.exitList()) {
            compassExits += exit.passage == Passage::open && exit.key <= '9' ? 1U : 0U;
        }
    }
    EXPECT_EQ(ends, compassExits);
}

TEST_F(Sysop, BothDrawingsHoldEveryRoomAndItsMonsters) {
    const std::string svg = told("map");
    const std::string dot = told("map --dot");
    for (const Room& room : allRooms()) {
        const std::string number = std::to_string(room.number);
        const std::size_t drawn = svg.find("id=\"room-" + number + "\"");
        const std::size_t noted = dot.find("room" + number + " [label=");
        ASSERT_NE(drawn, std::string::npos) << number;
        ASSERT_NE(noted, std::string::npos) << number;
        for (const std::string& name : inhabitantsOf(room)) {
            EXPECT_LT(svg.find(name, drawn), svg.find("</title>", drawn));
            EXPECT_LT(dot.find(name, noted), dot.find('\n', noted));
        }
    }
    EXPECT_THAT(svg, HasSubstr("6 is listed, but leads nowhere"));
    EXPECT_THAT(dot, HasSubstr("room13 -> room160 [constraint=false, label=\"e (refused)\""));
}
