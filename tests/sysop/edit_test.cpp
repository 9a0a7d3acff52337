#include "sysop/tool.h"

#include "files/game_lock.h"

#include <sys/wait.h>

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
        return std::distance(fs::directory_iterator("backup/auto", notThere),
                             fs::directory_iterator());
    }

    std::string before;
};

TEST_F(Edit, SetChangesFieldsAfterABackup) {
    const uid_t owner = ::geteuid() == 0 && ::chown(".", 65534, 65534) == 0 ? 65534 : ::geteuid();
    EXPECT_THAT(told("set 2 GOLD -500 name Zo\u00EB weapon mace armourNumber 2 Mortuary1.1 1"),
                EndsWith("name Bjorn -> Zo\u00EB\ngold 25 -> -500\nweaponNumber 1 -> 4\n"
                         "weapon Club -> Mace\narmourNumber 1 -> 2\narmour Cloth -> Feyweave\n"
                         "mortuary1.1 0 -> 1\n"));
    EXPECT_EQ(storedSlot(1).name.view(), "Zo\x89");
    EXPECT_EQ(storedSlot(1).worldState[(1308 - 272) / 4], 1) << "the copy";
    EXPECT_EQ(backups(), 1);
    for (const char* path : {"morchars.dat", "morvek.lock", "backup/auto"}) {
        struct stat status {};
        EXPECT_TRUE(::stat(path, &status) == 0 && status.st_uid == owner) << path;
    }
    EXPECT_EQ(told("check"), "No errors or warnings.\n");
}

TEST_F(Edit, SetRefusesWhatDoesNotFit) {
    for (const std::string misuse :
         {"gold much", "gold 0x10", "gold 1 level", "level 8", "searched.77 1", "maxHitPoints 20",
          "className Bard", "armour Club", "name \u65E5", "name \"sixteen letters!\"",
          "ownerName Carol", "ownerName \"Bob \""}) {
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
    told("backup kept");
    for (const char* line :
         {"set 3 gold 1", "remove 3", "remove 1", "offline 3", "reset", "restore kept"}) {
        EXPECT_THAT(told(line), HasSubstr("in the game now")) << line;
    }
    call.leave();
    std::optional<Transaction> held(call);
    EXPECT_THAT(told("set 1 gold 7"), HasSubstr("another program holds the game's files"));
    held.reset();
    ASSERT_TRUE(call.enter("Dora")); // who has no character yet
    EXPECT_THAT(told("reset"), HasSubstr("in the game now: a new caller"));
    EXPECT_THAT(told("set 1 ownerName Dora"), HasSubstr("in the game now"));
    EXPECT_TRUE(isUnchanged());
    EXPECT_THAT(told("set 1 ownerName Dora --force"), HasSubstr("Alice -> Dora"));
}

TEST_F(Edit, OthersAreChangedWhileOnePlays) {
    PlayerRecord marked = character("Alice", "Arwen");
    marked.onlineFlag = 1;
    save({marked, character("Bob", "Bjorn"), marked});
    told("set 3 ownerName Carol");
    GameLock call("morvek.lock");
    ASSERT_TRUE(call.enter("Alice"));
    EXPECT_THAT(told("players"), HasSubstr("inside"));
    told("offline --all");
    EXPECT_EQ(storedSlot(0).onlineFlag, 1U);
    EXPECT_EQ(storedSlot(2).onlineFlag, 0U);
    told("remove 2");
    EXPECT_EQ(storedSlot(1).ownerName.view(), "Carol");
}

TEST_F(Edit, BackupIsADirectoryOfTheDataFiles) {
    EXPECT_EQ(told("backup kept"), "Backup: kept\n");
    EXPECT_EQ(readFile("kept/morchars.dat"), readFile("morchars.dat"));
    EXPECT_THAT(told("backup kept"), StartsWith("1: morvek-sysop: kept already exists"));
    fs::create_directory("111626.txt");
    EXPECT_THAT(told("backup other"), EndsWith("111626.txt cannot be read: Is a directory\n"));
    EXPECT_FALSE(fs::exists("other") || fs::exists("other.new"));
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

TEST_F(Edit, RestoreRefusesWhatIsNoBackup) {
    fs::create_directory("empty");
    EXPECT_THAT(told("restore empty"), EndsWith("empty is empty\n"));
    fs::create_directory("foreign");
    writeFile("foreign/letter", "");
    EXPECT_THAT(told("restore foreign"), HasSubstr("\"letter\", which is not a data file"));
    EXPECT_THAT(told("restore nowhere"), HasSubstr("nowhere: no such backup"));
    EXPECT_TRUE(isUnchanged());
}

TEST_F(Edit, RestoreIsAllOrNothing) {
    writeFile("scores.dat", "Arwen#1500Ranger\n", 0444);
    told("backup kept");
    told("set 1 gold 1");
    before = readFile("morchars.dat");
    ASSERT_EQ(::chmod("morchars.dat", 0666) + ::chmod("backup/auto", 0777), 0);
    const AsNobody nobody;
    EXPECT_THAT(told("restore kept"), EndsWith("Permission denied; nothing was changed\n"));
    EXPECT_TRUE(isUnchanged());
}

TEST_F(Edit, LatestFiftyBackupsOfEachKindAreKept) {
    told("backup");
    for (int i = 0; i < 51; ++i) {
        told("set 1 gold " + std::to_string(i));
    }
    EXPECT_EQ(backups(), 50);
    EXPECT_TRUE(fs::exists("backup/20261115-120000"));
    EXPECT_FALSE(fs::exists("backup/auto/20261115-120000"));
    told("restore 20261115-120000.2"); // the oldest one, which makes one more
    EXPECT_TRUE(fs::exists("backup/auto/20261115-120000.2"));
    EXPECT_TRUE(fs::exists("backup/auto/20261115-120000.52"));
}

TEST_F(Edit, ToolsAtOnceLoseNothing) {
    for (int i = 0; i < 10; ++i) {
        const bool isChild = ::fork() == 0;
        told((isChild ? "set 1 gold " : "set 2 gold ") + std::to_string(i));
        if (isChild) {
            std::_Exit(0);
        }
        ::wait(nullptr);
        EXPECT_EQ(storedSlot(0).gold + storedSlot(1).gold, 2 * i);
    }
}

struct Moderation : Edit {
    Moderation() {
        writeFile("scroll.dat", storedText("Bjorn") + storedText("rude") + storedText("Cyra") +
                                    storedText("hello"));
        writeFile("scores.dat", "Bjorn#1500Ranger\nCyra#900Ranger\n");
        writeFile("111426.txt", "Bob joined the game.\n\rCarol joined the game.\n\r");
    }
};

TEST_F(Moderation, TakesLinesAndTracesAway) {
    told("board --remove 2");
    EXPECT_EQ(told("board"), "Morvek's Scroll:\n\nBjorn: rude\n");
    told("scores --remove 2");
    EXPECT_EQ(readFile("scores.dat"), "Bjorn#1500Ranger\n");
    EXPECT_EQ(readFile("scores.asc"), told("scores"));
    told("remove 2 --traces");
    EXPECT_EQ(told("board"), "Morvek's Scroll:\n\n");
    EXPECT_FALSE(fs::exists("scores.dat"));
    EXPECT_EQ(readFile("111426.txt"), "Carol joined the game.\n\r");
}

TEST_F(Moderation, SeesTheBoardWhileSomebodyTypes) {
    fs::rename("scroll.dat", "scroll.old");
    writeFile("scroll.dat", storedText("Cyra") + storedText("new"));
    EXPECT_THAT(told("board"), EndsWith(":\n\nCyra: new\n")) << "the other is left over";
    GameLock call("morvek.lock");
    call.setBoardTaken(true);
    EXPECT_THAT(told("board"), EndsWith("Bjorn: rude\nCyra: hello\nCyra: new\n"));
    EXPECT_THAT(told("board --remove 1"), HasSubstr("typing a message"));
    told("backup kept");
    call.setBoardTaken(false);
    fs::copy_file("kept/scroll.dat", "scroll.dat", fs::copy_options::overwrite_existing);
    EXPECT_THAT(told("board"), EndsWith("Bjorn: rude\nCyra: hello\nCyra: new\n"));
}

TEST_F(Moderation, PurgeRemovesWhatIsOld) {
    writeFile("111326.txt", "");
    save({character("Alice", "Arwen"), character("Bob", "Bjorn"), character("Dora", "Dis")});
    const std::string gone = "To be removed: 111326.txt\nTo be removed: player 3 (Dis, the "
                             "character of Dora), last played on an unknown day\n";
    EXPECT_EQ(told("purge --before 2026-11-14 --dry-run"), gone);
    EXPECT_THAT(told("purge --before 111426"), StartsWith(gone));
    EXPECT_EQ(told("purge --before 111426"), "There is nothing to remove.\n");
}
