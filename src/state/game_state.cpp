#include "state/game_state.h"

#include "state/encounter.h"
#include "state/roster.h"
#include "state/scores.h"

#include <cstdlib>

namespace morvek {
namespace {

Roster roster;
Encounter encounter;
Scores scores;

} // namespace

GameState game{.player = {},
               .session = {},
               .world = {},
               .scroll = {},
               .roster = roster,
               .encounter = encounter,
               .scores = scores};

void resetGame() {
    game.player = {};
    game.session = {};
    game.world = {};
    game.scroll = {};
    roster = {};
    encounter = {};
    scores = {};
}

std::int32_t dayNumber() {
    return static_cast<std::int32_t>(std::strtol(game.session.dateStamp.c_str(), nullptr, 10));
}

} // namespace morvek
