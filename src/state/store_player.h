// The player in `game`, copied to and from his record.
#pragma once

#include "state/player_record.h"

namespace morvek {

// What a save puts into the slot. healed: `hitPoints` is stored as `maxHitPoints`, and of the world
// only the `searched` flags are stored.
enum class StoreKind { whole, healed };

// Copies the player in `game` into the slot; version, slotIndex, lastPlayedDay and the record's
// unused words keep what they hold.
void storePlayer(PlayerRecord& slot, StoreKind kind);

// Copies the slot into the player in `game`; bbsName, version, onlineFlag and inUse are not read.
void restorePlayer(const PlayerRecord& slot);

// Copies only possessions, scores, hit points and turns of the player in `game` into the slot,
// and leaves it the names it has.
void storePossessions(PlayerRecord& slot);

} // namespace morvek
