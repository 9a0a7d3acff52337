// The bestiary. A kind's experience die gives a monster 1 to that many points; its gold is a whole
// multiple of the experience it drew, up to the gold die. Five kinds name no gold die and take the
// one that the kind before them left behind. The Goblin Blackblade rolls no damage of its own: it
// takes whatever was rolled last, anywhere in the game.

#include "combat/bestiary.h"

#include "state/dice.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "state/row_text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace morvek {
namespace {

// The damage die: a roll and a number to add, or the number alone where nothing is rolled.
struct DamageDie {
    void (*roll)();
    std::int32_t plus;
};

constexpr DamageDie fixed(std::int32_t sides) { return {nullptr, sides}; }

// Leaves the last roll as it stands.
void lastRoll() {}

// A gold die of 0 in the table.
constexpr std::int32_t kept = 0;

struct KindRow {
    MonsterKind kind;
    RowText<24> name;
    RowText<8> size;
    RowText<20> origin;
    RowText<8> keyword;
    RowText<12> role;
    RowText<12> alignment;
    std::int32_t hitPoints;
    DamageDie damage;
    std::int32_t initiative;
    std::int32_t experienceDie;
    std::int32_t goldDie;
    std::array<std::int32_t, 9> stats;
};

constexpr std::string_view small = "Small";
constexpr std::string_view medium = "Medium";
constexpr std::string_view humanoid = "Natural Humanoid";
constexpr std::string_view animate = "Natural Animate";
constexpr std::string_view beast = "Natural Beast";
constexpr std::string_view undead = "Undead";
constexpr std::string_view minion = "Minion";
constexpr std::string_view skirmisher = "Skirmisher";
constexpr std::string_view soldier = "Soldier";
constexpr std::string_view artillery = "Artillery";
constexpr std::string_view brute = "Brute";
constexpr std::string_view lurke = "Lurke";
constexpr std::string_view evil = "Evil";
constexpr std::string_view unaligned = "Unaligned";

using enum MonsterKind;

// clang-format off
constexpr std::array<KindRow, monsterKindCount> bestiary{{
    // kind              name                  size    origin    keyword role        alignment
    //     HP  damage         initiative  experience  gold   stat1 to stat9
    {koboldMinion,      "Kobold Minion",       small,  humanoid, "",     minion,     evil,
          1, fixed(4),        19,   30,    3, {10,  8, 13, 13,  7, 6, 15,  3, 1}},
    {koboldSkirmisher,  "Kobold Skirmisher",   small,  humanoid, "",     skirmisher, evil,
         27, {rollD8, 0},     19,  125,   27, {17,  4, 11, 10,  7, 6, 15,  5, 1}},
    {goblinCutter,      "Goblin Cutter",       small,  humanoid, "",     minion,     evil,
          1, fixed(4),        20,   35,    3, { 7,  7, 14, 13, 12, 6, 16,  3, 1}},
    {goblinBlackblade,  "Goblin Blackblade",   small,  humanoid, "",     lurke,      evil,
         25, {lastRoll, 2},   20,  145,   25, { 7,  7, 14, 13, 16, 6, 16,  7, 1}},
    {decrepitSkeleton,  "Decrepit Skeleton",   medium, animate,  undead, minion,     unaligned,
          1, fixed(4),        20,   50,    3, {-1, -1, 14, 16, 17, 6, 16,  3, 1}},
    {skeleton,          "Skeleton",            medium, animate,  undead, soldier,    unaligned,
         45, fixed(10),       21,  300,    3, { 0,  0, 15, 17, 18, 5, 18,  6, 3}},
    {blazingSkeleton,   "Blazing Skeleton",    medium, animate,  undead, artillery,  unaligned,
         53, fixed(8),        24,  400,    3, { 6,  3, 22, 19, 16, 6, 19,  6, 5}},
    {boneshardSkeleton, "Boneshard Skeleton",  medium, animate,  undead, brute,      unaligned,
         77, fixed(9),        21,  400,   12, { 1,  1, 22, 18, 21, 6, 17,  5, 5}},
    {giantRat,          "Giant Rat",           small,  beast,    "",     minion,     unaligned,
          1, fixed(3),        20,   30,    3, { 4, -2, 13, 10, 13, 6, 15,  3, 1}},
    {zombieRotter,      "Zombie Rotter",       medium, animate,  undead, minion,     unaligned,
          1, fixed(5),         4,   75,    3, {-1, -4, 10,  7, 16, 4, 13, -2, 3}},
    {zombie,            "Zombie",              medium, animate,  undead, brute,      unaligned,
         40, {roll2D6, 2},     5,  150,   40, { 0, -3,  9,  8, 17, 4, 13, -1, 2}},
    {fireBeetle,        "Fire Beetle",         small,  beast,    "",     brute,      unaligned,
         32, {roll2D4, 2},    13,  125,   32, { 7, -4, 13, 10, 16, 6, 13,  1, 1}},
    {gravehound,        "Gravehound",          medium, animate,  undead, brute,      unaligned,
         54, {rollD6, 3},     15,  200,   54, { 0, -3, 17, 11, 18, 8, 14,  2, 3}},
    {halflingStout,     "Halfling Stout",      small,  humanoid, "",     minion,     evil,
          1, fixed(4),        18,   50, kept, {17, 11, 11,  9, 12, 6, 16,  3, 1}},
    {halflingSlinger,   "Halfling Slinger",    small,  humanoid, "",     artillery,  evil,
         22, {rollD4, 4},     22,   50,   22, {16, 10, 10, 11, 13, 6, 15,  4, 1}},
    {humanRabble,       "Human Rabble",        medium, humanoid, "",     minion,     evil,
          1, {rollD4, 4},     10,   65, kept, {11,  8, 13, 10, 16, 6, 15,  0, 2}},
    {humanBandit,       "Human Bandit",        medium, humanoid, "",     skirmisher, evil,
         37, {rollD8, 1},     21,  150, kept, {14, 11, 15, 12, 14, 6, 16,  6, 2}},
    {humanGuard,        "Human Guard",         medium, humanoid, "",     soldier,    evil,
         47, {rollD10, 1},    17,  200, kept, {14, 11, 18, 12, 20, 5, 18,  5, 3}},
    {humanBerserker,    "Human Berserker",     medium, humanoid, "",     brute,      evil,
         66, {rollD12, 1},    15,  250, kept, {15, 12, 21, 13, 22, 7, 15,  3, 4}},
}};
// clang-format on

constexpr bool rowsAreInOrder() {
    for (std::size_t at = 0; at < bestiary.size(); ++at) {
        if (bestiary[at].kind != static_cast<MonsterKind>(at)) {
            return false;
        }
    }
    return true;
}

static_assert(rowsAreInOrder());
static_assert(std::ranges::all_of(bestiary,
                                  [](const KindRow& row) { return *row.name.text() != '\0'; }));

const KindRow& rowOf(MonsterKind kind) { return bestiary[static_cast<std::size_t>(kind)]; }

void setDamage(Monster& monster, const DamageDie& die) {
    monster.damage = die.plus;
    if (die.roll != nullptr) {
        die.roll();
        monster.damage += game.encounter.lastRoll;
    }
}

void setGold(Monster& monster, std::int32_t goldDie) {
    if (goldDie != kept) {
        game.encounter.goldDie = goldDie;
    }
    rollGoldDie();
    monster.gold = static_cast<double>(game.encounter.lastRoll) * monster.experience;
}

void setStats(Monster& monster, const std::array<std::int32_t, 9>& stats) {
    monster.stat1 = stats[0];
    monster.stat2 = stats[1];
    monster.stat3 = stats[2];
    monster.stat4 = stats[3];
    monster.stat5 = stats[4];
    monster.stat6 = stats[5];
    monster.stat7 = stats[6];
    monster.stat8 = stats[7];
    monster.stat9 = stats[8];
}

} // namespace

std::string_view monsterName(MonsterKind kind) { return rowOf(kind).name.text(); }

// The draws come in this order: experience, then damage, then gold.
void setUpMonster(MonsterKind kind) {
    const KindRow& row = rowOf(kind);
    Monster& monster = game.encounter.monster;
    monster.name = row.name.text();
    monster.size = row.size.text();
    monster.origin = row.origin.text();
    monster.keyword = row.keyword.text();
    monster.role = row.role.text();
    monster.alignment = row.alignment.text();
    monster.maxHitPoints = row.hitPoints;
    monster.hitPoints = row.hitPoints;
    monster.initiative = row.initiative;
    setStats(monster, row.stats);
    monster.experience = draw(row.experienceDie) + 1;
    setDamage(monster, row.damage);
    setGold(monster, row.goldDie);
    monster.monsterReady = 1;
}

} // namespace morvek
