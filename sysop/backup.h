// Changes of the data files (characters, board, scores, bulletins, news) and the backups that are
// made before them. The display files and the configuration are the operator's own; no backup holds
// them and no verb changes them.
//
// A backup is a directory of plain files, named YYYYMMDD-HHMMSS, with ".2", ".3", ... behind it for
// more within a second. The operator's are in backup/ of the game's data directory, those that a
// change makes in backup/auto/; the newest 50 of each are kept. It is written under a name that
// ends in ".new" and renamed when it is complete.
#pragma once

#include "sysop/game_directory.h"

#include <map>
#include <optional>
#include <ostream>
#include <string>

namespace morvek {

// Contents by the names of the data files; nothing for a file that is to be removed.
using Contents = std::map<std::string, std::optional<std::string>>;

// A transaction under the game's lock. All new contents are written before a file is replaced.
class Change {
public:
    // Takes the lock; throws Failure when another program does not let go of it.
    explicit Change(const GameDirectory& home);

    // Throws Failure when anybody is in the game, whose saves would undo the change, unless forced.
    void refuseWhilePlayed(bool forced) const;

    // Makes a backup, says where it is, and changes the files. The backup `kept` stays.
    void commit(const Contents& files, std::ostream& out, const fs::path& kept = {}) const;

    // Makes the operator's backup, in that new directory or, if its name is empty, in backup/.
    void backUp(const std::string& directory, std::ostream& out) const;

private:
    GameDirectory home_;
    Transaction transaction_;
};

// Lists the backups of the game, with their players.
void listBackups(const GameDirectory& home, bool asJson, std::ostream& out);

// Puts the data files back as the backup holds them; files that it does not hold go. The backup is
// a directory, or the name of one of the game's.
void restoreBackup(const GameDirectory& home, const std::string& named, bool forced,
                   std::ostream& out);

// Removes all data files: a new season.
void beginSeason(const GameDirectory& home, bool forced, std::ostream& out);

} // namespace morvek
