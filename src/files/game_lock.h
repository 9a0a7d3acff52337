// The lock by which any number of calls and the operator's tool share the files of a game.
//
// morvek.lock, in the game's directory, stays empty. What counts are the byte ranges of it that a
// process has locked (F_OFD_SETLK); they end with the process, however it ends.
//
//   0          held for a transaction: reading the files and replacing them
//   1          held by the one who is next to get byte 0; the others wait for this byte
//   2          held by the one who has taken the messages out of the board's file to add one
//   2^32 on    a byte for each user who is inside, its place hashed from his name
//
// On a file system without locks, and where the file cannot be opened for writing, every lock is
// granted.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include <sys/types.h>

namespace morvek {

inline constexpr const char* lockFileName = "morvek.lock";

class GameLock {
public:
    explicit GameLock(std::string path);
    ~GameLock();
    GameLock(const GameLock&) = delete;
    GameLock& operator=(const GameLock&) = delete;

    // Marks the user as inside, in a transaction of its own; false, and nothing is marked, when
    // another process has marked him. A user without a name is not marked.
    bool enter(std::string_view user);

    // Takes the mark away.
    void leave();

    // Whether another process has marked the user as inside.
    bool isInside(std::string_view user);

    // Whether another process has marked any user as inside.
    bool isAnybodyInside();

    // Marks the process as the one that has taken the board, or takes the mark away.
    void setBoardTaken(bool taken);

    // Whether another process has taken the board.
    bool isBoardTaken();

    // Whether the file system has locks, as far as a transaction has shown.
    [[nodiscard]] bool works() const { return works_; }

private:
    friend class Transaction;

    using Moment = std::chrono::steady_clock::time_point;
    enum class Outcome { taken, busy, unsupported };

    bool begin();
    void end();
    bool openToLock();
    bool openToAsk();
    void close();
    Outcome tryToTake(off_t byte, short type);
    bool waitFor(off_t byte, Moment deadline);
    void release(off_t byte);
    bool othersHold(off_t first, off_t length);

    std::string path_;
    int descriptor_ = -1;
    bool mayLock_ = false; // the file is open for writing
    bool works_ = true;
    off_t userByte_ = 0; // 0 while no user is marked
    bool boardTaken_ = false;
    std::chrono::milliseconds patience_;
};

// The lock of the game in the current directory.
extern GameLock gameLock;

// Keeps all other processes out of the game's files as long as it lives. It waits for them almost
// two seconds, and only briefly after a wait in vain, until a wait ends well again.
class Transaction {
public:
    explicit Transaction(GameLock& lock) : lock_(lock), held_(lock.begin()) {}
    ~Transaction() { lock_.end(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // Whether files may be written; false when another process did not let go of them in time.
    [[nodiscard]] bool mayWrite() const { return held_; }

private:
    GameLock& lock_;
    bool held_;
};

} // namespace morvek
