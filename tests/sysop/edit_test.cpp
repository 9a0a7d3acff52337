#include "sysop/tool.h"

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
    EXPECT_THAT(told("set 2 gold 25"), HasSubstr("is already 25"));
    EXPECT_EQ(backups(), 0);
    EXPECT_TRUE(isUnchanged());
}

TEST_F(Edit, NothingChangesWithoutABackup) {
    writeFile("backup", "in the way");
    for (const char* line : {"set 1 gold 1", "remove 1", "reset"}) {
        EXPECT_THAT(told(line),
                    HasSubstr("cannot be created: Not a directory; nothing was changed"));
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

TEST_F(Edit, OnlineMarksKeepTheOtherVerbsAway) {
    PlayerRecord alice = character("Alice", "Arwen");
    alice.onlineFlag = 1;
    save({alice, character("Bob", "Bjorn")});
    for (const char* line : {"set 2 gold 1", "remove 2", "reset", "restore x"}) {
        EXPECT_THAT(told(line), HasSubstr("marked on-line: Arwen")) << line;
    }
    EXPECT_THAT(told("set 2 gold 1 --force"), HasSubstr("25 -> 1\n"));
    told("offline --all");
    EXPECT_EQ(storedSlot(0).onlineFlag, 0u);
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
    EXPECT_EQ(told("backup --list"), "backup/20261115-120000  2 files, 3 players\n"
                                     "backup/20261115-120000.2  1 file, 0 players\n");
}

TEST_F(Edit, FailedBackupLeavesNothingBehind) {
    fs::create_directory("111626.txt");
    EXPECT_THAT(told("backup kept"), EndsWith("111626.txt cannot be read: Is a directory; "
                                              "nothing was changed\n"));
    EXPECT_FALSE(fs::exists("kept"));
    EXPECT_FALSE(fs::exists("kept.new"));
}

TEST_F(Edit, RestoreRefusesWhatIsNoBackup) {
    fs::create_directory("empty");
    EXPECT_THAT(told("restore empty"), EndsWith("empty is empty; nothing was changed\n"));
    fs::create_directory("foreign");
    writeFile("foreign/letter", "");
    EXPECT_THAT(told("restore foreign"),
                HasSubstr("\"letter\", which is not a data file; nothing was changed"));
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
