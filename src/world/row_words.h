// The words that the table of rooms is written in: its exits, its inhabitants, and what is odd
// about a room. For world_map.cpp alone.
#pragma once

#include "world/room.h"

#include <initializer_list>

namespace morvek::rows {

using enum MonsterKind;

constexpr Exit compass(char key, int to, Sign sign) {
    return {.key = key, .to = static_cast<RoomNumber>(to), .sign = sign};
}

constexpr auto n = [](int to) { return compass('8', to, Sign::north); };
constexpr auto s = [](int to) { return compass('2', to, Sign::south); };
constexpr auto w = [](int to) { return compass('4', to, Sign::west); };
constexpr auto e = [](int to) { return compass('6', to, Sign::east); };
constexpr auto nw = [](int to) { return compass('7', to, Sign::northWest); };
constexpr auto ne = [](int to) { return compass('9', to, Sign::northEast); };
constexpr auto sw = [](int to) { return compass('1', to, Sign::southWest); };
constexpr auto se = [](int to) { return compass('3', to, Sign::southEast); };

constexpr Exit noTrail(Exit exit) {
    exit.trail = Trail::none;
    return exit;
}

constexpr Exit lateTrail(Exit exit) {
    exit.trail = Trail::late;
    return exit;
}

constexpr Exit sealed(Exit exit) {
    exit.sign = Sign::none;
    exit.passage = Passage::sealed;
    return exit;
}

constexpr Exit paintedEast{.key = '6', .sign = Sign::east, .passage = Passage::painted};

// The exits by letter, each with its own way of writing its line.
constexpr Exit enterCastle{.key = 'e', .to = roomOf(Level::castle1, 1), .sign = Sign::enterCastle};
constexpr Exit leaveCastle{.key = 'l', .to = 56, .sign = Sign::leaveCastle};
constexpr Exit downToLevel2{
    .key = 'd', .to = roomOf(Level::castle2, 1), .sign = Sign::downToLevel2};
constexpr Exit upToLevel1{.key = 'u', .to = roomOf(Level::castle1, 22), .sign = Sign::upToLevel1};
constexpr Exit enterMortuary{
    .key = 'e', .to = roomOf(Level::mortuary1, 1), .sign = Sign::enterMortuary};
constexpr Exit leaveMortuary{.key = 'l', .to = 26, .sign = Sign::leaveMortuary};
constexpr Exit enterCavern{.key = 'e', .to = roomOf(Level::cavern1, 1), .passage = Passage::sealed};
constexpr Exit exitToPathway{.key = 'e', .to = 13, .sign = Sign::exitToPathway};
constexpr Exit unfinishedExit{.key = 'e', .sign = Sign::exitCavern, .passage = Passage::unfinished};

constexpr Inhabitants nobody{};
constexpr Inhabitants rabbleOrBandit{humanRabble, humanBandit};
constexpr Inhabitants guardOrBerserker{humanGuard, humanBerserker};
constexpr Inhabitants rotterOrBeetle{zombieRotter, fireBeetle};

constexpr Oddities forestOne{
    .hiddenKey = HiddenKey::status, .announcedFlight = true, .strayColour = true};
constexpr Oddities closedToArrivals{.closedToArrivals = true};
constexpr Oddities castleGate{.hiddenKey = HiddenKey::giveUp};
constexpr Oddities morveksRoom{.morveksRoom = true};

using Exits = std::initializer_list<Exit>;

// A numbered location; its compass exits lead to locations.
constexpr Room place(int number, std::string_view title, std::string_view keys, Exits exits,
                     Inhabitants inhabitants, Oddities oddities = {}) {
    Room room{.number = static_cast<RoomNumber>(number),
              .title = title,
              .keys = keys,
              .inhabitants = inhabitants,
              .oddities = oddities};
    for (const Exit& exit : exits) {
        room.exits[room.exitCount++] = exit;
    }
    return room;
}

constexpr bool isCompassKey(char key) { return key >= '1' && key <= '9'; }

// A level's room; its compass exits lead to positions in the same level, and no exit of it leaves
// a trail.
constexpr Room levelRoom(Level level, int position, std::string_view title, std::string_view keys,
                         Exits exits, Inhabitants inhabitants, Group group, Oddities oddities) {
    Room room = place(roomOf(level, position), title, keys, exits, inhabitants, oddities);
    room.level = level;
    room.position = static_cast<std::uint8_t>(position);
    room.group = group;
    for (Exit& exit : std::span(room.exits).first(room.exitCount)) {
        exit.trail = Trail::none;
        if (isCompassKey(exit.key) && exit.to != nowhere) {
            exit.to = roomOf(level, exit.to);
        }
    }
    return room;
}

constexpr Room castle1(int position, std::string_view title, std::string_view keys, Exits exits,
                       Inhabitants inhabitants) {
    return levelRoom(Level::castle1, position, title, keys, exits, inhabitants, Group::rolled, {});
}

constexpr Room castle2(int position, std::string_view keys, Exits exits, Inhabitants inhabitants,
                       Oddities oddities = {}) {
    return levelRoom(Level::castle2, position, "Castle Level 2", keys, exits, inhabitants,
                     Group::rolled, oddities);
}

constexpr Room mortuary(int position, std::string_view keys, Exits exits, Inhabitants inhabitants,
                        Group group = Group::rolled) {
    return levelRoom(Level::mortuary1, position, "Underground Mortuary Level 1", keys, exits,
                     inhabitants, group, {});
}

constexpr Room cavern(int position, std::string_view keys, Exits exits, Inhabitants inhabitants,
                      Group group = Group::rolled) {
    return levelRoom(Level::cavern1, position, "Rattlehead Cavern Level 1", keys, exits,
                     inhabitants, group, {});
}

} // namespace morvek::rows
