// Players in the world, for tests.
#pragma once

#include "state/game_state.h"
#include "support/scripted_caller.h"
#include "support/scripted_chance.h"
#include "world/walk.h"

#include <gmock/gmock.h>

namespace morvek::test {

// A new call with a player who strikes first, for one point, and so does the monster after him, as
// long as chance draws 0. With `cleared`, in a world that is searched and cleared throughout.
inline void beginCall(bool cleared = false, bool ansi = true) {
    newCall(ansi);
    game.player.level = 1;
    game.player.hitPoints = 20;
    game.player.maxHitPoints = 25;
    game.player.dexterity = 30;
    game.player.turnsLeft = 30;
    game.world.previousLocation = 99;
    game.world.words.fill(cleared ? 1 : 0);
}

// Walks from the room with these keys, all of which must be used.
inline void walk(RoomNumber from, std::string_view keys) {
    caller.type(keys);
    walkFrom(from);
    EXPECT_EQ(caller.keys, "") << "keys not asked for";
}

// The screens in a row: {said} <shown> [anything else], with "|" for "\n\r".
inline std::string screens() {
    std::string all;
    for (const std::string& call : caller.calls) {
        const std::string text = call.substr(call.find(' ') + 1);
        all += call.starts_with("say ")    ? "{" + text + "}"
               : call.starts_with("show ") ? "<" + text + ">"
                                           : "[" + call + "]";
    }
    for (std::size_t at = 0; (at = all.find("\n\r", at)) != std::string::npos;) {
        all.replace(at, 2, "|");
    }
    return all;
}

// How often a text was said, whole.
inline long timesSaid(const std::string& text) {
    return std::count(caller.calls.begin(), caller.calls.end(), "say " + text);
}

inline long timesShown(const std::string& title) {
    return timesSaid("`red`" + title + "\n\r");
}

} // namespace morvek::test
