// A long walk in one call: what its steps cost, the way home included.
#include "bench/heap_meter.h"
#include "bench/quiet_caller.h"
#include "state/game_state.h"
#include "world/walk.h"

#include <ctime>
#include <gtest/gtest.h>

using namespace morvek;

TEST(WalkLength, StepsCostFewBytesAndLittleTime) {
    constexpr int steps = 262'150; // just beyond a power of two, where a growing chain holds most
    static int taken = 0;
    resetGame();
    game.player.turnsLeft = 30;
    game.world.words.fill(1);
    bench::quietKey = [] { return ++taken > steps ? 'f' : taken % 2 == 1 ? '8' : '2'; };
    const std::size_t before = bench::heldBytes();
    bench::resetHeapMeter();
    const std::clock_t start = std::clock();
    walkFrom(1);
    EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
    EXPECT_LE(bench::mostHeldBytes() - before, 16U * steps);
}
