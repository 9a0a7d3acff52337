// The rules of a room.
//
// A visit to a room begins by storing where the player is, and rolls a group unless a monster was
// ready. The dead and those without turns get no further. The room is drawn; its inhabitant is set
// up, unless a ready monster still lives; and the player meets it or reads the directions.
//
// While no monster lives, the movement menu asks where to go. An exit clears `monsterReady`, so
// that the next room rolls a group of its own, and notes the location that is left: before the
// next visit begins, after it has ended, or not at all, as the exit's row says. A search, the
// shrine and the status screen each redraw the room.
//
// While monster and player live, the encounter menu asks for blows. When a monster is slain the
// room is redrawn, with the next of the group or with the directions. A level's room treats "y" as
// "f". From the encounter menu a visit never goes back to the movement menu.
//
// A move or a redraw is a visit inside the present one, which goes on when the inner one has ended.
// Flight, death and the last turn end all visits, newest first; a visit that showed the status
// screen goes home once its inner visit has ended. The first that finds no turn left says that the
// player is exhausted.
//
// A caller can take a million steps in a call, so the waiting visits are a vector of small records
// and not calls on the machine's stack.

#include "world/walk.h"

#include "combat/fight.h"
#include "screen/screen.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "status/health_shrine.h"
#include "status/status_screen.h"
#include "world/encounter.h"
#include "world/room_screen.h"
#include "world/search.h"

#include <vector>

namespace morvek {
namespace {

// What a visit does next, also when an inner visit has ended.
enum class Stage : std::uint8_t {
    arriving,
    moving,    // at the movement menu
    trailing,  // back by an exit that leaves its trail late
    fighting,  // at the encounter menu
    givenUp,   // back from the redraw after the group was given up
    departing, // back from the last redraw: now home
    leaving,
    over,
};

struct Visit {
    RoomNumber room;
    Stage stage = Stage::arriving;
    bool menuShown = false; // the encounter menu, at least once
};

// While the chain grows, its old copy and a new one of twice the length stand side by side: 9
// bytes a step at the most.
static_assert(sizeof(Visit) == 3);

bool isOutOfTurns() { return game.player.turnsLeft < 1; }

bool isLeavingWorld() { return game.world.leavingWorld == 1; }

bool isDead() { return game.world.playerDead == 1; }

// The routines below do a part of a visit and set its next stage. They return the room of a visit
// to begin inside it, or `nowhere`.

RoomNumber advance(Visit& visit, Stage stage) {
    visit.stage = stage;
    return nowhere;
}

RoomNumber redraw(Visit& visit, Stage afterwards) {
    visit.stage = afterwards;
    return visit.room;
}

void storePlace(const Room& room) {
    if (room.level) {
        game.world.position(*room.level) = room.position;
    } else {
        game.world.currentLocation = room.number;
    }
}

void rollGroupOf(const Room& room) {
    if (room.group == Group::rolled) {
        rollGroup();
        if (!room.level) {
            game.encounter.groupActive = 1;
        }
    }
}

// A room without inhabitants always offers the movement menu.
bool canMove(const Room& room) { return !monsterAlive() || !room.inhabitants.kind; }

RoomNumber arrive(Visit& visit, const Room& room) {
    const bool ready = game.encounter.monster.monsterReady == 1;
    storePlace(room);
    if (!ready) {
        rollGroupOf(room);
    }
    if (isDead() || isOutOfTurns()) {
        return advance(visit, Stage::over);
    }
    clearScreen();
    game.world.exhaustedShown = 0;
    showTitle(room);
    if (!ready || !monsterAlive()) {
        setUpInhabitant(room);
    }
    if (room.oddities.morveksRoom && game.world.foundMorvek == 0) {
        showFinding();
    }
    showEncounter(room);
    if (canMove(room) && !isLeavingWorld()) {
        showDirections(room);
    }
    return advance(visit, Stage::moving);
}

void leaveForTowne(const Room& room) {
    game.world.leavingWorld = 1;
    game.encounter.monster.hitPoints = 0;
    if (room.level) {
        game.world.position(*room.level) = 1;
    }
}

void announceFlight(const Room& room) {
    showReturning();
    game.encounter.monster.monsterReady = 0;
    game.world.previousLocation = room.number;
}

RoomNumber flee(Visit& visit, const Room& room) {
    leaveForTowne(room);
    return advance(visit, Stage::leaving);
}

RoomNumber searchArea(Visit& visit) {
    std::int32_t& searched = game.world.searched(visit.room);
    if (searched == 1) {
        showAlreadySearched();
    } else {
        search();
        searched = 1;
    }
    return redraw(visit, Stage::moving);
}

RoomNumber visitShrine(Visit& visit) {
    healthShrine();
    return redraw(visit, Stage::moving);
}

RoomNumber takeExit(Visit& visit, const Exit& exit) {
    if (exit.passage == Passage::unfinished) {
        showUnderDevelopment();
        return redraw(visit, Stage::moving);
    }
    if (exit.passage == Passage::painted) {
        return nowhere;
    }
    game.encounter.monster.monsterReady = 0;
    if (exit.trail == Trail::before) {
        game.world.previousLocation = game.world.currentLocation;
    }
    visit.stage = exit.trail == Trail::late ? Stage::trailing : Stage::moving;
    return exit.to;
}

RoomNumber move(Visit& visit, const Room& room) {
    if (!canMove(room)) {
        return advance(visit, Stage::fighting);
    }
    if (isLeavingWorld() || isOutOfTurns() || isDead()) {
        return advance(visit, Stage::leaving);
    }
    const char key = menu("areaone", room.keys.text());
    switch (key) {
    case 's':
        return searchArea(visit);
    case 'h':
        return visitShrine(visit);
    case 'y':
        showStatus();
        return redraw(visit, Stage::departing);
    case 'f':
        if (room.oddities.announcedFlight) {
            announceFlight(room);
        }
        return flee(visit, room);
    default:
        return takeExit(visit, *room.exitAt(key));
    }
}

RoomNumber showStatusThenLeave(Visit& visit) {
    if (isLeavingWorld()) {
        return advance(visit, Stage::departing);
    }
    showStatus();
    return redraw(visit, Stage::departing);
}

RoomNumber strike(Visit& visit) {
    say("\n\r\n\r");
    rollPlayerCombatValues();
    fightRound();
    if (isLeavingWorld() || monsterAlive()) {
        return nowhere;
    }
    return redraw(visit, Stage::fighting);
}

bool hasHiddenKey(const Visit& visit, const Room& room) {
    switch (room.oddities.hiddenKey) {
    case HiddenKey::none:
        return false;
    case HiddenKey::status:
        return true;
    case HiddenKey::giveUp:
        return !visit.menuShown && game.encounter.groupActive == 1;
    }
    return false;
}

RoomNumber abandonGroup(Visit& visit) {
    game.encounter.groupActive = 0;
    return redraw(visit, Stage::givenUp);
}

RoomNumber fight(Visit& visit, const Room& room) {
    if (!monsterAlive() || game.player.hitPoints < 1 || isLeavingWorld() || isDead()) {
        return advance(visit, Stage::leaving);
    }
    showEncounterChoices(room);
    const char* keys = hasHiddenKey(visit, room) ? "acyf" : "ayf";
    visit.menuShown = true;
    switch (menu("areaone", keys)) {
    case 'a':
        return strike(visit);
    case 'c':
        return room.oddities.hiddenKey == HiddenKey::giveUp ? abandonGroup(visit)
                                                            : showStatusThenLeave(visit);
    case 'y':
        return room.level ? flee(visit, room) : showStatusThenLeave(visit);
    default:
        return flee(visit, room);
    }
}

RoomNumber leave(Visit& visit) {
    if (isOutOfTurns() && !isDead() && game.world.exhaustedShown != 1) {
        game.world.exhaustedShown = 1;
        showExhausted();
    }
    return advance(visit, Stage::over);
}

RoomNumber resumeVisit(Visit& visit) {
    const Room& room = roomAt(visit.room);
    switch (visit.stage) {
    case Stage::arriving:
        return arrive(visit, room);
    case Stage::trailing:
        game.world.previousLocation = game.world.currentLocation;
        return advance(visit, Stage::moving);
    case Stage::moving:
        return move(visit, room);
    case Stage::givenUp:
        return isDead() ? advance(visit, Stage::leaving) : showStatusThenLeave(visit);
    case Stage::fighting:
        return fight(visit, room);
    case Stage::departing:
        leaveForTowne(room);
        return advance(visit, Stage::leaving);
    case Stage::leaving:
        return leave(visit);
    case Stage::over:
        break;
    }
    return nowhere;
}

} // namespace

void walkFrom(RoomNumber first) {
    std::vector<Visit> visits;
    visits.push_back({first});
    while (!visits.empty()) {
        Visit& visit = visits.back();
        const RoomNumber inner = resumeVisit(visit);
        if (inner != nowhere) {
            visits.push_back({inner});
        } else if (visit.stage == Stage::over) {
            visits.pop_back();
        }
    }
}

} // namespace morvek
