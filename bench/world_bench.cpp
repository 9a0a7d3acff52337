// What a caller costs who walks and fights: a step, with all that the room shows; the way back
// through all visits; a round of a fight; a save of his character.
#include "heap_meter.h"
#include "quiet_caller.h"

#include "characters/character_file.h"
#include "combat/bestiary.h"
#include "combat/fight.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "state/roster.h"
#include "world/walk.h"

#include "OpenDoor.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <span>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace morvek;
using namespace morvek::bench;

namespace {

using Clock = std::chrono::steady_clock;

double secondsBetween(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double>(to - from).count();
}

// To and fro between locations 1 and 2, then home.
struct Walk {
    static constexpr std::int64_t sample = 100'000;

    std::int64_t steps = 0;
    std::int64_t taken = 0;
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
    if (walk.taken == walk.steps - Walk::sample) {
        walk.lastSampled = Clock::now();
    }
    if (walk.taken == walk.steps) {
        walk.turnedBack = Clock::now();
        return 'f';
    }
    return walk.taken++ % 2 == 0 ? '8' : '2';
}

void beginGame() {
    resetGame();
    game.player.level = 1;
    game.player.hitPoints = 1'000'000'000;
    game.player.maxHitPoints = 1'000'000'000;
    game.player.turnsLeft = 30;
    game.player.weaponNumber = 1;
    game.player.armourNumber = 1;
    game.world.cleared(1) = 1;
    game.world.cleared(2) = 1;
}

// A step may cost 16 bytes, and the last one no more time than the first.
void aWalk(benchmark::State& state) {
    for (auto _ : state) {
        beginGame();
        quietKey = nextStep;
        const std::size_t heldBefore = heldBytes();
        resetHeapMeter();
        walk = Walk{.steps = state.range(0), .begun = Clock::now()};
        walkFrom(1);
        const Clock::time_point home = Clock::now();
        const double nano = 1e9 / Walk::sample;
        state.counters["ns/step, first 100k"] =
            secondsBetween(walk.begun, walk.firstSampled) * nano;
        state.counters["ns/step, last 100k"] =
            secondsBetween(walk.lastSampled, walk.turnedBack) * nano;
        state.counters["ms to unwind"] = secondsBetween(walk.turnedBack, home) * 1e3;
        state.counters["bytes/step (of 16)"] =
            static_cast<double>(mostHeldBytes() - heldBefore) / static_cast<double>(walk.steps);
    }
}
BENCHMARK(aWalk)->Arg(1'000'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

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

// The least that makes a file of that size safe: written beside, flushed, renamed over.
bool replaceBarely(const char* name, std::span<const char> content) {
    const int file = open("bare.new", O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    const bool flushed =
        write(file, content.data(), content.size()) == std::ssize(content) && fsync(file) == 0;
    return close(file) == 0 && flushed && std::rename("bare.new", name) == 0;
}

double medianOf(std::vector<double>& values) {
    const auto middle = values.begin() + std::ssize(values) / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// A directory to save into, in the one that the benchmark is started in.
class ScratchDirectory {
public:
    ScratchDirectory() {
        if (mkdtemp(path_.data()) == nullptr || chdir(path_.c_str()) != 0) {
            std::perror(path_.c_str());
            std::exit(1);
        }
    }
    ~ScratchDirectory() {
        std::filesystem::current_path(home_);
        std::filesystem::remove_all(path_);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

private:
    std::filesystem::path home_ = std::filesystem::current_path();
    std::string path_ = home_ / "morvek_bench_XXXXXX";
};

// A save beside a bare replacement of 75,000 bytes, in turn in the directory the benchmark is
// started in: what the game adds to what the disk takes. It may take 1.5 times as long.
void aSave(benchmark::State& state) {
    const ScratchDirectory directory;
    beginGame();
    const std::vector<char> content(sizeof(Roster::Slots));
    std::vector<double> saves;
    std::vector<double> ratios;
    for (auto _ : state) {
        const Clock::time_point begun = Clock::now();
        savePlayer();
        const Clock::time_point between = Clock::now();
        if (!replaceBarely("bare.dat", content)) {
            state.SkipWithError("the disk does not take it");
        }
        const double bare = secondsBetween(between, Clock::now());
        saves.push_back(secondsBetween(begun, between));
        ratios.push_back(saves.back() / bare);
        state.SetIterationTime(saves.back());
    }
    state.counters["us, median"] = medianOf(saves) * 1e6;
    state.counters["times a bare one (of 1.5), median"] = medianOf(ratios);
}
BENCHMARK(aSave)->UseManualTime()->Iterations(500)->Unit(benchmark::kMicrosecond);

constexpr int savers = 20;
constexpr int savesOfEach = 100;

// Saves so often under a name of his own, and reports how long each save took.
[[noreturn]] void saveOften(int number, int results) {
    std::snprintf(od_control.user_name, sizeof od_control.user_name, "Saver %d", number);
    beginGame();
    readRoster();
    std::array<double, savesOfEach> seconds{};
    for (double& one : seconds) {
        game.player.gold += 1;
        const Clock::time_point begun = Clock::now();
        savePlayer();
        one = secondsBetween(begun, Clock::now());
    }
    _exit(write(results, seconds.data(), sizeof seconds) == sizeof seconds ? 0 : 1);
}

// How long the saves of so many callers took, each a process.
std::vector<double> saveTogether(int count) {
    std::array<int, 2> results{};
    if (pipe(results.data()) != 0) {
        return {};
    }
    for (int number = 0; number < count; ++number) {
        if (fork() == 0) {
            saveOften(number, results[1]);
        }
    }
    close(results[1]);
    std::vector<double> all;
    std::array<double, savesOfEach> seconds{};
    while (read(results[0], seconds.data(), sizeof seconds) == sizeof seconds) {
        all.insert(all.end(), seconds.begin(), seconds.end());
    }
    close(results[0]);
    while (wait(nullptr) > 0) {
    }
    return all;
}

// Twenty callers who do nothing but save. No save may be lost, and the longest may take twenty
// times as long as one of a caller alone.
void savesAtOnce(benchmark::State& state) {
    const ScratchDirectory directory;
    for (auto _ : state) {
        std::vector<double> alone = saveTogether(1);
        std::filesystem::remove("morchars.dat");
        std::vector<double> together = saveTogether(savers);
        readRoster();
        const auto& slots = game.roster.slots();
        const auto kept = std::count_if(slots.begin(), slots.end(), [](const PlayerRecord& slot) {
            return slot.gold == savesOfEach;
        });
        const double one = medianOf(alone);
        state.counters["lost (of 0)"] = static_cast<double>(savers - kept);
        state.counters["us, alone, median"] = one * 1e6;
        state.counters["us, alone, longest"] = *std::max_element(alone.begin(), alone.end()) * 1e6;
        state.counters["times one, longest (of 20)"] =
            *std::max_element(together.begin(), together.end()) / one;
        state.counters["times one, median"] = medianOf(together) / one;
    }
}
BENCHMARK(savesAtOnce)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
