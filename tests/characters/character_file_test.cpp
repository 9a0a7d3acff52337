// The four ways to save and the way to load, each with the slots it may touch.
#include "characters/character_file.h"

#include "state/roster.h"
#include "support/stored.h"

struct CharacterFile : InTemporaryDirectory {
    CharacterFile() { game.player.name = "Arwen"; }

    static PlayerRecord& slot(std::size_t number) { return game.roster.slots()[number]; }
    static void reload() {
        writeFile("morchars.dat", rosterBytes());
        game.roster = Roster{};
        loadPlayer();
    }
};

TEST_F(CharacterFile, SaveKeepsWhatOthersHaveSavedButForTheDay) {
    own(0, "Bob", "Bors");
    own(1, "Alice", "Arwen");
    reload();
    slot(0).bankGold = 500; // as another call saves it
    writeFile("morchars.dat", rosterBytes());
    slot(0).bankGold = 0;
    slot(0).lastPlayedDay = 111526;
    slot(0).gold = 9;
    savePlayer();
    EXPECT_EQ(storedSlot(0).lastPlayedDay, 111526);
    EXPECT_EQ(double{storedSlot(0).gold}, 0);
    EXPECT_EQ(double{storedSlot(0).bankGold}, 500);
}

TEST_F(CharacterFile, LoadsTheFirstSlotOfItsOwner) {
    own(0, "alice", "Lower");
    own(1, "Alice ", "Blank");
    own(2, "Alic", "Shorter");
    own(48, "Alice", "Eowyn");
    own(49, "Alice", "NeverSeen");
    reload();
    EXPECT_EQ(game.player.name, "Eowyn");
    EXPECT_EQ(caller.screen, "[clear]{`r`Starting game`W`...||}");
}

TEST_F(CharacterFile, GivesThirtyTurnsOnAnyOtherDay) {
    for (const std::int32_t day : {111525, 111527, 111526}) {
        own(0, "Alice", "Arwen");
        slot(0).lastPlayedDay = day;
        slot(0).turnsLeft = 4;
        reload();
        EXPECT_EQ(game.player.turnsLeft, day == 111526 ? 4 : 30);
        EXPECT_EQ(slot(0).lastPlayedDay, 111526);
    }
}

TEST_F(CharacterFile, CreatesACharacterInTheFirstSlot) {
    caller.visit(loadPlayer, "Eowyn\ry2");
    EXPECT_TRUE(caller.saw("{`r`Welcome to the world of the Morvek Role Play Game!||}"
                           "{`r`Creating a new player...|}{|}{`r`Character Name"));
    const PlayerRecord saved = storedSlot(0);
    EXPECT_EQ(saved.name.view(), "Eowyn");
    EXPECT_EQ(saved.ownerName.view(), "Alice");
    EXPECT_EQ(saved.lastPlayedDay, 0) << "his first return is on a new day";
}

TEST_F(CharacterFile, SavesIntoTheFirstFreeSlot) {
    own(0, "Other", "Somebody");
    own(2, "Alice", "Arwen");
    savePlayer();
    EXPECT_EQ(storedSlot(1).name.view(), "Arwen");
    EXPECT_EQ(storedSlot(2).level, 0) << "his own slot is behind it";
}

TEST_F(CharacterFile, OnlyHealedSaveReachesTheLastSlot) {
    for (std::size_t number = 0; number < 49; ++number) {
        own(number, "Other", "Somebody");
    }
    game.player = {.name = "Arwen", .hitPoints = -3, .maxHitPoints = 25};
    savePlayer();
    EXPECT_EQ(storedSlot(49).name.view(), "");
    savePlayerHealed();
    EXPECT_EQ(storedSlot(49).name.view(), "Arwen");
    EXPECT_EQ(storedSlot(49).hitPoints, 25);
    EXPECT_EQ(game.player.hitPoints, -3);
    savePlayerHealed(); // now the slot is his own
    EXPECT_EQ(storedSlot(49).slotIndex, 49);
}

TEST_F(CharacterFile, HealedSaveDatesTheCurrentSlot) {
    game.session.today = 111526;
    game.session.currentSlot = 7;
    savePlayerHealed();
    EXPECT_EQ(storedSlot(0).lastPlayedDay, 0);
    EXPECT_EQ(storedSlot(7).lastPlayedDay, 111526);
}

TEST_F(CharacterFile, QuickSaveWritesSlotZero) {
    own(0, "Other", "Somebody");
    own(1, "Alice", "Arwen");
    slot(0).level = 6;
    game.player = {.level = 2, .gold = 70, .weapon = "Mace"};
    saveQuick();
    const PlayerRecord saved = storedSlot(0);
    EXPECT_EQ(saved.ownerName.view(), "Other");
    EXPECT_EQ(double{saved.gold}, 70);
    EXPECT_EQ(saved.weapon.view(), "Mace");
    EXPECT_EQ(saved.level, 6);
}

TEST_F(CharacterFile, UnwritableFileChangesNothingInMemory) {
    writeFile("morchars.dat", "", 0444);
    const AsNobody nobody;
    for (const auto save : {savePlayer, savePlayerHealed, saveQuick}) {
        save();
        EXPECT_EQ(slot(0).ownerName.view(), "");
        EXPECT_EQ(caller.screen, "") << "nobody is told";
    }
}
