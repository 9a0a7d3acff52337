// The lock of a game, shared by two calls that have it open.
#include "files/game_lock.h"

#include "support/temporary_directory.h"

#include <chrono>

struct SharedLock : InTemporaryDirectory {
    GameLock mine{lockFileName};
    GameLock other{lockFileName};
};

TEST_F(SharedLock, MarksAUserOnce) {
    EXPECT_TRUE(mine.enter("Alice"));
    EXPECT_FALSE(other.enter("Alice"));
    EXPECT_TRUE(other.isInside("Alice"));
    EXPECT_FALSE(mine.isInside("Alice")) << "not in another call";
    EXPECT_TRUE(other.enter("alice"));
    mine.leave();
    EXPECT_TRUE(other.enter("Alice"));
    EXPECT_TRUE(mine.enter("") && other.enter("")) << "nameless callers are nobody";
    EXPECT_EQ(readFile(lockFileName), "");
}

TEST_F(SharedLock, MarkMovesToANewFile) {
    mine.enter("Alice");
    fs::remove(lockFileName);
    const Transaction transaction(mine);
    EXPECT_TRUE(other.isInside("Alice"));
}

TEST_F(SharedLock, IsGivenUpWithinTwoSeconds) {
    const auto began = std::chrono::steady_clock::now();
    {
        const Transaction first(mine);
        for (int i = 0; i < 5; ++i) {
            EXPECT_FALSE(Transaction(other).mayWrite());
        }
    }
    const auto waited = std::chrono::steady_clock::now() - began;
    EXPECT_GT(waited, std::chrono::milliseconds(1700));
    EXPECT_LT(waited, std::chrono::milliseconds(2500));
    EXPECT_TRUE(Transaction(other).mayWrite());
}

TEST_F(SharedLock, IsForAllWhoMayWriteInTheDirectory) {
    EXPECT_TRUE(Transaction(mine).mayWrite());
    EXPECT_EQ(fs::status(lockFileName).permissions(), fs::perms{0666});
    fs::remove(lockFileName);
    fs::create_directory(lockFileName); // as where it cannot be opened, everything is granted
    const Transaction first(mine);
    EXPECT_TRUE(Transaction(other).mayWrite());
    EXPECT_TRUE(mine.enter("Alice") && other.enter("Alice"));
}
