// The picture. From the ground up: the paper, the levels' frames, broad bands where neighbours
// share a region, the ways, the rooms, and what is written over them.

#include "sysop/charset.h"
#include "sysop/map_layout.h"
#include "sysop/map_picture.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace morvek {
namespace {

// All lengths in pixels.
constexpr int columnWidth = 158;
constexpr int rowHeight = 90;
constexpr int roomWidth = 132;
constexpr int roomHeight = 54;
constexpr int margin = 56;
constexpr int stubLength = 17;
constexpr int stubShift = 9; // beside the middle, so that it is no way
constexpr int reach = 55;    // how far an odd way first follows its direction

struct Look {
    std::string_view region; // the beginning of its name
    const char* legend;
    const char* fill;
    const char* ink;
};

// The first row that fits.
constexpr std::array<Look, 9> looks{{
    {"Forest", "Forest", "#cfe0b4", "#41602a"},
    {"Rattlehead C", "Rattlehead Cavern", "#dcc7a6", "#6d4a20"},
    {"Rattlehead P", "Rattlehead Pathway", "#f2deb0", "#7a5a1c"},
    {"Graveyard", "Graveyard", "#d3d3cd", "#4d4f4c"},
    {"Underground", "Underground Mortuary", "#d8cbe2", "#573a73"},
    {"Wilderness", "Wilderness", "#e6e3a8", "#66631a"},
    {"Cedar", "Cedar river country", "#bfdcea", "#1f5877"},
    {"Castle", "Castle", "#e9c8bd", "#83331f"},
    {"", "", "#eeeeee", "#333333"},
}};

constexpr const char* style = R"(
    text { font-family: 'DejaVu Sans', Verdana, Helvetica, sans-serif; fill: #3b2f23; }
    .title { font: 46px Georgia, 'DejaVu Serif', serif; fill: #7d1f14; }
    .heading { font: italic 25px Georgia, 'DejaVu Serif', serif; fill: #7d1f14; }
    .legend { font-size: 14px; }
    .frame { fill: #f9f3e3; stroke: #b9a27c; stroke-width: 1.5; }
    .room rect { stroke-width: 1.6; }
    .room.shut rect { stroke-dasharray: 5 4; }
    .number { font-size: 19px; font-weight: bold; }
    .region { font-size: 9.2px; }
    .monster { font-size: 9.8px; }
    .band { stroke-width: 24; stroke-linecap: round; opacity: .62; }
    .way { stroke: #5b4a36; stroke-width: 2.4; fill: none; }
    .oneway { stroke: #d0690f; stroke-width: 2.4; fill: none; marker-end: url(#oneway); }
    .odd { stroke: #c01f1f; stroke-width: 2.2; fill: none; stroke-dasharray: 7 4;
           marker-end: url(#odd); }
    .stub { stroke: #c01f1f; stroke-width: 2.2; fill: none; }
    .trail { stroke: #5b4a36; stroke-width: 1.8; }
    .key { font-size: 11px; font-weight: bold; text-anchor: middle; }
    .portal rect { fill: #fffdf6; stroke: #8c7656; }
    .portal.refused rect { stroke: #c01f1f; stroke-dasharray: 4 3; }
    .portal text { font-size: 9.6px; }
    .mark { fill: #c01f1f; }
    .star { fill: #e0a516; stroke: #83331f; stroke-width: 1; }
)";

struct Point {
    double x = 0;
    double y = 0;
};

Point middleOf(Cell cell) {
    return {margin + cell.column * columnWidth + columnWidth / 2.0,
            margin + cell.row * rowHeight + rowHeight / 2.0};
}

// Where the edge of a room is met in a direction.
Point edgeOf(Cell cell, Cell step) {
    const Point middle = middleOf(cell);
    return {middle.x + step.column * roomWidth / 2.0, middle.y + step.row * roomHeight / 2.0};
}

Cell reverse(Cell step) {
    return {-step.column, -step.row};
}

const Look& lookOf(const Room& room) {
    const std::string region = regionOf(room);
    return *std::find_if(looks.begin(), looks.end(),
                         [&](const Look& look) { return region.starts_with(look.region); });
}

// The name without its first word when that word is much of it and the whole is longer than that.
std::string shortened(std::string name, std::size_t longest) {
    for (const std::string_view dropped : {"Underground ", "Rattlehead "}) {
        if (name.size() > longest && name.starts_with(dropped)) {
            name.erase(0, dropped.size());
        }
    }
    return name;
}

std::ostream& operator<<(std::ostream& out, Point point) {
    return out << point.x << ',' << point.y;
}

class Picture {
public:
    explicit Picture(std::ostream& stream) : out(stream), world(chartWorld()) {}

    void draw() {
        begin();
        for (const Chart& chart : world.charts) {
            drawFrame(chart);
        }
        for (const Chart& chart : world.charts) {
            const std::vector<Way> ways = waysOf(chart);
            drawBands(chart, ways);
            for (const Way& way : ways) {
                drawWay(chart, way);
            }
            for (const auto& [number, cell] : chart.cells) {
                drawStubs(roomAt(number), cell);
            }
            for (const auto& [number, cell] : chart.cells) {
                drawRoom(roomAt(number), cell);
            }
            for (const auto& [number, cell] : chart.cells) {
                drawOver(roomAt(number), cell);
            }
            for (const Way& way : ways) {
                if (way.isOdd) {
                    drawOddWay(way, chart.cells.at(way.from), chart.cells.at(way.to));
                }
            }
        }
        drawLegend();
        out << "</svg>\n";
    }

private:
    std::ostream& out;
    WorldChart world;
    std::set<RoomNumber> reachable = reachableRooms();

    void begin() {
        const int width = 2 * margin + world.size.column * columnWidth;
        const int height = 2 * margin + world.size.row * rowHeight;
        out << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " << width << ' ' << height
            << "\" width=\"" << width << "\" height=\"" << height << "\">\n"
            << "<title>The world of Morvek</title>\n<style>" << style << "</style>\n<defs>\n";
        defineArrow("oneway", "#d0690f");
        defineArrow("odd", "#c01f1f");
        out << "</defs>\n<rect width=\"100%\" height=\"100%\" fill=\"#f4ead2\"/>\n"
            << "<rect x=\"12\" y=\"12\" width=\"" << width - 24 << "\" height=\"" << height - 24
            << "\" fill=\"none\" stroke=\"#b9a27c\" stroke-width=\"3\"/>\n";
    }

    void defineArrow(const char* name, const char* colour) {
        out << "<marker id=\"" << name << "\" viewBox=\"0 0 10 10\" refX=\"9\" refY=\"5\" "
            << "markerWidth=\"5\" markerHeight=\"5\" orient=\"auto\">"
            << "<path d=\"M0,0 L10,5 L0,10 z\" fill=\"" << colour << "\"/></marker>\n";
    }

    void text(Point at, const char* kind, const std::string& words) {
        out << "<text class=\"" << kind << "\" x=\"" << at.x << "\" y=\"" << at.y << "\">"
            << escaped(words) << "</text>\n";
    }

    void line(const char* kind, Point from, Point to) {
        out << "<path class=\"" << kind << "\" d=\"M" << from << " L" << to << "\"/>\n";
    }

    void drawFrame(const Chart& chart) {
        if (&chart == &world.charts.front()) {
            return;
        }
        const double x = margin + (chart.corner.column - 0.1) * columnWidth;
        const double y = margin + (chart.corner.row - 0.72) * rowHeight;
        out << "<rect class=\"frame\" rx=\"14\" x=\"" << x << "\" y=\"" << y << "\" width=\""
            << (chart.size.column + 0.2) * columnWidth << "\" height=\""
            << (chart.size.row + 0.92) * rowHeight << "\"/>\n";
        text({x + 22, y + 42}, "heading", chart.title);
    }

    void drawBands(const Chart& chart, const std::vector<Way>& ways) {
        for (const Way& way : ways) {
            const Look& look = lookOf(roomAt(way.from));
            if (way.isTwoWay && &look == &lookOf(roomAt(way.to))) {
                const Cell step = stepOf(way.exit->key);
                out << "<path class=\"band\" stroke=\"" << look.fill << "\" d=\"M"
                    << edgeOf(chart.cells.at(way.from), step) << " L"
                    << edgeOf(chart.cells.at(way.to), reverse(step)) << "\"/>\n";
            }
        }
    }

    void drawWay(const Chart& chart, const Way& way) {
        const Cell from = chart.cells.at(way.from);
        const Cell to = chart.cells.at(way.to);
        const Cell step = stepOf(way.exit->key);
        if (!way.isOdd) {
            line(way.isTwoWay ? "way" : "oneway", edgeOf(from, step), edgeOf(to, reverse(step)));
        }
        markTrail(from, way.exit, roomAt(way.from));
        if (way.isTwoWay) {
            markTrail(to, roomAt(way.to).exitAt(oppositeKey(way.exit->key)), roomAt(way.to));
        }
    }

    // Sets out as its direction says, then bends to where it leads, over what is in between.
    void drawOddWay(const Way& way, Cell from, Cell to) {
        const Cell step = stepOf(way.exit->key);
        const Point start = edgeOf(from, step);
        const Cell arrival{from.column > to.column ? 1 : -1, from.row < to.row ? -1 : 1};
        const Point end = edgeOf(to, arrival);
        out << "<path class=\"odd\" d=\"M" << start << " C"
            << Point{start.x + step.column * reach, start.y + step.row * reach} << ' '
            << Point{end.x + arrival.column * reach / 2.0, end.y + arrival.row * reach / 2.0} << ' '
            << end << "\"><title>" << way.exit->key << " in " << shortName(way.from) << " leads to "
            << shortName(way.to) << "</title></path>\n";
        text({start.x + step.column * 10, start.y + step.row * 12 - 4}, "key mark",
             std::string(1, way.exit->key));
    }

    // A ring where a way leaves no trail, a dot where it leaves it late.
    void markTrail(Cell cell, const Exit* exit, const Room& room) {
        if (room.level || exit->trail == Trail::before) {
            return;
        }
        const Cell step = stepOf(exit->key);
        const Point edge = edgeOf(cell, step);
        out << "<circle class=\"trail\" r=\"4.5\" cx=\"" << edge.x + step.column * 7 << "\" cy=\""
            << edge.y + step.row * 7 << "\" fill=\""
            << (exit->trail == Trail::none ? "#f4ead2" : "#5b4a36") << "\"/>\n";
    }

    void drawCross(Point at) {
        out << "<path class=\"stub\" d=\"M" << Point{at.x - 5, at.y - 5} << " l10,10 m0,-10 l-10,10"
            << "\"/>\n";
    }

    // Exits by compass key that lead nowhere or are refused.
    void drawStubs(const Room& room, Cell cell) {
        for (const Exit& exit : room.exitList()) {
            const Cell step = stepOf(exit.key);
            if (exit.passage == Passage::open || step == Cell{}) {
                continue;
            }
            Point from = edgeOf(cell, step);
            from = {from.x + step.row * stubShift, from.y + step.column * stubShift};
            const Point to{from.x + step.column * stubLength, from.y + step.row * stubLength};
            line("stub", from, to);
            drawCross(to);
        }
    }

    void drawRoom(const Room& room, Cell cell) {
        const Look& look = lookOf(room);
        const Point middle = middleOf(cell);
        const double left = middle.x - roomWidth / 2.0;
        const double top = middle.y - roomHeight / 2.0;
        out << "<g class=\"room" << (reachable.contains(room.number) ? "" : " shut")
            << "\" id=\"room-" << int{room.number} << "\"><title>";
        const char* between = "";
        for (const std::string& words : accountOf(room)) {
            out << between << escaped(words);
            between = "\n";
        }
        out << "</title>\n<rect rx=\"8\" x=\"" << left << "\" y=\"" << top << "\" width=\""
            << roomWidth << "\" height=\"" << roomHeight << "\" fill=\"" << look.fill
            << "\" stroke=\"" << look.ink << "\"/>\n<text class=\"number\" x=\"" << left + 7
            << "\" y=\"" << top + (room.level ? 34 : 38) << "\" style=\"fill:" << look.ink << "\">"
            << (room.level ? room.position : int{room.number}) << "</text>\n";
        if (!room.level) {
            text({left + 7, top + 14}, "region", shortened(regionOf(room), 22));
        }
        drawInhabitants(room, {left + 38, top + (room.level ? 24.0 : 30.0)});
        out << "</g>\n";
    }

    void drawInhabitants(const Room& room, Point at) {
        std::vector<std::string> lines = inhabitantsOf(room);
        if (lines.size() == 1) {
            const std::size_t blank = std::min(lines[0].find(' '), lines[0].size());
            lines = {lines[0].substr(0, blank),
                     lines[0].substr(std::min(blank + 1, lines[0].size()))};
        }
        for (const std::string& words : lines) {
            text(at, "monster", words);
            at.y += 13;
        }
    }

    // Exits by letter as labels below the room, and what is odd about it in its upper corner.
    void drawOver(const Room& room, Cell cell) {
        const Point middle = middleOf(cell);
        double top = middle.y + roomHeight / 2.0 - 5;
        for (const Exit& exit : room.exitList()) {
            if (stepOf(exit.key) == Cell{}) {
                drawPortal(exit, {middle.x - roomWidth / 2.0 + 6, top});
                top += 17;
            }
        }
        const double right = middle.x + roomWidth / 2.0;
        if (room.oddities.morveksRoom) {
            out << "<path class=\"star\" d=\"M"
                << Point{right - 14, middle.y - roomHeight / 2.0 - 13}
                << " l5,11 12,1 -9,8 3,12 -11,-6 -11,6 3,-12 -9,-8 12,-1 z\"><title>Morvek is "
                   "found "
                << "here</title></path>\n";
        } else if (room.oddities.closedToArrivals || room.oddities.hiddenKey != HiddenKey::none) {
            out << "<circle class=\"mark\" r=\"4.5\" cx=\"" << right - 9 << "\" cy=\""
                << middle.y - roomHeight / 2.0 + 9 << "\"/>\n";
        }
    }

    void drawPortal(const Exit& exit, Point corner) {
        std::string label(1, static_cast<char>(exit.key - 'a' + 'A'));
        std::size_t length = 4; // with the sign behind the key
        if (exit.passage == Passage::unfinished) {
            label += " \u2715 unfinished";
            length += std::string_view("unfinished").size();
        } else {
            const Room& to = roomAt(exit.to);
            const std::string name = shortened(regionOf(to), 0) + (to.level ? ", " : " ") +
                                     std::to_string(to.level ? to.position : int{to.number});
            label += (exit.passage == Passage::open ? " \u25b8 " : " \u2715 ") + name;
            length += name.size();
        }
        out << "<g class=\"portal" << (exit.passage == Passage::open ? "" : " refused")
            << "\"><rect rx=\"6\" x=\"" << corner.x << "\" y=\"" << corner.y << "\" width=\""
            << static_cast<double>(length) * 5.7 + 10 << "\" height=\"16\"/>";
        text({corner.x + 6, corner.y + 11.5}, "", label);
        out << "</g>\n";
    }

    void drawLegend() {
        const double x = margin + 16.0;
        double y = margin + world.legend.row * rowHeight + 46;
        text({x, y}, "title", "The world of Morvek");
        y += 34;
        text({x, y}, "legend", "A room: its number, its region, who lives there. North is up.");
        for (const Look& look : std::span(looks).first(looks.size() - 1)) {
            y += 26;
            out << "<rect rx=\"5\" x=\"" << x << "\" y=\"" << y - 14
                << "\" width=\"44\" height=\"19\" "
                << "fill=\"" << look.fill << "\" stroke=\"" << look.ink << "\"/>\n";
            text({x + 60, y}, "legend", look.legend);
        }
        drawLegendOfWays({x + 260, margin + world.legend.row * rowHeight + 46.0 + 34});
    }

    void drawLegendOfWays(Point at) {
        constexpr std::array<std::pair<const char*, const char*>, 3> kinds{{
            {"way", "there and back"},
            {"oneway", "one way only"},
            {"odd", "not where its key points"},
        }};
        for (const auto& [kind, meaning] : kinds) {
            at.y += 26;
            line(kind, {at.x, at.y - 5}, {at.x + 44, at.y - 5});
            text({at.x + 60, at.y}, "legend", meaning);
        }
        at.y += 26;
        line("stub", {at.x + 4, at.y - 5}, {at.x + 24, at.y - 5});
        drawCross({at.x + 26, at.y - 5});
        text({at.x + 60, at.y}, "legend", "leads nowhere, or is refused");
        at.y += 26;
        out << "<circle class=\"trail\" r=\"4.5\" fill=\"#f4ead2\" cx=\"" << at.x + 12 << "\" cy=\""
            << at.y - 5 << "\"/><circle class=\"trail\" r=\"4.5\" fill=\"#5b4a36\" cx=\""
            << at.x + 32 << "\" cy=\"" << at.y - 5 << "\"/>\n";
        text({at.x + 60, at.y}, "legend", "leaves no trail, leaves it late");
        at.y += 26;
        out << "<rect rx=\"5\" x=\"" << at.x << "\" y=\"" << at.y - 14
            << "\" width=\"44\" height=\"19\" fill=\"none\" stroke=\"#3b2f23\" "
            << "stroke-dasharray=\"5 4\"/>\n";
        text({at.x + 60, at.y}, "legend", "no way in on foot");
        at.y += 26;
        out << "<circle class=\"mark\" r=\"4.5\" cx=\"" << at.x + 22 << "\" cy=\"" << at.y - 5
            << "\"/>\n";
        text({at.x + 60, at.y}, "legend", "has a secret: point at it");
    }
};

} // namespace

void writeSvg(std::ostream& out) {
    Picture(out).draw();
}

} // namespace morvek
