// A long walk in one call: what a step costs, and how long the way home is.
#include "bench/heap_meter.h"
#include "bench/quiet_caller.h"
#include "state/game_state.h"
#include "world/walk.h"

#include <chrono>
#include <gtest/gtest.h>

using namespace morvek;
using namespace morvek::bench;
using Clock = std::chrono::steady_clock;

namespace {

constexpr long steps = 262'150; // just beyond a power of two, where a growing chain holds most

long taken = 0;
Clock::time_point turnedBack;

// To and fro between locations 1 and 2, now and then with a redraw; then home.
char nextKey() {
    if (taken == steps) {
        turnedBack = Clock::now();
        return 'f';
    }
    ++taken;
    return taken % 64 == 0 ? 's' : game.world.currentLocation == 1 ? '8' : '2';
}

} // namespace

TEST(WalkLength, AStepCostsFewBytesAndTheWayHomeIsShort) {
    game = GameState{};
    game.player.turnsLeft = 30;
    game.world.words.fill(1);
    quietKey = nextKey;
    const std::size_t before = heldBytes();
    resetHeapMeter();
    walkFrom(1);
    const std::chrono::duration<double> unwinding = Clock::now() - turnedBack;
    EXPECT_LE(mostHeldBytes() - before, 16U * steps);
    EXPECT_LE(heldBytes(), before + 4096U);
    EXPECT_LT(unwinding.count(), 0.5);
}
