// Everything that the game knows, in one place. Operations work on `game`; flags are ints that hold
// 0 or 1, as they do in the files.
#pragma once

#include "state/player.h"
#include "state/scroll.h"
#include "state/session.h"
#include "state/world.h"

#include <cstdint>

namespace morvek {

class Roster;
struct Encounter;
struct Scores;

// The roster, the encounter and the scores are defined in headers of their own, which the files
// that use them include: a change there compiles only these.
struct GameState {
    Player player;
    Session session;
    World world;
    Scroll scroll;
    Roster& roster;
    Encounter& encounter;
    Scores& scores;
};

extern GameState game;

// Sets all of `game` to its defaults.
void resetGame();

// The day stamp's text as a number.
std::int32_t dayNumber();

} // namespace morvek
