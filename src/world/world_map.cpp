#include "world/world_map.h"

#include "world/row_words.h"

namespace morvek {
namespace {

using namespace rows;

// In the order of the signs; an exit by letter has its own way of writing its line.
constexpr std::array signLines{
    static_cast<const char*>(nullptr),
    "`red`8`bright red`) `bright white`North\n\r",
    "`red`2`bright red`) `bright white`South\n\r",
    "`red`4`bright red`) `bright white`West\n\r",
    "`red`6`bright red`) `bright white`East\n\r",
    "`red`7`bright red`) `bright white`North West\n\r",
    "`red`9`bright red`) `bright white`North East\n\r",
    "`red`1`bright red`) `bright white`South West\n\r",
    "`red`3`bright red`) `bright white`South East\n\r",
    "`red`E`bright red`)`bright white`nter Castle\n\r",
    "`red`L`bright red`)`bright white`eave Castle\n\r",
    "`red`D`bright red`) `bright white`Down to Level 2\n\r",
    "`red`U`bright red`) `bright white`Up to Level 1\n\r",
    "`red`E`bright red`)`bright white`nter Mortuary\n\r",
    "`red`L`bright red`) `bright white`eave Mortuary\n\r",
    "`red`E`bright red`)`bright white`xit to Rattlehead Pathway\n\r",
    "`red`E`bright red`)`bright white`xit Rattlehead Cavern\n\r",
};

static_assert(signLines.size() == static_cast<std::size_t>(Sign::exitCavern) + 1);

// Number, title, hot keys, exits, inhabitants, oddities. Not every way has a way back, and some
// rooms have no way in.
constexpr std::array<Room, roomCount> rooms{{
    place(1, "Forest 1", "846shyf", {w(14), e(27), n(2)}, {koboldMinion}, forestOne),
    place(2, "Forest 2", "42shyf", {s(1), w(3)}, {koboldMinion}),
    place(3, "Forest 3", "76shyf", {e(2), nw(4)}, {koboldMinion}),
    place(4, "Forest 4", "83shyf", {se(3), n(5)}, {koboldMinion}),
    place(5, "Rattlehead Pathway 5", "2789shyf", {noTrail(s(4)), nw(6), n(13), noTrail(ne(12))},
          {goblinCutter}),
    place(6, "Rattlehead Pathway 6", "83shyf", {se(5), n(7)}, {goblinCutter}),
    place(7, "Rattlehead Pathway 7", "72shyf", {s(6), nw(8)}, {goblinCutter}),
    place(8, "Rattlehead Pathway 8", "63shyf", {se(7), e(9)}, {goblinCutter}),
    place(9, "Rattlehead Pathway 9", "46shyf", {w(8), e(10)}, {goblinCutter}),
    place(10, "Rattlehead Pathway 10", "43shyf", {se(11), w(9)}, {goblinCutter}),
    place(11, "Rattlehead Pathway 11", "72shyf", {s(12), nw(10)}, {goblinCutter}),
    place(12, "Rattlehead Pathway 12", "81shyf", {lateTrail(sw(5)), n(11)}, {goblinCutter}),
    place(13, "Rattlehead Cavern 13", "2shyf", {s(5), enterCavern}, {boneshardSkeleton}),
    place(14, "Forest 14", "61shyf", {sw(15), e(1)}, {goblinCutter}),
    place(15, "Forest 15", "49shyf", {w(16), ne(14)}, {goblinCutter}),
    place(16, "Graveyard 16", "761shyf", {sw(23), e(15), nw(17)}, {decrepitSkeleton}),
    place(17, "Graveyard 17", "43shyf", {se(16), w(18)}, {decrepitSkeleton}),
    place(18, "Graveyard 18", "46shyf", {w(19), e(17)}, {decrepitSkeleton}),
    place(19, "Graveyard 19", "16shyf", {sw(20), e(18)}, {decrepitSkeleton}),
    place(20, "Graveyard 20", "39shyf", {se(21), ne(19)}, {decrepitSkeleton}),
    place(21, "Graveyard 21", "76shyf", {e(22), nw(20)}, {decrepitSkeleton}),
    place(22, "Graveyard 22", "46shyf", {w(21), e(23)}, {decrepitSkeleton}),
    place(23, "Graveyard 23", "249shyf", {s(24), w(22), ne(16)}, {decrepitSkeleton}),
    place(24, "Forest 24", "81shyf", {sw(25), n(23)}, {koboldMinion}),
    place(25, "Forest 25", "92shyf", {s(26), ne(24)}, {koboldMinion}),
    place(26, "Underground Mortuary 26", "813eshyf", {sw(59), se(73), n(25), enterMortuary},
          nobody),
    place(27, "Wilderness 27", "49shyf", {w(1), ne(28)}, {giantRat}),
    place(28, "Wilderness 28", "16shyf", {sw(27), e(29)}, {giantRat}),
    place(29, "Wilderness 29", "49shyf", {w(28), ne(30)}, {giantRat}),
    place(30, "Cedar Bridge 30", "1368shyf", {sw(29), se(36), e(43), n(31)}, {koboldSkirmisher}),
    place(31, "Cedar River 31", "72shyf", {s(30), nw(32)}, {giantRat}),
    place(32, "Cedar River 32", "83shyf", {se(31), n(33)}, {giantRat}),
    place(33, "Cedar River 33", "72shyf", {s(32), nw(34)}, {giantRat}),
    place(34, "Cedar River 34", "83shyf", {se(33), n(35)}, {giantRat}),
    place(35, "Cedar Mountain 35", "2shyf", {s(34)}, {giantRat}),
    place(36, "Cedar River 36", "72shyf", {s(37), nw(30)}, {giantRat}),
    place(37, "Cedar River 37", "83shyf", {se(38), n(36)}, {giantRat}),
    place(38, "Cedar River 38", "72shyf", {s(39), nw(37)}, {giantRat}),
    place(39, "Cedar River 39", "83shyf", {se(40), n(38)}, {giantRat}),
    place(40, "Cedar River 40", "72shyf", {s(41), nw(39)}, {giantRat}, closedToArrivals),
    place(41, "Cedar River 41", "83shyf", {se(42), n(40)}, {giantRat}),
    place(42, "Cedar Waterfall 42", "7shyf", {nw(41)}, {giantRat}),
    place(43, "Cedar Bridge 43", "3468shyf", {se(49), w(30), e(56), n(44)}, {koboldSkirmisher}),
    place(44, "Cedar River 44", "72shyf", {s(43), nw(45)}, {giantRat}),
    place(45, "Cedar River 45", "83shyf", {se(44), n(46)}, {giantRat}),
    place(46, "Cedar River 46", "72shyf", {s(45), nw(47)}, {giantRat}),
    place(47, "Cedar River 47", "83shyf", {se(46), n(48)}, {giantRat}),
    place(48, "Cedar Mountain 48", "2shyf", {s(47)}, {giantRat}),
    place(49, "Cedar River 49", "72shyf", {s(50), nw(43)}, {giantRat}),
    place(50, "Cedar River 50", "83shyf", {se(51), n(49)}, {giantRat}),
    place(51, "Cedar River 51", "72shyf", {s(52), nw(50)}, {giantRat}),
    place(52, "Cedar River 52", "83shyf", {se(53), n(51)}, {giantRat}),
    place(53, "Cedar River 53", "72shyf", {s(54), nw(52)}, {giantRat}),
    place(54, "Cedar River 54", "83shyf", {se(55), n(53)}, {giantRat}),
    place(55, "Cedar River 55", "7shyf", {nw(54)}, {giantRat}),
    place(56, "Cedar River 56", "e4shyf", {w(43), enterCastle}, {giantRat}, castleGate),
    place(57, "Cedar River 57", "16shyf", {sw(56), e(58)}, {giantRat}),
    place(58, "Cedar Bridge 58", "e4shyf", {w(57), noTrail(enterCastle)}, {giantRat}),
    place(59, "Underground Mortuary 59", "94shyf", {w(60), ne(26)}, {decrepitSkeleton}),
    place(60, "Underground Mortuary 60", "62shyf", {s(61), e(59)}, {decrepitSkeleton}),
    place(61, "Underground Mortuary 61", "81shyf", {sw(62), n(60)}, {decrepitSkeleton}),
    place(62, "Underground Mortuary 62", "93shyf", {se(63), ne(61)}, {skeleton}),
    place(63, "Underground Mortuary 63", "72shyf", {s(64), nw(62)}, {decrepitSkeleton}),
    place(64, "Underground Mortuary 64", "86shyf", {e(65), n(63)}, {decrepitSkeleton}),
    place(65, "Underground Mortuary 65", "43shyf", {se(66), w(64)}, {decrepitSkeleton}),
    place(66, "Underground Mortuary 66", "789shyf", {nw(65), n(74), ne(67)}, {skeleton}),
    place(67, "Underground Mortuary 67", "61shyf", {sw(66), e(68)}, {decrepitSkeleton}),
    place(68, "Underground Mortuary 68", "84shyf", {w(67), n(69)}, {decrepitSkeleton}),
    place(69, "Underground Mortuary 69", "92shyf", {s(68), ne(70)}, {decrepitSkeleton}),
    place(70, "Underground Mortuary 70", "71shyf", {sw(69), nw(71)}, {skeleton}),
    place(71, "Underground Mortuary 71", "83shyf", {se(70), n(72)}, {decrepitSkeleton}),
    place(72, "Underground Mortuary 72", "42shyf", {s(71), w(73)}, {decrepitSkeleton}),
    place(73, "Underground Mortuary 73", "76shyf", {e(72), nw(26)}, {decrepitSkeleton}),
    place(74, "Underground Mortuary 74", "82shyf", {s(66), n(75)}, {skeleton}),
    place(75, "Underground Mortuary 75", "82shyf", {s(74), n(76)}, {blazingSkeleton}),
    place(76, "Underground Mortuary Shrine76", "2shyf", {s(75)}, {boneshardSkeleton}),

    castle1(1, "Castle Level 1-1", "l8hyf", {n(2), leaveCastle}, rabbleOrBandit),
    castle1(2, "Castle Level 1-2", "462hyf", {s(1), w(3), e(4)}, rabbleOrBandit),
    castle1(3, "Castle Level 1-3", "86hyf", {e(2), n(5)}, rabbleOrBandit),
    castle1(4, "Castle Level 1-4", "84hyf", {w(2), n(7)}, rabbleOrBandit),
    castle1(5, "Castle Level 1-5", "82hyf", {s(3), n(9)}, rabbleOrBandit),
    castle1(6, "Castle Level 1-6", "8hyf", {n(10)}, rabbleOrBandit),
    castle1(7, "Castle Level 1-7", "82hyf", {s(4), n(11)}, rabbleOrBandit),
    castle1(8, "Castle Level 1-8", "86hyf", {e(9), n(17)}, rabbleOrBandit),
    castle1(9, "Castle Level 1-9", "462hyf", {s(5), w(8), e(10)}, rabbleOrBandit),
    castle1(10, "Castle Level 1-10", "8462hyf", {s(6), w(7), e(11), n(15)}, rabbleOrBandit),
    castle1(11, "Castle Level 1-11", "462hyf", {s(7), w(10), e(12)}, rabbleOrBandit),
    castle1(12, "Castle Level 1-12", "84hyf", {w(11), n(13)}, rabbleOrBandit),
    castle1(13, "Castle Level 1-13", "72hyf", {s(12), nw(20)}, rabbleOrBandit),
    castle1(14, "Castle Level 1-14", "4hyf", {w(15)}, rabbleOrBandit),
    castle1(15, "Castle Level 1-15", "8462hyf", {s(10), w(16), e(14), n(19)}, rabbleOrBandit),
    castle1(16, "Castle Level 1-16", "86hyf", {e(15), n(18)}, rabbleOrBandit),
    castle1(17, "Castle Level 1-17", "92hyf", {s(8), ne(18)}, rabbleOrBandit),
    castle1(18, "Castle Level 1-18", "12hyf", {sw(17), s(16)}, rabbleOrBandit),
    castle1(19, "Castle Level 1-19", "2hyf", {s(15)}, rabbleOrBandit),
    castle1(20, "Castle Level 1-20", "832hyf", {s(14), se(13), n(21)}, rabbleOrBandit),
    castle1(21, "Castle Level 1-21", "72hyf", {s(20), nw(24)}, rabbleOrBandit),
    castle1(22, "Castle Level 1-22", "d8hyf", {n(24), downToLevel2}, rabbleOrBandit),
    castle1(23, "Castle Level 1-23", "92hyf", {s(18), ne(24)}, rabbleOrBandit),
    castle1(24, "Castle Level 1-24", "132hyf", {sw(23), s(22), se(21)}, rabbleOrBandit),

    castle2(1, "2hyf", {s(3)}, guardOrBerserker),
    castle2(2, "62hyf", {s(5), e(3)}, guardOrBerserker),
    castle2(3, "u846hyf", {w(2), e(4), n(1), upToLevel1}, guardOrBerserker),
    castle2(4, "42hyf", {s(7), w(3)}, guardOrBerserker),
    castle2(5, "86hyf", {e(6), n(2)}, guardOrBerserker),
    castle2(6, "462hyf", {s(10), w(5), e(7)}, guardOrBerserker),
    castle2(7, "84hyf", {w(6), n(4)}, guardOrBerserker),
    castle2(8, "96hyf", {e(9), ne(5)}, guardOrBerserker),
    castle2(9, "4hyf", {w(8)}, guardOrBerserker),
    castle2(10, "82hyf", {s(15), n(6)}, guardOrBerserker),
    castle2(11, "6hyf", {e(12)}, guardOrBerserker),
    castle2(12, "74hyf", {w(11), nw(7)}, guardOrBerserker),
    castle2(13, "63hyf", {se(18), e(14)}, guardOrBerserker),
    castle2(14, "46hyf", {w(13), e(15)}, guardOrBerserker),
    castle2(15, "846hyf", {w(14), e(16), n(10)}, guardOrBerserker),
    castle2(16, "46hyf", {w(15), e(17)}, guardOrBerserker),
    castle2(17, "41hyf", {sw(20), w(16)}, guardOrBerserker),
    castle2(18, "16hyf", {sw(13), e(19)}, guardOrBerserker),
    castle2(19, "462hyf", {s(22), w(18), e(20)}, guardOrBerserker),
    castle2(20, "94hyf", {w(19), ne(17)}, guardOrBerserker),
    castle2(21, "6hyf", {e(22)}, guardOrBerserker),
    castle2(22, "8462hyf", {s(24), w(21), e(23), n(19)}, guardOrBerserker),
    castle2(23, "4hyf", {w(22)}, guardOrBerserker),
    castle2(24, "8hyf", {n(22)}, guardOrBerserker, morveksRoom),

    mortuary(1, "l46hyf", {w(2), e(6), leaveMortuary}, rotterOrBeetle),
    mortuary(2, "86hyf", {e(1), n(3)}, rotterOrBeetle),
    mortuary(3, "62hyf", {s(2), e(4)}, rotterOrBeetle),
    mortuary(4, "846hyf", {w(3), e(5), n(7)}, rotterOrBeetle),
    mortuary(5, "42hyf", {s(6), w(4)}, rotterOrBeetle),
    mortuary(6, "84hyf", {w(1), n(5)}, rotterOrBeetle),
    mortuary(7, "82hyf", {s(4), n(8)}, rotterOrBeetle),
    mortuary(8, "842hyf", {s(7), w(9), n(17)}, {zombieRotter}),
    mortuary(9, "846hyf", {w(10), e(8), n(16)}, {zombieRotter}),
    mortuary(10, "86hyf", {e(9), n(11)}, {zombieRotter}),
    mortuary(11, "82hyf", {s(10), n(12)}, {zombieRotter}),
    mortuary(12, "862hyf", {s(11), e(15), n(13)}, {zombieRotter}),
    mortuary(13, "2hyf", {s(12)}, {zombieRotter}),
    mortuary(14, "6hyf", {paintedEast, sealed(s(19))}, {zombieRotter}),
    mortuary(15, "46hyf", {w(12), e(18)}, {zombieRotter}),
    mortuary(16, "2hyf", {s(9)}, {zombieRotter}),
    mortuary(17, "62hyf", {s(8), e(22)}, {zombieRotter}),
    mortuary(18, "846hyf", {w(15), e(21), n(19)}, {zombieRotter}),
    mortuary(19, "8462hyf", {s(18), w(14), e(20), n(28)}, {zombieRotter}),
    mortuary(20, "46hyf", {w(19), e(27)}, {zombieRotter}),
    mortuary(21, "4hyf", {w(18)}, {zombieRotter}),
    mortuary(22, "42hyf", {s(23), w(17)}, {zombieRotter}),
    mortuary(23, "8hyf", {n(22)}, {zombieRotter}),
    mortuary(24, "8hyf", {n(25)}, {zombieRotter}),
    mortuary(25, "82hyf", {s(24), n(26)}, {zombieRotter}),
    mortuary(26, "82hyf", {s(25), n(27)}, {zombieRotter}),
    mortuary(27, "42hyf", {s(26), w(20)}, {zombieRotter}),
    mortuary(28, "82hyf", {s(19), n(29)}, {zombie}),
    mortuary(29, "8462hyf", {s(28), w(30), e(34), n(32)}, {zombie}, Group::kept),
    mortuary(30, "86hyf", {e(29), n(31)}, {zombie}, Group::kept),
    mortuary(31, "62hyf", {s(30), e(32)}, {zombie}, Group::kept),
    mortuary(32, "8462hyf", {s(29), w(31), e(33), n(35)}, {zombie}, Group::kept),
    mortuary(33, "42hyf", {s(34), w(32)}, {zombie}, Group::kept),
    mortuary(34, "84hyf", {w(29), n(33)}, {zombie}, Group::kept),
    mortuary(35, "2hyf", {s(32)}, {gravehound}, Group::kept),

    cavern(1, "e8hyf", {n(2), exitToPathway}, {halflingStout}),
    cavern(2, "82hyf", {s(1), n(3)}, {halflingStout}),
    cavern(3, "462hyf", {s(2), w(4), e(8)}, {halflingStout}),
    cavern(4, "46hyf", {w(5), e(3)}, {halflingStout}),
    cavern(5, "86hyf", {e(4), n(6)}, {halflingStout}),
    cavern(6, "82hyf", {s(5), n(7)}, {halflingStout}),
    cavern(7, "e2hyf", {s(6), unfinishedExit}, {halflingSlinger}, Group::kept),
    cavern(8, "846hyf", {w(3), e(10), n(9)}, {halflingStout}),
    cavern(9, "2hyf", {s(8)}, {halflingStout}),
    cavern(10, "42hyf", {s(11), w(8)}, {halflingStout}),
    cavern(11, "86hyf", {e(12), n(10)}, {halflingStout}),
    cavern(12, "46hyf", {w(11), e(13)}, {halflingStout}),
    cavern(13, "4hyf", {w(12)}, {halflingSlinger}, Group::kept),
}};

constexpr bool rowsAreInOrder() {
    for (std::size_t i = 0; i < roomCount; ++i) {
        if (rooms[i].number != i + 1) {
            return false;
        }
    }
    return true;
}

constexpr bool isValid(const Room& room, const Exit& exit) {
    switch (exit.passage) {
    case Passage::open:
        return room.hasKey(exit.key) && exit.sign != Sign::none && exit.to != nowhere &&
               exit.to <= roomCount;
    case Passage::painted:
    case Passage::unfinished:
        return room.hasKey(exit.key) && exit.sign != Sign::none && exit.to == nowhere;
    case Passage::sealed:
        return !room.hasKey(exit.key) && exit.sign == Sign::none && exit.to != nowhere &&
               exit.to <= roomCount;
    }
    return false;
}

constexpr bool exitsAreValid() {
    return std::all_of(rooms.begin(), rooms.end(), [](const Room& room) {
        const auto exits = room.exitList();
        return std::all_of(exits.begin(), exits.end(),
                           [&](const Exit& exit) { return isValid(room, exit); });
    });
}

// The movement menu's keys are the exits' and then those of the features.
constexpr bool hotKeysHaveActions() {
    return std::all_of(rooms.begin(), rooms.end(), [](const Room& room) {
        const std::string_view keys = room.keys.text();
        const std::string_view features = room.level ? "hyf" : "shyf";
        const std::string_view ways = keys.substr(0, keys.size() - features.size());
        return keys.ends_with(features) && std::all_of(ways.begin(), ways.end(), [&](char key) {
                   return room.exitAt(key) != nullptr;
               });
    });
}

constexpr std::array<bool, roomCount + 1> reachedRooms() {
    std::array<bool, roomCount + 1> reached{};
    reached[1] = true;
    for (bool grown = true; grown;) {
        grown = false;
        for (const Room& room : rooms) {
            for (const Exit& exit : room.exitList()) {
                if (reached[room.number] && exit.passage == Passage::open && !reached[exit.to]) {
                    reached[exit.to] = true;
                    grown = true;
                }
            }
        }
    }
    return reached;
}

constexpr bool hasNoWayIn(const Room& room) {
    const std::array sealedOff{
        RoomNumber{57},
        RoomNumber{58},
        roomOf(Level::castle2, 8),
        roomOf(Level::castle2, 9),
        roomOf(Level::castle2, 11),
        roomOf(Level::castle2, 12),
    };
    return room.level == Level::cavern1 ||
           std::find(sealedOff.begin(), sealedOff.end(), room.number) != sealedOff.end();
}

constexpr bool otherRoomsAreReachable() {
    const auto reached = reachedRooms();
    return std::all_of(rooms.begin(), rooms.end(),
                       [&](const Room& room) { return reached[room.number] != hasNoWayIn(room); });
}

constexpr bool livesSomewhere(MonsterKind kind) {
    return std::any_of(rooms.begin(), rooms.end(), [&](const Room& room) {
        return room.inhabitants.kind == kind || room.inhabitants.other == kind;
    });
}

constexpr bool kindsButBlackbladeHaveRooms() {
    for (std::size_t number = 0; number < monsterKindCount; ++number) {
        const auto kind = static_cast<MonsterKind>(number);
        if (livesSomewhere(kind) != (kind != goblinBlackblade)) {
            return false;
        }
    }
    return true;
}

static_assert(rowsAreInOrder());
static_assert(exitsAreValid());
static_assert(hotKeysHaveActions());
static_assert(otherRoomsAreReachable());
static_assert(kindsButBlackbladeHaveRooms());

} // namespace

const char* lineOf(Sign sign) { return signLines.at(static_cast<std::size_t>(sign)); }

std::span<const Room, roomCount> allRooms() { return rooms; }

const Room& roomAt(RoomNumber number) { return rooms[number - 1U]; }

} // namespace morvek
