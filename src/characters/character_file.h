// The character file: 50 records of 1500 bytes, no header, an image of the roster in memory. Every
// load reads it whole into the roster, every save writes the roster whole. A slot is free when its
// ownerName is empty; it belongs to a door user, not to a character's name.
//
// Other calls save into the same file. So a save is one transaction: it reads the file anew, takes
// each slot that others have changed into the roster, and stores the player in that roster.
//
// A file that cannot be read loads nothing, and is not written by the game that began so; it and
// one that cannot be written make a save do nothing at all, silently, and play goes on with the
// roster in memory.
#pragma once

#include "state/player_record.h"

#include <cstdint>

namespace morvek {

// Reads the file into the roster; false when it cannot be read, and then the roster stays as it
// was. So does its rest when the file is short.
bool readRoster();

// Reads the file and finds the caller's character in slots 0 to 48, giving it a new day's turns
// when the day has changed; or has a new character created and saved.
void loadPlayer();

// Saves the player into the first of slots 0 to 48 that is the caller's own or free.
void savePlayer();

// Saves the player with full hit points, and of the world only the searched places, into the first
// of slots 0 to 49 that is the caller's own or free.
void savePlayerHealed();

// Saves the player's possessions into slot 0, even if another caller owns it.
void saveQuick();

struct Robbery {
    double gold = 0.0;      // what was taken
    bool isPlaying = false; // nothing was, because the player has come into the game meanwhile
};

// Takes the gold on hand of the character in that slot, if there is any, and then saves as
// saveQuick() does.
Robbery robPlayer(std::int32_t slot);

// Whether the slot's owner is inside the game in another call.
bool isPlaying(const PlayerRecord& slot);

// The caller's own slot among 0 to 48, or null when he has none.
PlayerRecord* ownSlot();

} // namespace morvek
