// What a room shows, text by text.
#pragma once

#include "world/world_map.h"

namespace morvek {

void showTitle(const Room& room);

// Who the player has met, and how both are; nothing when no monster is alive or none is left.
void showEncounter(const Room& room);

// The exits and what else the movement menu takes.
void showDirections(const Room& room);

// What the encounter menu takes.
void showEncounterChoices(const Room& room);

// The message of the last room of all, once in a run of the game.
void showFinding();

void showReturning();
void showUnderDevelopment();
void showAlreadySearched();
void showExhausted();

} // namespace morvek
