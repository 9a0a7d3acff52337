// The nineteen kinds of monster that live in the world. The opponent at hand is game.encounter's
// monster; setting a kind up replaces it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace morvek {

enum class MonsterKind : std::uint8_t {
    koboldMinion,
    koboldSkirmisher,
    goblinCutter,
    goblinBlackblade,
    decrepitSkeleton,
    skeleton,
    blazingSkeleton,
    boneshardSkeleton,
    giantRat,
    zombieRotter,
    zombie,
    fireBeetle,
    gravehound,
    halflingStout,
    halflingSlinger,
    humanRabble,
    humanBandit,
    humanGuard,
    humanBerserker,
};

constexpr std::size_t monsterKindCount = 19;

// The kind's name as the caller reads it: 1 to 23 characters.
std::string_view monsterName(MonsterKind kind);

// Makes a fresh monster of the kind the opponent at hand, with its own experience, gold and
// damage die, and sets its `monsterReady`.
void setUpMonster(MonsterKind kind);

template <MonsterKind kind>
void setUp() {
    setUpMonster(kind);
}

using SetUp = void (*)();

// One set-up operation for each kind.
constexpr SetUp setUpKoboldMinion = setUp<MonsterKind::koboldMinion>;
constexpr SetUp setUpKoboldSkirmisher = setUp<MonsterKind::koboldSkirmisher>;
constexpr SetUp setUpGoblinCutter = setUp<MonsterKind::goblinCutter>;
constexpr SetUp setUpGoblinBlackblade = setUp<MonsterKind::goblinBlackblade>;
constexpr SetUp setUpDecrepitSkeleton = setUp<MonsterKind::decrepitSkeleton>;
constexpr SetUp setUpSkeleton = setUp<MonsterKind::skeleton>;
constexpr SetUp setUpBlazingSkeleton = setUp<MonsterKind::blazingSkeleton>;
constexpr SetUp setUpBoneshardSkeleton = setUp<MonsterKind::boneshardSkeleton>;
constexpr SetUp setUpGiantRat = setUp<MonsterKind::giantRat>;
constexpr SetUp setUpZombieRotter = setUp<MonsterKind::zombieRotter>;
constexpr SetUp setUpZombie = setUp<MonsterKind::zombie>;
constexpr SetUp setUpFireBeetle = setUp<MonsterKind::fireBeetle>;
constexpr SetUp setUpGravehound = setUp<MonsterKind::gravehound>;
constexpr SetUp setUpHalflingStout = setUp<MonsterKind::halflingStout>;
constexpr SetUp setUpHalflingSlinger = setUp<MonsterKind::halflingSlinger>;
constexpr SetUp setUpHumanRabble = setUp<MonsterKind::humanRabble>;
constexpr SetUp setUpHumanBandit = setUp<MonsterKind::humanBandit>;
constexpr SetUp setUpHumanGuard = setUp<MonsterKind::humanGuard>;
constexpr SetUp setUpHumanBerserker = setUp<MonsterKind::humanBerserker>;

} // namespace morvek
