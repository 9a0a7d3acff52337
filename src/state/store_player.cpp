#include "state/store_player.h"

#include "state/game_state.h"

#include <span>

namespace morvek {
namespace {

enum class Copied { bothWays, whenRead, whenWritten };

// A run of stored words: from a record's byte offset on, the words first, first - 1, ..., last.
struct WordRun {
    std::size_t offset;
    std::size_t first;
    std::size_t last;
    Copied copied = Copied::bothWays;
};

constexpr std::array<WordRun, 11> wordRuns{{
    {272, 233, 205},
    {392, 204, 158},
    {580, 310, 296},
    {640, 294, 281},
    {700, 280, 234},
    {888, 156, 122},
    {1028, 120, 86},
    {1168, 84, 50},
    {1168, 48, 14, Copied::whenRead},
    {1308, 84, 50, Copied::whenWritten},
    {1448, 12, 0},
}};

// The healed save stores only the `searched` flags: the first two runs.
constexpr std::size_t healedRuns = 2;

constexpr std::size_t firstStored(const WordRun& run) {
    return (run.offset - offsetof(PlayerRecord, worldState)) / sizeof(std::int32_t);
}

void storeWords(PlayerRecord& slot, std::span<const WordRun> runs) {
    for (const WordRun& run : runs) {
        for (std::size_t i = 0; run.copied != Copied::whenRead && i <= run.first - run.last; ++i) {
            slot.worldState[firstStored(run) + i] = game.world.words[run.first - i];
        }
    }
}

void restoreWords(const PlayerRecord& slot) {
    for (const WordRun& run : wordRuns) {
        for (std::size_t i = 0; run.copied != Copied::whenWritten && i <= run.first - run.last;
             ++i) {
            game.world.words[run.first - i] = slot.worldState[firstStored(run) + i];
        }
    }
}

} // namespace

void storePossessions(PlayerRecord& slot) {
    const Player& player = game.player;
    slot.experience = player.experience;
    slot.gold = player.gold;
    slot.bankGold = player.bankGold;
    slot.experienceNeeded = player.experienceNeeded;
    slot.hitPoints = player.hitPoints;
    slot.maxHitPoints = player.maxHitPoints;
    slot.strength = player.strength;
    slot.constitution = player.constitution;
    slot.dexterity = player.dexterity;
    slot.intelligence = player.intelligence;
    slot.wisdom = player.wisdom;
    slot.charisma = player.charisma;
    slot.weaponNumber = player.weaponNumber;
    slot.weapon.assign(player.weapon);
    slot.armourNumber = player.armourNumber;
    slot.armour.assign(player.armour);
    slot.turnsLeft = player.turnsLeft;
    slot.turnsPerDay = player.turnsPerDay;
    slot.reservedCounter = player.reservedCounter;
    slot.inUse = 1;
    slot.afterInUse.fill(0);
}

void storePlayer(PlayerRecord& slot, StoreKind kind) {
    const Player& player = game.player;
    slot.bbsName.assign(game.session.doorUserName);
    slot.ownerName.assign(game.session.doorUserName);
    slot.onlineFlag = game.session.inGame == 1 ? 1 : 0;
    slot.name.assign(player.name);
    slot.className.assign(player.className);
    slot.level = player.level;
    storePossessions(slot);
    slot.currentLocation = game.world.currentLocation;
    if (kind == StoreKind::healed) {
        slot.hitPoints = player.maxHitPoints;
        storeWords(slot, std::span(wordRuns).first(healedRuns));
    } else {
        storeWords(slot, wordRuns);
    }
}

void restorePlayer(const PlayerRecord& slot) {
    Player& player = game.player;
    player.name = slot.name.view();
    game.session.doorUserName = slot.ownerName.view();
    game.session.currentSlot = slot.slotIndex;
    game.session.storedDay = slot.lastPlayedDay;
    game.world.currentLocation = slot.currentLocation;
    player.className = slot.className.view();
    player.weapon = slot.weapon.view();
    player.armour = slot.armour.view();
    player.gold = slot.gold;
    player.bankGold = slot.bankGold;
    player.level = slot.level;
    player.experience = slot.experience;
    player.experienceNeeded = slot.experienceNeeded;
    player.hitPoints = slot.hitPoints;
    player.maxHitPoints = slot.maxHitPoints;
    player.strength = slot.strength;
    player.constitution = slot.constitution;
    player.dexterity = slot.dexterity;
    player.intelligence = slot.intelligence;
    player.wisdom = slot.wisdom;
    player.charisma = slot.charisma;
    player.weaponNumber = slot.weaponNumber;
    player.armourNumber = slot.armourNumber;
    player.turnsLeft = slot.turnsLeft;
    player.turnsPerDay = slot.turnsPerDay;
    player.reservedCounter = slot.reservedCounter;
    restoreWords(slot);
}

} // namespace morvek
