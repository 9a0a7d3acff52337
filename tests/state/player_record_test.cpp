// The record by offset and byte, and the two directions of the copy where they differ.
#include "state/store_player.h"

#include "support/stored.h"

namespace {

// The number at an offset.
std::int32_t numberAt(const PlayerRecord& record, int offset) {
    return std::bit_cast<std::array<std::int32_t, 375>>(record)[static_cast<unsigned>(offset) / 4];
}

std::string bytesAt(const PlayerRecord& record, int offset, std::size_t count) {
    return {reinterpret_cast<const char*>(&record) + offset, count};
}

constexpr std::int32_t untouched = 0x77777777;

// The player of a distinct game, stored over bytes of 0x77.
PlayerRecord storedOverDirt(StoreKind kind) {
    beginDistinctGame();
    game.session.doorUserName = "Alice of the Hills"; // cut to 15
    game.session.inGame = 1;
    PlayerRecord slot;
    std::memset(static_cast<void*>(&slot), 0x77, sizeof slot);
    storePlayer(slot, kind);
    return slot;
}

} // namespace

TEST(PlayerRecord, EverythingIsStoredAtItsOffsetTheWorldsWordsDownwards) {
    PlayerRecord slot = storedOverDirt(StoreKind::whole);
    EXPECT_EQ(bytesAt(slot, 24, 24), storedText("Alice of the Hi"));
    EXPECT_EQ(bytesAt(slot, 60, 24), storedText("Alice of the Hi"));
    EXPECT_EQ(bytesAt(slot, 84, 48), storedText("Arwen") + storedText("Ranger"));
    EXPECT_EQ(bytesAt(slot, 196, 24), storedText("Club"));
    EXPECT_EQ(bytesAt(slot, 224, 24), storedText("Cloth"));
    std::int32_t number = 100;
    for (const int offset :
         {132, 136, 156, 160, 164, 168, 172, 176, 180, 184, 188, 192, 220, 248, 252, 260, 268}) {
        EXPECT_EQ(numberAt(slot, offset), number++) << offset;
    }
    const std::array<double, 2> money{5e9, 6e10};
    EXPECT_EQ(bytesAt(slot, 140, 16), std::string(reinterpret_cast<const char*>(&money), 16));
    const Cases<int, int, int> runs{
        {272, 384, 233},  {392, 576, 204},   {580, 636, 310},  {640, 692, 294},  {700, 884, 280},
        {888, 1024, 156}, {1028, 1164, 120}, {1168, 1304, 84}, {1308, 1444, 84}, {1448, 1496, 12}};
    for (const auto& [first, last, word] : runs) {
        for (int offset = first; offset <= last; offset += 4) {
            ASSERT_EQ(numberAt(slot, offset), 1000 + word - (offset - first) / 4) << offset;
        }
    }
    for (const int offset : {0, 4, 8, 12, 16, 20, 48, 52, 256, 388, 696}) {
        EXPECT_EQ(numberAt(slot, offset), untouched) << offset;
    }
    EXPECT_EQ(inARow(numberAt(slot, 264), numberAt(slot, 56)), "1 1");
    game.session.inGame = 50;
    storePlayer(slot, StoreKind::whole);
    EXPECT_EQ(numberAt(slot, 56), 0);
}

TEST(PlayerRecord, TheHealedSaveStoresFullHitPointsAndOnlyTheSearchedFlags) {
    const PlayerRecord slot = storedOverDirt(StoreKind::healed);
    EXPECT_EQ(inARow(slot.hitPoints, slot.maxHitPoints), "104 104");
    EXPECT_EQ(inARow(numberAt(slot, 272), numberAt(slot, 388), numberAt(slot, 576)),
              inARow(1233, untouched, 1158));
    EXPECT_EQ(bytesAt(slot, 580, 920), std::string(920, '\x77'));
}

TEST(PlayerRecord, ReadingCopiesTheMortuaryWordsTwiceAndLeavesTheUnstoredOnes) {
    PlayerRecord slot = storedOverDirt(StoreKind::whole);
    slot.slotIndex = 7;
    slot.lastPlayedDay = 111526;
    std::int32_t& secondCopy = slot.worldState[(1308 - 272) / 4];
    secondCopy = -1; // which is not read
    resetGame();
    game.world.words.fill(-5);
    restorePlayer(slot);

    EXPECT_EQ(inARow(game.session.doorUserName, game.session.currentSlot, game.session.storedDay,
                     game.session.inGame),
              "Alice of the Hi 7 111526 0");
    game.session.inGame = 1;
    PlayerRecord again = slot;
    storePlayer(again, StoreKind::whole);
    EXPECT_EQ(again.worldState[(1308 - 272) / 4], 1084);
    secondCopy = 1084;
    EXPECT_EQ(std::memcmp(&again, &slot, sizeof slot), 0) << "every stored field comes back";

    for (std::size_t word = 14; word < 49; ++word) {
        EXPECT_EQ(game.world.words[word], static_cast<int>(1036 + word)) << word;
    }
    for (const std::size_t word : {13U, 49U, 85U, 121U, 157U, 295U}) {
        EXPECT_EQ(game.world.words[word], -5) << word;
    }
}

TEST(TextSlot, ALengthAbove15HoldsNoText) {
    TextSlot slot("Fifteen letters");
    EXPECT_EQ(slot.view(), "Fifteen letters");
    for (const std::uint32_t length : {16U, 0x7fffffffU, 0xffffffffU}) {
        slot.length = length;
        EXPECT_EQ(slot.view(), "");
    }
    slot.assign("Ada"); // nothing of the longer text stays behind
    EXPECT_EQ(std::string(slot.bytes.data(), 16), std::string("Ada") + std::string(13, '\0'));
}
