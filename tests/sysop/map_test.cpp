#include "sysop/map_layout.h"
#include "sysop/tool.h"

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
        const std::string drawn = svg.substr(svg.find("id=\"room-" + number + "\""));
        const std::string noted = dot.substr(dot.find("room" + number + " [label="));
        for (const std::string& name : inhabitantsOf(room)) {
            EXPECT_LT(drawn.find(name), drawn.find("</title>"));
            EXPECT_LT(noted.find(name), noted.find('\n'));
        }
    }
    EXPECT_THAT(svg, HasSubstr("6 is listed, but leads nowhere"));
    EXPECT_THAT(dot, HasSubstr("room13 -> room160 [constraint=false, label=\"e (refused)\""));
}
