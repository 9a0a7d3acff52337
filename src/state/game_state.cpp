#include "state/game_state.h"

#include <cstdlib>

namespace morvek {

GameState game;

PlayerRecord* slotOfCurrentNumber() {
    const std::int32_t number = game.session.currentSlot;
    if (number < 0 || number >= static_cast<std::int32_t>(slotCount)) {
        return nullptr;
    }
    return &game.roster.slots()[static_cast<std::size_t>(number)];
}

std::int32_t dayNumber() {
    return static_cast<std::int32_t>(std::strtol(game.session.dateStamp.c_str(), nullptr, 10));
}

} // namespace morvek
