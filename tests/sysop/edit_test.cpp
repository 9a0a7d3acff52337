#include "sysop/tool.h"

#include "files/game_lock.h"

struct Edit : Sysop {
    Edit() {
        PlayerRecord carol = character("Carol", "Cyra");
        carol.slotIndex = 2;
        save({character("Alice", "Arwen"), character("Bob", "Bjorn"), carol});
        before = readFile("morchars.dat");
    }

    [[nodiscard]] bool isUnchanged() const { return readFile("morchars.dat") == before; }

    static auto backups() {
        std::error_code notThere;
        return std::distance(fs::directory_iterator("backup", notThere), fs::directory_iterator());
    }

    std::string before;
};

TEST_F(Edit, SetChangesOneFieldAfterABackup) {
    EXPECT_THAT(told("set 2 GOLD -500"), HasSubstr("25 -> -500\n"));
    EXPECT_EQ(double{storedSlot(1).gold}, -500);
    EXPECT_EQ(backups(), 1);
    told("set 2 gold 25");
    EXPECT_TRUE(isUnchanged());
    told("set 2 name Zo\u00EB");
    EXPECT_EQ(storedSlot(1).name.view(), "Zo\x89");
}

TEST_F(Edit, SetChangesAFlagAndItsCopy) {
    told("set 2 Mortuary1.1 1");
    EXPECT_EQ(storedSlot(1).worldState[(1168 - 272) / 4], 1);
    EXPECT_EQ(storedSlot(1).worldState[(1308 - 272) / 4], 1);
    EXPECT_THAT(told("check"), EndsWith("No errors or warnings.\n"));
}

TEST_F(Edit, SetRefusesWhatDoesNotFit) {
    for (const std::string misuse :
         {"gold much", "level 8", "name \"sixteen letters!\"", "className Bard", "name \u65E5",
          "name A\xC3", "name a\033b", "hitPoints 25", "lastPlayedDay 23226", "ownerName Carol",
          "searched.77 1", "searched.7 2", "worldState 0"}) {
        EXPECT_THAT(told("set 2 " + misuse), StartsWith("2: ")) << misuse;
    }
    EXPECT_THAT(told("set 51 gold 1"), StartsWith("2: "));
    EXPECT_THAT(told("set 9 gold 1"), StartsWith("1: "));
    EXPECT_THAT(told("set 2 gold 25"), HasSubstr("nothing to change"));
    EXPECT_EQ(backups(), 0);
    EXPECT_TRUE(isUnchanged());
}

TEST_F(Edit, NothingChangesWithoutABackup) {
    writeFile("backup", "in the way");
    for (const char* line : {"set 1 gold 1", "remove 1", "reset"}) {
        EXPECT_THAT(told(line), HasSubstr("cannot be created: File exists; nothing was changed"));
    }
    EXPECT_TRUE(isUnchanged());
}

TEST_F(Edit, RemoveFillsThePlaceWithTheLast) {
    EXPECT_THAT(told("remove 1"),
                HasSubstr("Player 1 (Cyra, the character of Carol) was player 3."));
    EXPECT_EQ(storedSlot(0).slotIndex, 0);
    EXPECT_EQ(readFile("morchars.dat").substr(3000, 1500), before.substr(4500, 1500));
    EXPECT_EQ(backups(), 1);
    EXPECT_THAT(told("check"), EndsWith("No errors or warnings.\n"));
}

TEST_F(Edit, NobodyInsideIsChanged) {
    GameLock call("morvek.lock");
    ASSERT_TRUE(call.enter("Carol"));
    const std::string isInside = "(Cyra, the character of Carol) is in the game now";
    for (const char* line : {"set 3 gold 1", "remove 3", "offline 3"}) {
        EXPECT_THAT(told(line), HasSubstr(isInside)) << line;
    }
    EXPECT_THAT(told("set 1 ownerName Carol"), StartsWith("2: "));
    EXPECT_THAT(told("remove 1"), HasSubstr("would become player 1, but is in the game now"));
    told("backup kept");
    for (const char* line : {"reset", "restore kept"}) {
        EXPECT_THAT(told(line), HasSubstr("in the game now: Cyra")) << line;
    }
    EXPECT_TRUE(isUnchanged());
    told("set 3 gold 1 --force");
    EXPECT_EQ(double{storedSlot(2).gold}, 1);
}

TEST_F(Edit, OthersAreChangedWhileOnePlays) {
    GameLock call("morvek.lock");
    ASSERT_TRUE(call.enter("Alice"));
    told("set 2 gold 7");
    EXPECT_EQ(double{storedSlot(1).gold}, 7);
    told("remove 2");
    EXPECT_EQ(storedSlot(1).name.view(), "Cyra");
    call.leave();
    ASSERT_TRUE(call.enter("Dora")); // who has no character yet
    EXPECT_THAT(told("reset"), HasSubstr("in the game now: a new caller"));
}

TEST_F(Edit, MarksThatNobodyHoldsAreCleared) {
    std::vector<PlayerRecord> marked{character("Alice", "Arwen"), character("Bob", "Bjorn")};
    marked[0].onlineFlag = marked[1].onlineFlag = 1;
    save(marked);
    GameLock call("morvek.lock");
    ASSERT_TRUE(call.enter("Alice"));
    EXPECT_THAT(told("players"), HasSubstr("inside"));
    told("offline --all");
    EXPECT_EQ(storedSlot(0).onlineFlag, 1u);
    EXPECT_EQ(storedSlot(1).onlineFlag, 0u);
}

TEST_F(Edit, NothingChangesWhileAnotherProgramHoldsTheFiles) {
    GameLock other("morvek.lock");
    const Transaction held(other);
    EXPECT_THAT(told("set 1 gold 7"), HasSubstr("another program holds the game's files"));
    EXPECT_TRUE(isUnchanged());
}

TEST_F(Edit, BackupIsADirectoryOfTheDataFiles) {
    EXPECT_EQ(told("backup kept"), "Backup: kept\n");
    EXPECT_EQ(readFile("kept/morchars.dat"), readFile("morchars.dat"));
    EXPECT_THAT(told("backup kept"), StartsWith("1: morvek-sysop: kept already exists"));
}

TEST_F(Edit, BackupRestoresEverythingAsItWas) {
    writeFile("scores.dat", "Arwen#1500Ranger\n");
    told("backup kept");
    told("reset");
    EXPECT_FALSE(fs::exists("morchars.dat"));
    writeFile("111626.txt", "It's a new day!\n\r");
    told("restore kept");
    EXPECT_TRUE(isUnchanged());
    EXPECT_EQ(readFile("scores.dat"), "Arwen#1500Ranger\n");
    EXPECT_FALSE(fs::exists("111626.txt"));
    EXPECT_EQ(told("backup --list"), "backup/auto/20261115-120000: 2 files, 3 players\n"
                                     "backup/auto/20261115-120000.2: 1 file, 0 players\n");
}

TEST_F(Edit, FailedBackupLeavesNothingBehind) {
    fs::create_directory("111626.txt");
    EXPECT_THAT(told("backup kept"), EndsWith("111626.txt cannot be read: Is a directory\n"));
    EXPECT_FALSE(fs::exists("kept"));
    EXPECT_FALSE(fs::exists("kept.new"));
}

TEST_F(Edit, RestoreRefusesWhatIsNoBackup) {
    fs::create_directory("empty");
    EXPECT_THAT(told("restore empty"), EndsWith("empty is empty\n"));
    fs::create_directory("foreign");
    writeFile("foreign/letter", "");
    EXPECT_THAT(told("restore foreign"), HasSubstr("\"letter\", which is not a data file"));
    EXPECT_THAT(told("restore nowhere"), HasSubstr("nowhere: no such backup"));
    EXPECT_TRUE(isUnchanged());
}

TEST_F(Edit, LatestFiftyBackupsAreKept) {
    for (int i = 0; i < 51; ++i) {
        told("backup");
    }
    EXPECT_EQ(backups(), 50);
    EXPECT_FALSE(fs::exists("backup/20261115-120000"));
    EXPECT_TRUE(fs::exists("backup/20261115-120000.51"));
}
