// The rules of the way in. A new character begins at location 1. Who fled, or was sent home, comes
// back to the location that he left last, not to the one he fled from.
//
// The locations are then tried once each, in ascending order, against the one where the player
// stands now: when he returns from a walk that ended at a location with a higher number, he comes
// through that one once more, sees it, and goes on home. Some locations let nobody in from Towne.

#include "world/world_entry.h"

#include "state/encounter.h"
#include "state/game_state.h"
#include "world/walk.h"

namespace morvek {
namespace {

void resume() {
    game.encounter.monster.hitPoints = 0;
    game.world.leavingWorld = 0;
    game.world.currentLocation = game.world.previousLocation;
}

} // namespace

void enterWorld() {
    if (game.world.currentLocation < 1) {
        game.world.currentLocation = 1;
    }
    if (game.world.leavingWorld == 1) {
        resume();
    }
    for (const Room& room : allRooms().first<locationCount>()) {
        if (game.world.currentLocation == room.number && !room.oddities.closedToArrivals) {
            walkFrom(room.number);
        }
    }
}

} // namespace morvek
