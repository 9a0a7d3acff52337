// A change of the game's files: a transaction under the game's lock, in which the files are read
// anew, a backup is made, and all new contents are written before the first file is replaced.
#pragma once

#include "sysop/backup.h"

#include <ostream>
#include <set>
#include <string>

namespace morvek {

class Change {
public:
    // Takes the lock; throws Failure when another program does not let go of it.
    explicit Change(const GameDirectory& home);

    // Throws Failure when anybody is in the game, whose saves would undo the change.
    void refuseWhilePlayed() const;

    // Notes what the file shall hold, or that it shall go.
    void write(const std::string& name, std::string content);
    void remove(const std::string& name);

    // Makes a backup, says where it is, and changes the files that were noted. The backup `kept`
    // stays.
    void commit(std::ostream& out, const fs::path& kept = {});

private:
    const GameDirectory& home_;
    Transaction transaction_;
    Contents written_;
    std::set<std::string> removed_;
};

} // namespace morvek
