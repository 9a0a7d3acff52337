// Backups of the data files: characters, board, scores, bulletins, news. The display files and the
// configuration are the operator's own; no backup holds them and no verb changes them.
//
// A backup is a directory of plain files, named YYYYMMDD-HHMMSS, with ".2", ".3", ... behind it for
// more within a second. The operator's are in backup/ of the game's data directory, those that a
// change makes in backup/auto/; the newest 50 of each are kept. It is written under a name that
// ends in ".new" and renamed when it is complete. A backup in a directory of the operator's choice
// stays until he removes it.
#pragma once

#include "sysop/game_directory.h"

#include <map>
#include <ostream>
#include <string>

namespace morvek {

inline constexpr const char* ownBackups = "backup";
inline constexpr const char* automaticBackups = "backup/auto";

// Contents by the names of the data files.
using Contents = std::map<std::string, std::string>;

// Writes a backup and returns its path, in a transaction that the caller holds: to a new directory
// in that one of the game's, or to the directory of the name, which must not exist. The backup
// `kept` is not removed for it. Throws Failure when it cannot be written.
fs::path makeBackup(const GameDirectory& home, const std::string& in, const fs::path& kept = {});
fs::path makeBackupIn(const GameDirectory& home, const fs::path& directory);

// Lists the backups of the game, with their players.
void listBackups(const GameDirectory& home, bool asJson, std::ostream& out);

// The directory of that backup, which may be the name of one of the game's.
fs::path findBackup(const GameDirectory& home, const std::string& named);

// What the backup holds; throws Failure when it is no backup of this game.
Contents readBackup(const fs::path& path);

// "3 files, 2 players"
std::string summaryOf(const Contents& files);

} // namespace morvek
