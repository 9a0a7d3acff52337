// Backups of the data files: characters, board, scores, bulletins, news. The display files and the
// configuration are the operator's own; no backup holds them and no verb changes them.
//
// A backup goes to backup/YYYYMMDD-HHMMSS.tar in the game's data directory, with ".2", ".3", ...
// before the ending for more within a second. Of these the newest 50 are kept. A backup that was
// written to a file of the operator's choice stays until he removes it.
#pragma once

#include "sysop/game_directory.h"

#include <cstddef>
#include <ostream>
#include <string>

namespace morvek {

constexpr std::size_t backupsKept = 50;

// Writes a backup of what there is, to the file, or to one of its own when the file has no name,
// and returns its path; throws Failure when it cannot be written. No file is ever overwritten.
std::string makeBackup(const GameDirectory& home, const std::string& file = {});

// Makes a backup and says where it is; every verb does so before it changes anything.
void backUp(const GameDirectory& home, std::ostream& out, const std::string& file = {});

// Lists the backups of the game, newest last, with their players.
void listBackups(const GameDirectory& home, std::ostream& out);

// Puts the data files back as the backup holds them; files that it does not hold go. The backup is
// a file, or the name of one in the backup directory.
void restoreBackup(const GameDirectory& home, const std::string& named, std::ostream& out);

// Removes all data files: a new season.
void resetGame(const GameDirectory& home, std::ostream& out);

} // namespace morvek
