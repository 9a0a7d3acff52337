// The record by offset and byte, and the two directions of the copy where they differ.
#include "state/game_state.h"
#include "state/player_record.h"

#include <cstring>
#include <gmock/gmock.h>

using namespace morvek;

namespace {

template <typename T>
T at(const PlayerRecord& record, std::size_t offset) {
    T value;
    std::memcpy(&value, reinterpret_cast<const char*>(&record) + offset, sizeof value);
    return value;
}

std::string bytesAt(const PlayerRecord& record, std::size_t offset, std::size_t count) {
    return {reinterpret_cast<const char*>(&record) + offset, count};
}

std::string slotBytes(std::string text) {
    std::string bytes(4, '\0');
    bytes += static_cast<char>(text.size());
    bytes += std::string(3, '\0');
    text.resize(16, '\0');
    return bytes + text;
}

// A player in whom every number differs: each number is its place in the list of fields.
void distinctPlayer() {
    game = GameState{};
    game.session.doorUserName = "Alice of the Hills"; // cut to 15
    game.session.inGame = 1;
    Player& player = game.player;
    player.name = "Arwen";
    player.className = "Ranger";
    player.weapon = "Club";
    player.armour = "Cloth";
    player.gold = 5e9;
    player.bankGold = 6e10;
    std::int32_t number = 100;
    for (std::int32_t* field :
         {&player.level, &player.experience, &player.experienceNeeded, &player.hitPoints,
          &player.maxHitPoints, &player.strength, &player.constitution, &player.dexterity,
          &player.intelligence, &player.wisdom, &player.charisma, &player.weaponNumber,
          &player.armourNumber, &player.turnsLeft, &player.turnsPerDay, &player.reservedCounter,
          &game.world.currentLocation}) {
        *field = number++;
    }
    for (std::size_t word = 0; word < worldWordCount; ++word) {
        game.world.words[word] = static_cast<std::int32_t>(1000 + word);
    }
}

PlayerRecord dirtySlot() {
    PlayerRecord slot;
    std::memset(static_cast<void*>(&slot), 0x77, sizeof slot);
    return slot;
}

constexpr std::int32_t untouched = 0x77777777;

} // namespace

TEST(PlayerRecord, EveryFieldIsStoredAtItsOffset) {
    distinctPlayer();
    PlayerRecord slot = dirtySlot();
    storePlayer(slot, StoreKind::whole);

    for (const std::size_t offset : {24U, 60U}) {
        EXPECT_EQ(bytesAt(slot, offset, 24), slotBytes("Alice of the Hi"));
    }
    EXPECT_EQ(bytesAt(slot, 84, 24), slotBytes("Arwen"));
    EXPECT_EQ(bytesAt(slot, 108, 24), slotBytes("Ranger"));
    EXPECT_EQ(bytesAt(slot, 196, 24), slotBytes("Club"));
    EXPECT_EQ(bytesAt(slot, 224, 24), slotBytes("Cloth"));
    EXPECT_EQ(at<std::uint32_t>(slot, 56), 1U);
    EXPECT_EQ(at<double>(slot, 140), 5e9);
    EXPECT_EQ(at<double>(slot, 148), 6e10);
    std::int32_t number = 100;
    for (const std::size_t offset :
         {132, 136, 156, 160, 164, 168, 172, 176, 180, 184, 188, 192, 220, 248, 252, 260, 268}) {
        EXPECT_EQ(at<std::int32_t>(slot, offset), number++) << "offset " << offset;
    }
    EXPECT_EQ(bytesAt(slot, 264, 4), std::string("\1\0\0\0", 4));
    EXPECT_EQ(bytesAt(slot, 0, 24), std::string(24, '\x77'));
    for (const std::size_t offset : {48, 52, 256, 388, 696}) {
        EXPECT_EQ(at<std::int32_t>(slot, offset), untouched) << "offset " << offset;
    }
    game.session.inGame = 50;
    storePlayer(slot, StoreKind::whole);
    EXPECT_EQ(at<std::uint32_t>(slot, 56), 0U);
}

TEST(PlayerRecord, TheWorldWordsRunDownwardsThroughTheirBlock) {
    distinctPlayer();
    PlayerRecord slot = dirtySlot();
    storePlayer(slot, StoreKind::whole);
    const std::vector<std::array<int, 3>> corners{
        {272, 384, 233},  {392, 576, 204},   {580, 636, 310},  {640, 692, 294},  {700, 884, 280},
        {888, 1024, 156}, {1028, 1164, 120}, {1168, 1304, 84}, {1308, 1444, 84}, {1448, 1496, 12},
    };
    for (const auto& [first, last, word] : corners) {
        for (int offset = first; offset <= last; offset += 4) {
            ASSERT_EQ(at<std::int32_t>(slot, static_cast<std::size_t>(offset)),
                      1000 + word - (offset - first) / 4)
                << "offset " << offset;
        }
    }
}

TEST(PlayerRecord, TheHealedSaveStoresFullHitPointsAndOnlyTheSearchedFlags) {
    distinctPlayer();
    PlayerRecord slot = dirtySlot();
    storePlayer(slot, StoreKind::healed);
    EXPECT_EQ(slot.hitPoints, game.player.maxHitPoints);
    EXPECT_EQ(slot.maxHitPoints, game.player.maxHitPoints);
    EXPECT_EQ(at<std::int32_t>(slot, 272), 1233);
    EXPECT_EQ(at<std::int32_t>(slot, 576), 1158);
    EXPECT_EQ(at<std::int32_t>(slot, 388), untouched);
    for (std::size_t offset = 580; offset < 1500; offset += 4) {
        ASSERT_EQ(at<std::int32_t>(slot, offset), untouched) << "offset " << offset;
    }
}

TEST(PlayerRecord, ReadingCopiesTheMortuaryWordsTwiceAndLeavesTheUnstoredOnes) {
    distinctPlayer();
    PlayerRecord slot;
    slot.slotIndex = 7;
    slot.lastPlayedDay = 111526;
    storePlayer(slot, StoreKind::whole);
    slot.worldState[(1308 - 272) / 4] = -1; // the second copy is not read
    const Player before = game.player;
    game = GameState{};
    game.world.words.fill(-5);
    restorePlayer(slot);

    EXPECT_EQ(game.session.doorUserName, "Alice of the Hi");
    EXPECT_EQ(game.session.currentSlot, 7);
    EXPECT_EQ(game.session.storedDay, 111526);
    EXPECT_EQ(game.session.inGame, 0);
    EXPECT_EQ(game.player.gold, before.gold);
    EXPECT_EQ(game.player.charisma, before.charisma);
    EXPECT_EQ(game.player.armour, "Cloth");
    EXPECT_EQ(game.world.currentLocation, 116);
    PlayerRecord again = slot;
    storePlayer(again, StoreKind::whole);
    again.worldState[(1308 - 272) / 4] = -1;
    again.onlineFlag = slot.onlineFlag;
    EXPECT_EQ(std::memcmp(&again, &slot, sizeof slot), 0) << "every stored field comes back";

    for (const std::size_t word : {13U, 49U, 85U, 121U, 157U, 295U}) {
        EXPECT_EQ(game.world.words[word], -5) << "W" << word;
    }
    for (std::size_t word = 14; word <= 48; ++word) {
        ASSERT_EQ(game.world.words[word], static_cast<std::int32_t>(1036 + word)) << "W" << word;
    }
}

TEST(TextSlot, ALengthAbove15HoldsNoText) {
    TextSlot slot("Fifteen letters");
    EXPECT_EQ(slot.view(), "Fifteen letters");
    for (const std::uint32_t length : {16U, 0x7fffffffU, 0xffffffffU}) {
        slot.length = length;
        EXPECT_TRUE(slot.view().empty());
    }
    slot.assign("Ada"); // nothing of the longer text stays behind
    EXPECT_EQ(std::string(slot.bytes.data(), 16), std::string("Ada") + std::string(13, '\0'));
}

TEST(WorldWords, FlagsLieWhereTheRecordOfOldCharactersHasThem) {
    EXPECT_EQ(searchedWord(1), 233U);
    EXPECT_EQ(searchedWord(76), 158U);
    EXPECT_EQ(clearedWord(1), 310U);
    EXPECT_EQ(clearedWord(15), 296U);
    EXPECT_EQ(clearedWord(16), 294U);
    EXPECT_EQ(clearedWord(76), 234U);
    EXPECT_EQ(levelClearedWord(Level::castle1, 24), 133U);
    EXPECT_EQ(levelClearedWord(Level::castle2, 1), 120U);
    EXPECT_EQ(levelClearedWord(Level::mortuary1, 35), 50U);
    EXPECT_EQ(levelClearedWord(Level::cavern1, 13), 0U);
}
