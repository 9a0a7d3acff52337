// The four ways to save and the way to load, each with the slots it may touch.
#include "characters/character_file.h"
#include "state/game_state.h"
#include "support/temporary_directory.h"

#include <cstring>
#include <random>
#include <sys/stat.h>

using namespace morvek;
using namespace morvek::test;

namespace {

constexpr const char* fileName = "morchars.dat";

PlayerRecord& slot(std::size_t number) {
    return game.roster.slots[number];
}

PlayerRecord storedSlot(std::size_t number) {
    PlayerRecord record;
    std::memcpy(static_cast<void*>(&record), readFile(fileName).data() + number * sizeof record,
                sizeof record);
    return record;
}

void own(std::size_t number, std::string_view owner, std::string_view name) {
    slot(number).ownerName.assign(owner);
    slot(number).name.assign(name);
}

void writeRosterFile(std::size_t length = sizeof game.roster.slots) {
    std::string bytes(reinterpret_cast<const char*>(game.roster.slots.data()),
                      sizeof game.roster.slots);
    bytes.resize(length, 'x');
    writeFile(fileName, bytes);
}

// The caller's character lies in slot 3, last played on another day; then a new call begins.
void storeAliceInSlot3(std::int32_t lastPlayedDay) {
    for (std::size_t other = 0; other < 3; ++other) {
        own(other, "Other", "Somebody");
    }
    own(3, "Alice", "Arwen");
    slot(3).lastPlayedDay = lastPlayedDay;
    slot(3).turnsLeft = 4;
    slot(3).turnsPerDay = 5;
    writeRosterFile();
    game = GameState{};
    game.session.dateStamp = "111526";
}

} // namespace

class CharacterFile : public InTemporaryDirectory {};

TEST_F(CharacterFile, LoadsTheFirstSlotOwnedByExactlyThisName) {
    own(0, "alice", "Lower");
    own(1, "Alice ", "Blank");
    own(2, "Alic", "Shorter");
    own(48, "Alice", "Arwen");
    own(49, "Alice", "NeverSeen");
    writeRosterFile();
    game = GameState{};
    loadPlayer();
    EXPECT_EQ(game.player.name, "Arwen");
    EXPECT_EQ(game.session.foundPlayer, 1);
    EXPECT_EQ(game.session.newPlayer, 0);
    EXPECT_EQ(caller.screen(), "clear\nsay `red`Starting game`bright white`...||\n");
}

TEST_F(CharacterFile, AnyOtherDayGivesThirtyTurns) {
    for (const std::int32_t day : {111525, 111527, 0}) {
        storeAliceInSlot3(day);
        loadPlayer();
        EXPECT_EQ(game.player.turnsLeft, 30);
        EXPECT_EQ(game.player.turnsPerDay, 30);
        EXPECT_EQ(game.session.today, 111526);
        EXPECT_EQ(game.session.storedDay, day);
        EXPECT_EQ(slot(3).lastPlayedDay, 111526);
        EXPECT_EQ(slot(3).turnsLeft, 4) << "the slot follows with the next save";
    }
    storeAliceInSlot3(111526);
    loadPlayer();
    EXPECT_EQ(game.player.turnsLeft, 4);
    EXPECT_EQ(game.player.turnsPerDay, 5);
}

TEST_F(CharacterFile, WithoutAFileACharacterIsCreatedAndSavedInTheFirstSlot) {
    caller.type("Arwen\ry2");
    loadPlayer();
    EXPECT_TRUE(caller.saw("`red`Welcome to the world of the Morvek Role Play Game!\n\r\n\r"
                           "`red`Creating a new player...\n\r"));
    EXPECT_EQ(readFile(fileName).size(), 75000U);
    EXPECT_EQ(storedSlot(0).name.view(), "Arwen");
    EXPECT_EQ(storedSlot(0).ownerName.view(), "Alice");
    EXPECT_EQ(storedSlot(0).lastPlayedDay, 0) << "so the first return counts as a new day";
    EXPECT_EQ(storedSlot(49).version.view(), "0.6.8a");
    EXPECT_EQ(game.world.exhaustedShown, 50);
}

TEST_F(CharacterFile, SavingTakesAFreeSlotBeforeTheCallersOwn) {
    own(0, "Other", "Somebody");
    own(2, "Alice", "Arwen");
    slot(1).slotIndex = 17;
    game.session.currentSlot = 2;
    game.player.name = "Arwen";
    savePlayer();
    EXPECT_EQ(storedSlot(1).name.view(), "Arwen");
    EXPECT_EQ(storedSlot(1).slotIndex, 17) << "a free slot keeps its number";
    own(1, "Other", "Somebody");
    savePlayer();
    EXPECT_EQ(storedSlot(2).slotIndex, 2);
    EXPECT_EQ(storedSlot(1).name.view(), "Somebody");
}

TEST_F(CharacterFile, TheLastSlotIsReachedByTheHealedSaveAlone) {
    for (std::size_t other = 0; other < 49; ++other) {
        own(other, "Other", "Somebody");
    }
    game.player.name = "Arwen";
    game.player.maxHitPoints = 25;
    game.player.hitPoints = -3;
    game.world.exhaustedShown = 1;
    savePlayer();
    EXPECT_TRUE(storedSlot(49).name.view().empty());
    EXPECT_EQ(game.world.exhaustedShown, 1) << "no slot was taken";
    game.session.today = 111526;
    game.session.currentSlot = 7;
    savePlayerHealed();
    EXPECT_EQ(storedSlot(49).name.view(), "Arwen");
    EXPECT_EQ(storedSlot(49).hitPoints, 25);
    EXPECT_EQ(storedSlot(49).lastPlayedDay, 0);
    EXPECT_EQ(storedSlot(7).lastPlayedDay, 111526) << "the slot of the current number is dated";
    EXPECT_EQ(game.player.hitPoints, -3);
    EXPECT_EQ(game.world.exhaustedShown, 50);
    savePlayerHealed(); // and now the slot is his own
    EXPECT_EQ(storedSlot(49).slotIndex, 49);
    EXPECT_EQ(game.session.currentSlot, 49);
}

TEST_F(CharacterFile, ASlotNumberFromTheFileMayBeAnything) {
    game.session.today = 5;
    for (const std::int32_t number : {-1, 50, INT32_MIN, INT32_MAX}) {
        game.session.currentSlot = number;
        slot(0) = emptySlot();
        savePlayerHealed();
        EXPECT_EQ(storedSlot(0).ownerName.view(), "Alice");
    }
}

TEST_F(CharacterFile, TheQuickSaveWritesSlotZeroWhoeverOwnsIt) {
    own(0, "Other", "Somebody");
    slot(0).level = 6;
    slot(0).className.assign("Wizard");
    game.player.gold = 70;
    game.player.level = 2;
    game.player.weapon = "Mace";
    saveQuick();
    EXPECT_EQ(storedSlot(0).name.view(), "Somebody");
    EXPECT_EQ(storedSlot(0).ownerName.view(), "Other");
    EXPECT_EQ(storedSlot(0).gold, 70);
    EXPECT_EQ(storedSlot(0).weapon.view(), "Mace");
    EXPECT_EQ(storedSlot(0).level, 6);
    EXPECT_EQ(storedSlot(0).inUse, 1);
    EXPECT_EQ(game.world.exhaustedShown, 50);
}

TEST_F(CharacterFile, AnEmptyUserNameOwnsTheFirstFreeSlot) {
    newCall(true, "");
    own(0, "Other", "Somebody");
    slot(1).name.assign("Nameless");
    writeRosterFile();
    game = GameState{};
    loadPlayer();
    EXPECT_EQ(game.player.name, "Nameless");
    game.session.currentSlot = 9;
    savePlayer();
    EXPECT_EQ(storedSlot(1).slotIndex, 9);
    EXPECT_TRUE(storedSlot(1).ownerName.view().empty());
}

TEST_F(CharacterFile, AFileThatCannotBeWrittenChangesNothingNotEvenTheRoster) {
    std::filesystem::create_directory(fileName);
    game.player.name = "Arwen";
    savePlayer();
    savePlayerHealed();
    saveQuick();
    EXPECT_TRUE(slot(0).ownerName.view().empty());
    EXPECT_EQ(game.world.exhaustedShown, 0);
    EXPECT_TRUE(caller.calls.empty()) << "and nobody is told";
}

TEST_F(CharacterFile, AFileOfAnyLengthFillsWhatItCan) {
    own(0, "Alice", "Arwen");
    own(1, "Bob", "Boromir");
    for (const std::size_t length : {0U, 1U, 59U, 84U, 1499U, 1500U, 2990U, 74999U, 75001U}) {
        own(0, "Alice", "Arwen");
        own(1, "Bob", "Boromir");
        writeRosterFile(length);
        game = GameState{};
        EXPECT_TRUE(readRoster());
        EXPECT_EQ(slot(0).name.view(), length < 97 ? "" : "Arwen") << length;
        EXPECT_EQ(slot(1).name.view(), length < 2990 ? "" : "Boromir") << length;
        EXPECT_EQ(slot(49).version.view(), "0.6.8a") << length;
    }
}

TEST_F(CharacterFile, RandomBytesDoNoHarm) {
    std::mt19937 random(1);
    for (int round = 0; round < 20; ++round) {
        std::string bytes(75000, '\0');
        for (char& one : bytes) {
            one = static_cast<char>(random());
        }
        const std::string named("\0\0\0\0\5\0\0\0Alice", 13);
        bytes.replace(60, named.size(), named);
        writeFile(fileName, bytes);
        game = GameState{};
        loadPlayer();
        EXPECT_EQ(game.session.foundPlayer, 1);
        savePlayer();
        savePlayerHealed();
        EXPECT_EQ(readFile(fileName).substr(3000), bytes.substr(3000)) << "others keep every byte";
    }
}

TEST_F(CharacterFile, AFileThatCannotBeReadIsNotWrittenEither) {
    own(0, "Other", "Somebody");
    writeRosterFile();
    game = GameState{};
    ASSERT_EQ(::chmod(fileName, 0222), 0);
    ASSERT_EQ(::chmod(".", 0777), 0);
    caller.type("Arwen\ry2");
    {
        const AsNobody nobody;
        loadPlayer();
    }
    EXPECT_EQ(game.player.name, "Arwen");
    EXPECT_EQ(storedSlot(0).name.view(), "Somebody");
}
