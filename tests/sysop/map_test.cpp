#include "sysop/map_layout.h"
#include "sysop/tool.h"

TEST(Map, ARoomStandsWhereTheExitsPointOrFurtherAlongOrBelow) {
    std::vector<Room> rooms;
    for (const unsigned number : {1U, 2U, 14U, 15U, 27U, 40U}) { // no way joins the last
        rooms.push_back(roomAt(static_cast<RoomNumber>(number)));
    }
    EXPECT_EQ(
        layOut(rooms),
        (Cells{{1, {2, 1}}, {2, {2, 0}}, {14, {1, 1}}, {15, {0, 2}}, {27, {3, 1}}, {40, {2, 4}}}));
    // Round a corner and back: 4 would stand on 1, and on 2 then.
    rooms.assign(4, {});
    for (RoomNumber at = 0; at < 4; ++at) {
        rooms[at].number = static_cast<RoomNumber>(at + 1);
        rooms[at].exitCount = 1;
        rooms[at].exits[0] = {.key = "6811"[at], .to = static_cast<RoomNumber>((at + 1) % 4 + 1)};
    }
    EXPECT_EQ(layOut(rooms), (Cells{{1, {1, 1}}, {2, {2, 1}}, {3, {2, 0}}, {4, {0, 2}}}));
}

TEST(Map, EveryRoomHasACellOfItsOwnApartFromTheLegendAndEveryWayIsDrawn) {
    const WorldChart world = chartWorld();
    std::set<Cell> taken;
    std::vector<std::string> odd;
    std::size_t ends = 0;
    for (const Chart& chart : world.charts) {
        for (const auto& [number, cell] : chart.cells) {
            EXPECT_TRUE(taken.insert(cell).second) << int{number};
            EXPECT_FALSE(cell.column < legendSize.column && cell.row < legendSize.row);
            EXPECT_TRUE(cell.column >= 0 && cell.column < world.size.column);
            EXPECT_TRUE(cell.row >= 0 && cell.row < world.size.row);
        }
        for (const Way& way : waysOf(chart)) {
            ends += way.isTwoWay ? 2U : 1U;
            if (way.isOdd) {
                odd.push_back(shortName(way.from) + way.exit->key + shortName(way.to));
            }
        }
    }
    EXPECT_THAT(odd, ElementsAre("Castle Level 1, 104Castle Level 1, 7",
                                 "Castle Level 2, 181Castle Level 2, 13"));
    for (const Room& room : allRooms()) {
        for (const Exit& exit : room.exitList()) {
            ends -= exit.passage == Passage::open && exit.key <= '9' ? 1U : 0U;
        }
    }
    EXPECT_EQ(ends, 0U) << "as many as there are exits by the compass";
    EXPECT_EQ(taken.size(), roomCount);
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
