// Players in the world, for tests.
#pragma once

#include "support/game_test.h"
#include "world/walk.h"

namespace morvek::test {

// A new call with a player who strikes first, for one point, and so does the monster after him, as
// long as chance draws 0. With `cleared`, in a world that is searched and cleared throughout.
inline void beginCall(bool cleared = false, bool ansi = true) {
    newCall(ansi);
    game.player = {
        .level = 1, .hitPoints = 20, .maxHitPoints = 25, .dexterity = 30, .turnsLeft = 30};
    game.world.previousLocation = 99;
    game.world.words.fill(cleared ? 1 : 0);
}

// Walks from the room with these keys, all of which must be used.
inline void walk(RoomNumber from, std::string_view keys) {
    caller.visit([from] { walkFrom(from); }, keys);
    EXPECT_EQ(caller.keys, "") << "keys not asked for";
}

// How often a room was shown.
inline int timesShown(const std::string& title) {
    return caller.times("{`r`" + title + "|}");
}

} // namespace morvek::test
