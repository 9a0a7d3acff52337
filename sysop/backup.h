// Backups of the data files: characters, board, scores, bulletins, news. The display files and the
// configuration are the operator's own; no backup holds them and no verb changes them.
//
// A backup is a directory of plain files, backup/YYYYMMDD-HHMMSS in the game's data directory, with
// ".2", ".3", ... behind it for more within a second. It is written under a name that ends in
// ".new" and renamed when it is complete. The newest 50 are kept. A backup in a directory of the
// operator's choice stays until he removes it.
#pragma once

#include "sysop/game_directory.h"

#include <cstddef>
#include <ostream>
#include <string>

namespace morvek {

constexpr std::size_t backupsKept = 50;

// Writes a backup to the directory, which must not exist, or to a new one in backup/ when its name
// is empty, and returns its path; throws Failure when it cannot be written.
std::string makeBackup(const GameDirectory& home, const std::string& directory = {});

// Makes a backup and says where it is; every verb does so before it changes anything.
void backUp(const GameDirectory& home, std::ostream& out, const std::string& directory = {});

// Lists the backups of the game, newest last, with their players.
void listBackups(const GameDirectory& home, std::ostream& out);

// Puts the data files back as the backup holds them; files that it does not hold go. The backup is
// a directory, or the name of one in backup/.
void restoreBackup(const GameDirectory& home, const std::string& named, std::ostream& out);

// Removes all data files: a new season.
void beginSeason(const GameDirectory& home, std::ostream& out);

} // namespace morvek
