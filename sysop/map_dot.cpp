#include "sysop/map_layout.h"
#include "sysop/map_picture.h"

namespace morvek {
namespace {

constexpr double inchesPerColumn = 2.2;
constexpr double inchesPerRow = 1.1;

// The sides of a node, by compass key.
constexpr std::array<const char*, 10> sides{"", "sw", "s", "se", "w", "c", "e", "nw", "n", "ne"};

std::string side(char key) {
    return sides.at(static_cast<std::size_t>(key - '0'));
}

std::string nodeName(RoomNumber number) {
    return "room" + std::to_string(number);
}

void writeRoom(const Room& room, Cell cell, bool isReachable, std::ostream& out) {
    out << "    " << nodeName(room.number) << " [label=\""
        << (room.level ? std::to_string(room.position) : room.title.text());
    for (const std::string& name : inhabitantsOf(room)) {
        out << "\\n" << name;
    }
    out << "\", pos=\"" << cell.column * inchesPerColumn << ',' << -cell.row * inchesPerRow << "!\""
        << (isReachable ? "" : ", style=dashed") << "];\n";
}

void writeWay(const Way& way, std::ostream& out) {
    out << "  " << nodeName(way.from) << ':' << side(way.exit->key) << " -> " << nodeName(way.to)
        << ':' << side(oppositeKey(way.exit->key));
    if (way.isTwoWay) {
        out << " [dir=both, arrowhead=none, arrowtail=none]";
    } else {
        out << " [color=" << (way.isOdd ? "red" : "darkorange") << ", taillabel=\"" << way.exit->key
            << "\"]";
    }
    out << ";\n";
}

// The exits that are no ways by the compass, and those that lead nowhere.
void writeOtherExits(const Room& room, std::ostream& out) {
    for (const Exit& exit : room.exitList()) {
        const bool open = exit.passage == Passage::open;
        if (open && stepOf(exit.key) != Cell{}) {
            continue;
        }
        const std::string from = nodeName(room.number);
        if (exit.to != nowhere) {
            out << "  " << from << " -> " << nodeName(exit.to) << " [constraint=false, label=\""
                << exit.key << (open ? "\", style=bold" : " (refused)\", style=dotted, color=red")
                << "];\n";
        } else {
            out << "  " << from << "_" << exit.key << " [shape=plaintext, label=\""
                << (exit.passage == Passage::painted ? "nowhere" : "under development")
                << "\"];\n  " << from << " -> " << from << "_" << exit.key << " [label=\""
                << exit.key << "\", style=dotted, color=red];\n";
        }
    }
}

} // namespace

void writeDot(std::ostream& out) {
    const std::set<RoomNumber> reachable = reachableRooms();
    out << "// The world of Morvek. Laid out by Graphviz: dot -Tsvg; as on the map: neato -Tsvg.\n"
        << "// Plain: leads there and back; orange: one way; red: not where it points; dashed "
           "rooms:\n// no way in.\n"
        << "digraph morvek {\n  node [shape=box, fontname=\"Helvetica\", fontsize=10];\n"
        << "  edge [fontname=\"Helvetica\", fontsize=9];\n";
    const WorldChart world = chartWorld();
    for (std::size_t i = 0; i < world.charts.size(); ++i) {
        const Chart& chart = world.charts[i];
        out << "  subgraph cluster" << i << " {\n    label=\"" << chart.title << "\";\n";
        for (const auto& [number, cell] : chart.cells) {
            writeRoom(roomAt(number), cell, reachable.contains(number), out);
        }
        out << "  }\n";
        for (const Way& way : waysOf(chart)) {
            writeWay(way, out);
        }
    }
    for (const Room& room : allRooms()) {
        writeOtherExits(room, out);
    }
    out << "}\n";
}

} // namespace morvek
