// Reading and storing a record in which each word is its own offset.
#include "state/store_player.h"

#include "support/stored.h"

namespace {

using Words = std::array<std::int32_t, sizeof(PlayerRecord) / 4>;

PlayerRecord recordOfOffsets() {
    Words words;
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i] = static_cast<std::int32_t>(4 * i);
    }
    auto record = std::bit_cast<PlayerRecord>(words);
    record.bbsName.assign("Alice");
    record.ownerName.assign("Alice");
    record.name.assign("Arwen");
    record.className.assign("Ranger");
    record.weapon.assign("Club");
    record.armour.assign("Cloth");
    record.onlineFlag = record.inUse = 1;
    record.afterInUse.fill(0);
    return record;
}

// The words of that record, read and stored over words of -1.
Words readAndStored(StoreKind kind) {
    resetGame();
    restorePlayer(recordOfOffsets());
    game.session.inGame = 1;
    Words words;
    words.fill(-1);
    auto record = std::bit_cast<PlayerRecord>(words);
    storePlayer(record, kind);
    return std::bit_cast<Words>(record);
}

} // namespace

TEST(PlayerRecord, ReadsFieldsAndFlagsAtTheirOffsets) {
    resetGame();
    restorePlayer(recordOfOffsets());
    World& world = game.world;
    const Cases<std::int32_t, int> offsets{{game.session.currentSlot, 48},
                                           {game.player.level, 132},
                                           {game.player.turnsPerDay, 252},
                                           {world.searched(30), 392},
                                           {world.searched(76), 576},
                                           {world.cleared(1), 580},
                                           {world.cleared(76), 884},
                                           {world.levelCleared(Level::castle1, 1), 888},
                                           {world.levelCleared(Level::mortuary1, 35), 1304},
                                           {world.levelCleared(Level::cavern1, 13), 1496}};
    for (const auto& [value, offset] : offsets) {
        EXPECT_EQ(value, offset);
    }
}

TEST(PlayerRecord, StoresEverythingWhereItWasRead) {
    const Words stored = readAndStored(StoreKind::whole);
    Words expected = std::bit_cast<Words>(recordOfOffsets());
    std::copy_n(&expected[1168 / 4], 35, &expected[1308 / 4]); // the mortuary's copy
    std::fill_n(&expected[0], 6, -1);                          // the version
    for (const std::size_t unstored : {48U, 52U, 256U, 388U, 696U}) {
        expected[unstored / 4] = -1;
    }
    EXPECT_THAT(stored, testing::ElementsAreArray(expected));
}

TEST(PlayerRecord, HealedKeepsOnlySearchedFlags) {
    const Words stored = readAndStored(StoreKind::healed);
    EXPECT_EQ(stored[160 / 4], 164) << "full hit points";
    EXPECT_EQ(stored[576 / 4], 576);
    EXPECT_EQ(std::count(&stored[580 / 4], stored.end(), -1), (1500 - 580) / 4);
}

TEST(TextSlot, ReadsAsEmptyAboveFifteen) {
    TextSlot slot("Fifteen letters");
    EXPECT_EQ(slot.view(), "Fifteen letters");
    slot.length = 16;
    EXPECT_EQ(slot.view(), "");
    slot.assign("Ada"); // over the longer text
    EXPECT_EQ(std::string(slot.bytes.data(), 16), std::string("Ada") + std::string(13, '\0'));
}
