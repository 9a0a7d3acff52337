// What a caller costs who walks and fights: a step, with all that the room shows; the way back
// through all visits; a round of a fight; a save of his character.
#include "heap_meter.h"
#include "quiet_caller.h"

#include "characters/character_file.h"
#include "combat/bestiary.h"
#include "combat/fight.h"
#include "state/game_state.h"
#include "world/walk.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <unistd.h>

using namespace morvek;
using namespace morvek::bench;

namespace {

using Clock = std::chrono::steady_clock;

double secondsBetween(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

// To and fro between locations 1 and 2, then home.
struct Walk {
    static constexpr long steps = 1'000'000;
    static constexpr long sample = 100'000;

    long taken = 0;
    Clock::time_point begun{};
    Clock::time_point firstSampled{};
    Clock::time_point lastSampled{};
    Clock::time_point turnedBack{};
};

Walk walk;

char nextStep() {
    if (walk.taken == Walk::sample) {
        walk.firstSampled = Clock::now();
    }
    if (walk.taken == Walk::steps - Walk::sample) {
        walk.lastSampled = Clock::now();
    }
    if (walk.taken == Walk::steps) {
        walk.turnedBack = Clock::now();
        return 'f';
    }
    return walk.taken++ % 2 == 0 ? '8' : '2';
}

void beginGame() {
    game = GameState{};
    game.player.level = 1;
    game.player.hitPoints = 1'000'000'000;
    game.player.maxHitPoints = 1'000'000'000;
    game.player.turnsLeft = 30;
    game.player.weaponNumber = 1;
    game.player.armourNumber = 1;
    game.world.cleared(1) = 1;
    game.world.cleared(2) = 1;
}

void aMillionSteps(benchmark::State& state) {
    for (auto _ : state) {
        beginGame();
        quietKey = nextStep;
        const std::size_t heldBefore = heldBytes();
        resetHeapMeter();
        walk = Walk{.begun = Clock::now()};
        walkFrom(1);
        const Clock::time_point home = Clock::now();
        const double nano = 1e9 / Walk::sample;
        state.counters["ns/step, first 100k"] =
            secondsBetween(walk.begun, walk.firstSampled) * nano;
        state.counters["ns/step, last 100k"] =
            secondsBetween(walk.lastSampled, walk.turnedBack) * nano;
        state.counters["ms to unwind"] = secondsBetween(walk.turnedBack, home) * 1e3;
        state.counters["bytes/step"] =
            static_cast<double>(mostHeldBytes() - heldBefore) / Walk::steps;
    }
}
BENCHMARK(aMillionSteps)->Unit(benchmark::kMillisecond);

void aFightRound(benchmark::State& state) {
    beginGame();
    setUpMonster(MonsterKind::skeleton);
    for (auto _ : state) {
        game.encounter.monsterCount = 3;
        game.encounter.monster.hitPoints = 1000;
        rollPlayerCombatValues();
        fightRound();
    }
}
BENCHMARK(aFightRound);

void aSave(benchmark::State& state) {
    std::array<char, 32> directory{"/tmp/morvek_bench_XXXXXX"};
    if (mkdtemp(directory.data()) == nullptr || chdir(directory.data()) != 0) {
        state.SkipWithError("no directory to save into");
        return;
    }
    beginGame();
    for (auto _ : state) {
        savePlayer();
    }
    unlink(game.session.characterFileName.c_str());
    if (chdir("/") != 0 || rmdir(directory.data()) != 0) {
        state.SkipWithError("the directory was left behind");
    }
}
BENCHMARK(aSave);

} // namespace
