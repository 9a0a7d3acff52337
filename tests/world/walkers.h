// Players in the world, for tests.
#pragma once

#include "state/encounter.h"
#include "support/game_test.h"
#include "world/walk.h"

// A new call with a player at that location who strikes first, for one point, and so does the
// monster after him, as long as chance draws 0. With `cleared`, in a world that is searched and
// cleared throughout.
inline void beginCall(bool cleared = false, int location = 0) {
    newCall();
    game.player = {
        .level = 1, .hitPoints = 20, .maxHitPoints = 25, .dexterity = 30, .turnsLeft = 30};
    game.world.currentLocation = location;
    game.world.previousLocation = 99;
    game.world.words.fill(cleared ? 1 : 0);
}

// Plays with these keys, all of which must be used; what was seen.
inline const std::string& play(const std::function<void()>& place, std::string_view keys) {
    caller.visit(place, keys);
    EXPECT_EQ(caller.keys, "") << "keys not asked for";
    return caller.screen;
}

inline const std::string& walk(RoomNumber from, std::string_view keys) {
    return play([from] { walkFrom(from); }, keys);
}
