// A long walk in one call: what a step costs, and how long the way home is.
#include "bench/heap_meter.h"
#include "bench/quiet_caller.h"
#include "state/game_state.h"
#include "world/walk.h"

#include <ctime>
#include <gtest/gtest.h>

using namespace morvek;
using namespace morvek::bench;

namespace {

constexpr long steps = 262'150; // just beyond a power of two, where a growing chain holds most

long taken = 0;
std::clock_t turnedBack = 0;

// To and fro between locations 1 and 2, now and then with a redraw; then home.
char nextKey() {
    if (taken == steps) {
        turnedBack = std::clock();
        return 'f';
    }
    ++taken;
    return taken % 64 == 0 ? 's' : game.world.currentLocation == 1 ? '8' : '2';
}

} // namespace

TEST(WalkLength, StepsCostFewBytesAndLittleTime) {
    resetGame();
    game.player.turnsLeft = 30;
    game.world.words.fill(1);
    quietKey = nextKey;
    const std::size_t before = heldBytes();
    resetHeapMeter();
    walkFrom(1);
    EXPECT_LT(std::clock() - turnedBack, CLOCKS_PER_SEC / 2);
    EXPECT_LE(mostHeldBytes() - before, 16U * steps);
    EXPECT_LE(heldBytes(), before + 4096U);
}
