// Writes the table of rooms as JSON, as far as the map shows it. make-map reads it.

#include "combat/bestiary.h"
#include "world/world_map.h"

#include <iostream>
#include <nlohmann/json.hpp>

using namespace morvek;
using nlohmann::json;

namespace {

const char* wordsFor(Passage passage) {
    switch (passage) {
    case Passage::painted:
        return "is listed, but leads nowhere";
    case Passage::sealed:
        return "is refused, but would lead to";
    case Passage::unfinished:
        return "is under development";
    case Passage::open:
        break;
    }
    return "leads to";
}

// How an exit's trail differs from the usual one; the exits of a level all leave none.
const char* nameOfTrail(const Room& room, const Exit& exit) {
    if (room.level || exit.trail == Trail::before) {
        return "";
    }
    return exit.trail == Trail::late ? "late" : "none";
}

json describe(const Room& room, const Exit& exit) {
    return {{"key", std::string(1, exit.key)},
            {"to", exit.to},
            {"isOpen", exit.passage == Passage::open},
            {"words", wordsFor(exit.passage)},
            {"trail", nameOfTrail(room, exit)}};
}

// What is particular to the room and not drawn.
json notesOn(const Room& room) {
    json notes = json::array();
    if (room.group == Group::kept) {
        notes.push_back("No group is rolled: the count of the room before stays");
    }
    if (room.oddities.closedToArrivals) {
        notes.push_back("Nobody who comes out of Towne begins here");
    }
    if (room.oddities.hiddenKey != HiddenKey::none) {
        notes.push_back("A hidden key, c, in the encounter menu");
    }
    return notes;
}

json describe(const Room& room) {
    json exits = json::array();
    for (const Exit& exit : room.exitList()) {
        exits.push_back(describe(room, exit));
    }
    json monsters = json::array();
    for (const auto& kind : {room.inhabitants.kind, room.inhabitants.other}) {
        if (kind) {
            monsters.push_back(monsterName(*kind));
        }
    }
    return {{"number", room.number},
            {"position", room.position}, // in its level; 0 outside the levels
            {"title", room.title.text()},
            {"monsters", monsters},
            {"exits", exits},
            {"notes", notesOn(room)},
            {"hasMorvek", room.oddities.morveksRoom}};
}

} // namespace

int main() {
    for (const Room& room : allRooms()) {
        std::cout << describe(room) << '\n';
    }
}
