// A stored character: 1500 bytes, the same in memory and in the character file. Integers are
// 32-bit and little-endian, amounts of money IEEE-754 doubles, texts 24-byte slots.
//
// `worldState` holds the words of world_words.h, running downwards; by the record's offsets:
//
//    272  W233..W205    388  unused        392  W204..W158    580  W310..W296
//    640  W294..W281    696  unused        700  W280..W234    888  W156..W122
//   1028  W120..W86    1168  W84..W50     1308  W84..W50 again
//   1448  W12..W0
//
// Reading is not quite the reverse of writing: 1168 is read into W84..W50 and once more into
// W48..W14, and the second copy at 1308 is not read at all. W14 to W48 are never written, and
// W13, W49, W85, W121, W157 and W295 neither written nor read.
#pragma once

#include "state/text_slot.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace morvek {

static_assert(std::endian::native == std::endian::little, "records are images of memory");

#pragma pack(push, 4)
struct PlayerRecord {
    TextSlot version;
    TextSlot bbsName;
    std::int32_t slotIndex = 0;
    std::int32_t lastPlayedDay = 0;
    std::uint32_t onlineFlag = 0;
    TextSlot ownerName;
    TextSlot name;
    TextSlot className;
    std::int32_t level = 0;
    std::int32_t experience = 0;
    double gold = 0.0;
    double bankGold = 0.0;
    std::int32_t experienceNeeded = 0;
    std::int32_t hitPoints = 0;
    std::int32_t maxHitPoints = 0;
    std::int32_t strength = 0;
    std::int32_t constitution = 0;
    std::int32_t dexterity = 0;
    std::int32_t intelligence = 0;
    std::int32_t wisdom = 0;
    std::int32_t charisma = 0;
    std::int32_t weaponNumber = 0;
    TextSlot weapon;
    std::int32_t armourNumber = 0;
    TextSlot armour;
    std::int32_t turnsLeft = 0;
    std::int32_t turnsPerDay = 0;
    std::int32_t reserved = 0;
    std::int32_t reservedCounter = 0;
    std::uint8_t inUse = 0;
    std::array<std::uint8_t, 3> afterInUse{};
    std::int32_t currentLocation = 0;
    std::array<std::int32_t, 307> worldState{};
};
#pragma pack(pop)

static_assert(sizeof(PlayerRecord) == 1500);
static_assert(offsetof(PlayerRecord, version) == 0);
static_assert(offsetof(PlayerRecord, bbsName) == 24);
static_assert(offsetof(PlayerRecord, slotIndex) == 48);
static_assert(offsetof(PlayerRecord, lastPlayedDay) == 52);
static_assert(offsetof(PlayerRecord, onlineFlag) == 56);
static_assert(offsetof(PlayerRecord, ownerName) == 60);
static_assert(offsetof(PlayerRecord, name) == 84);
static_assert(offsetof(PlayerRecord, className) == 108);
static_assert(offsetof(PlayerRecord, level) == 132);
static_assert(offsetof(PlayerRecord, experience) == 136);
static_assert(offsetof(PlayerRecord, gold) == 140);
static_assert(offsetof(PlayerRecord, bankGold) == 148);
static_assert(offsetof(PlayerRecord, experienceNeeded) == 156);
static_assert(offsetof(PlayerRecord, hitPoints) == 160);
static_assert(offsetof(PlayerRecord, maxHitPoints) == 164);
static_assert(offsetof(PlayerRecord, strength) == 168);
static_assert(offsetof(PlayerRecord, constitution) == 172);
static_assert(offsetof(PlayerRecord, dexterity) == 176);
static_assert(offsetof(PlayerRecord, intelligence) == 180);
static_assert(offsetof(PlayerRecord, wisdom) == 184);
static_assert(offsetof(PlayerRecord, charisma) == 188);
static_assert(offsetof(PlayerRecord, weaponNumber) == 192);
static_assert(offsetof(PlayerRecord, weapon) == 196);
static_assert(offsetof(PlayerRecord, armourNumber) == 220);
static_assert(offsetof(PlayerRecord, armour) == 224);
static_assert(offsetof(PlayerRecord, turnsLeft) == 248);
static_assert(offsetof(PlayerRecord, turnsPerDay) == 252);
static_assert(offsetof(PlayerRecord, reserved) == 256);
static_assert(offsetof(PlayerRecord, reservedCounter) == 260);
static_assert(offsetof(PlayerRecord, inUse) == 264);
static_assert(offsetof(PlayerRecord, currentLocation) == 268);
static_assert(offsetof(PlayerRecord, worldState) == 272);

// Whether the records are the same, byte for byte.
inline bool sameBytes(const PlayerRecord& one, const PlayerRecord& other) {
    return std::string_view(reinterpret_cast<const char*>(&one), sizeof one) ==
           std::string_view(reinterpret_cast<const char*>(&other), sizeof other);
}

} // namespace morvek
