// The four ways to save and the way to load, each with the slots it may touch.
#include "characters/character_file.h"

#include "state/roster.h"
#include "support/stored.h"

struct CharacterFile : InTemporaryDirectory {
    CharacterFile() { game.player.name = "Arwen"; }

    static PlayerRecord& slot(std::size_t number) { return game.roster.slots()[number]; }
    static void ownByOthers(std::size_t count) {
        for (std::size_t number = 0; number < count; ++number) {
            own(number, "Other", "Somebody");
        }
    }
    // Stores the roster, cut or continued to the length, and forgets it.
    static void store(std::size_t length = sizeof game.roster.slots()) {
        std::string bytes = rosterBytes();
        bytes.resize(length, 'x');
        writeFile("morchars.dat", bytes);
        game.roster = Roster{};
    }
    static void reload() {
        store();
        loadPlayer();
    }
};

TEST_F(CharacterFile, LoadsTheFirstSlotOwnedByExactlyThisName) {
    own(0, "alice", "Lower");
    own(1, "Alice ", "Blank");
    own(2, "Alic", "Shorter");
    own(48, "Alice", "Eowyn");
    own(49, "Alice", "NeverSeen");
    reload();
    EXPECT_EQ(game.player.name, "Eowyn");
    EXPECT_EQ(inARow(game.session.foundPlayer, game.session.newPlayer), "1 0");
    EXPECT_EQ(caller.screen, "[clear]{`r`Starting game`W`...||}");
}

TEST_F(CharacterFile, AnyOtherDayGivesThirtyTurns) {
    for (const std::int32_t day : {111525, 111527, 0, 111526}) {
        ownByOthers(3);
        own(3, "Alice", "Arwen");
        slot(3).lastPlayedDay = day;
        slot(3).turnsLeft = 4;
        slot(3).turnsPerDay = 5;
        reload();
        EXPECT_EQ(inARow(game.player.turnsLeft, game.player.turnsPerDay),
                  day == 111526 ? "4 5" : "30 30");
        EXPECT_EQ(inARow(game.session.today, game.session.storedDay, slot(3).lastPlayedDay,
                         slot(3).turnsLeft),
                  inARow(111526, day, 111526, 4))
            << "the slot's turns follow with the next save";
    }
}

// His day of 0 makes his first return count as a new day.
TEST_F(CharacterFile, WithoutAFileACharacterIsCreatedAndSavedInTheFirstSlot) {
    caller.visit(loadPlayer, "Eowyn\ry2");
    EXPECT_TRUE(caller.saw("{`r`Welcome to the world of the Morvek Role Play Game!||}"
                           "{`r`Creating a new player...|}{|}{`r`Character Name"));
    const PlayerRecord saved = storedSlot(0);
    EXPECT_EQ(inARow(saved.name.view(), saved.ownerName.view(), saved.lastPlayedDay),
              "Eowyn Alice 0");
    EXPECT_THAT(readFile("morchars.dat").substr(73500),
                StartsWith(storedText("0.6.8a") + std::string(1476, '\0')));
}

TEST_F(CharacterFile, SavingTakesAFreeSlotBeforeTheCallersOwn) {
    own(0, "Other", "Somebody");
    own(2, "Alice", "Arwen");
    slot(1).slotIndex = 17;
    game.session.currentSlot = 2;
    savePlayer();
    EXPECT_EQ(inARow(storedSlot(1).name.view(), storedSlot(1).slotIndex), "Arwen 17")
        << "a free slot keeps its number";
    own(1, "Other", "Somebody");
    const std::string before = rosterBytes();
    savePlayer();
    EXPECT_EQ(storedSlot(2).slotIndex, 2);
    EXPECT_EQ(readFile("morchars.dat").replace(3000, 1500, before, 3000, 1500), before);
}

TEST_F(CharacterFile, TheLastSlotIsReachedByTheHealedSaveAlone) {
    ownByOthers(49);
    game.player = {.name = "Arwen", .hitPoints = -3, .maxHitPoints = 25};
    game.world.exhaustedShown = 1;
    savePlayer();
    EXPECT_EQ(inARow(storedSlot(49).name.view(), game.world.exhaustedShown), " 1");
    game.session.today = 111526;
    for (const std::int32_t number : {-1, 50, INT32_MIN, INT32_MAX, 7}) { // as a file may say
        game.session.currentSlot = number;
        slot(49) = emptySlot();
        savePlayerHealed();
        EXPECT_EQ(inARow(storedSlot(49).name.view(), storedSlot(49).hitPoints), "Arwen 25");
    }
    EXPECT_EQ(storedSlot(49).lastPlayedDay, 0);
    EXPECT_EQ(storedSlot(7).lastPlayedDay, 111526) << "the slot of the current number is dated";
    EXPECT_EQ(inARow(game.player.hitPoints, game.world.exhaustedShown), "-3 50");
    savePlayerHealed(); // and now the slot is his own
    EXPECT_EQ(inARow(storedSlot(49).slotIndex, game.session.currentSlot), "49 49");
}

TEST_F(CharacterFile, TheQuickSaveWritesSlotZeroWhoeverOwnsIt) {
    ownByOthers(1);
    slot(0).level = 6;
    game.player = {.level = 2, .gold = 70, .weapon = "Mace"};
    saveQuick();
    const PlayerRecord saved = storedSlot(0);
    EXPECT_EQ(inARow(saved.name.view(), saved.ownerName.view(), saved.gold, saved.weapon.view(),
                     saved.level, saved.inUse + 0, game.world.exhaustedShown),
              "Somebody Other 70 Mace 6 1 50");
}

TEST_F(CharacterFile, AnEmptyUserNameOwnsTheFirstFreeSlot) {
    newCall(true, "");
    ownByOthers(1);
    own(1, "", "Nameless");
    reload();
    EXPECT_EQ(game.player.name, "Nameless");
    game.session.currentSlot = 9;
    savePlayer();
    EXPECT_EQ(storedSlot(1).slotIndex, 9);
}

TEST_F(CharacterFile, AFileThatCannotBeUsedChangesNothingNotEvenTheRoster) {
    fs::create_directory("directory");
    writeFile("readonly", "", 0444);
    writeFile("unreadable", "", 0222);
    const AsNobody nobody;
    for (const char* file : {"directory", "readonly"}) {
        game.session.characterFileName = file;
        savePlayer();
        savePlayerHealed();
        saveQuick();
        EXPECT_EQ(inARow(slot(0).ownerName.view(), slot(0).inUse + 0, game.world.exhaustedShown),
                  " 0 0");
        EXPECT_EQ(caller.screen, "") << "and nobody is told";
    }
    for (const char* file : {"directory", "unreadable"}) {
        game.session.characterFileName = file;
        caller.visit(loadPlayer, "Eowyn\ry2");
        EXPECT_EQ(slot(0).name.view(), "") << file;
    }
}

TEST_F(CharacterFile, AFileOfAnyLengthFillsWhatItCan) {
    for (const std::size_t length : {0U, 1U, 84U, 97U, 1499U, 1500U, 1599U, 74999U, 75001U}) {
        own(0, "Alice", "Eowyn");
        own(1, "Bob", "Boromir");
        store(length);
        EXPECT_TRUE(readRoster());
        EXPECT_EQ(slot(0).name.view(), length < 97 ? "" : "Eowyn") << length;
        EXPECT_EQ(slot(1).name.view(), length < 1599 ? "" : "Boromir") << length;
        EXPECT_EQ(slot(49).version.view(), "0.6.8a") << length;
    }
}
