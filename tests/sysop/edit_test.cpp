#include "sysop/tool.h"

using namespace morvek;
using namespace morvek::test;
using testing::HasSubstr;

namespace {

class Edit : public Sysop {
protected:
    Edit() {
        PlayerRecord carol = character("Carol", "Cyra");
        carol.slotIndex = 2;
        save({character("Alice", "Arwen"), character("Bob", "Bjorn"), carol});
        before = readFile("morchars.dat");
    }

    std::string before;

    // How many bytes of the character file are not what they were.
    std::size_t bytesChanged() {
        const std::string now = readFile("morchars.dat");
        std::size_t changed = 0;
        for (std::size_t i = 0; i < now.size(); ++i) {
            changed += now[i] != before[i] ? 1U : 0U;
        }
        return changed;
    }
};

} // namespace

TEST_F(Edit, SetChangesTheFieldAndNothingElse) {
    EXPECT_EQ(run({"set", "2", "GOLD", "-500"}), 0) << err;
    EXPECT_EQ(double{load(1).gold}, -500);
    EXPECT_EQ(double{load(0).gold}, 25);
    EXPECT_EQ(backups(), 1u);
    EXPECT_EQ(run({"set", "2", "gold", "25"}), 0);
    EXPECT_EQ(bytesChanged(), 0u);

    EXPECT_EQ(run({"set", "2", "charisma", "13"}), 0);
    EXPECT_EQ(bytesChanged(), 1u);
    EXPECT_EQ(run({"set", "2", "name", "Zo\u00EB"}), 0);
    EXPECT_EQ(load(1).name.view(), "Zo\x89");
    EXPECT_EQ(run({"set", "2", "Mortuary1.1", "1"}), 0);
    EXPECT_EQ(load(1).worldState[(1168 - 272) / 4], 1);
    EXPECT_EQ(load(1).worldState[(1308 - 272) / 4], 1);
    EXPECT_EQ(run({"set", "2", "searched.76", "1"}), 0);
    EXPECT_EQ(load(1).worldState[(576 - 272) / 4], 1);
    EXPECT_EQ(run({"check"}), 0) << out;
}

TEST_F(Edit, WhatDoesNotFitChangesNothingAndMakesNoBackup) {
    const std::vector<std::vector<std::string>> misuses{
        {"2", "gold", "much"},
        {"2", "gold", "1e3"},
        {"2", "level", "8"},
        {"2", "name", ""},
        {"2", "name", "sixteen letters!"},
        {"2", "className", "Bard"},
        {"2", "name", "\u65E5"},
        {"2", "name", "\xC1\x81"},
        {"2", "name", "A\xC3"},
        {"2", "name", "a\033b"},
        {"2", "hitPoints", "25"},
        {"2", "lastPlayedDay", "23226"},
        {"2", "ownerName", "Carol"},
        {"2", "searched.77", "1"},
        {"2", "searched.7", "2"},
        {"2", "worldState", "0"},
        {"51", "gold", "1"},
    };
    for (auto arguments : misuses) {
        arguments.insert(arguments.begin(), "set");
        EXPECT_EQ(run(arguments), 2) << arguments[2] << ' ' << arguments[3];
        EXPECT_NE(err, "");
    }
    EXPECT_EQ(run({"set", "9", "gold", "1"}), 1);
    EXPECT_EQ(run({"set", "2", "gold", "25"}), 0);
    EXPECT_EQ(bytesChanged(), 0u);
    EXPECT_EQ(backups(), 0u);
}

TEST_F(Edit, NothingIsChangedWhereNoBackupCanBeMade) {
    writeFile("backup", "in the way");
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"set", "1", "gold", "1"}, {"remove", "1"}, {"reset"}}) {
        EXPECT_EQ(run(arguments), 1);
        EXPECT_THAT(err, HasSubstr("no backup, and nothing was changed"));
    }
    EXPECT_EQ(bytesChanged(), 0u);
}

TEST_F(Edit, RemoveFillsThePlaceWithTheLast) {
    EXPECT_EQ(run({"remove", "1"}), 0);
    EXPECT_THAT(out, HasSubstr("Player 1 (Cyra, the character of Carol) was number 3 until now."));
    EXPECT_EQ(load(0).ownerName.view(), "Carol");
    EXPECT_EQ(load(0).slotIndex, 0);
    EXPECT_EQ(load(1).ownerName.view(), "Bob");
    EXPECT_EQ(readFile("morchars.dat").substr(3000, 1500), before.substr(4500, 1500));
    EXPECT_EQ(run({"remove", "2"}), 0);
    EXPECT_EQ(run({"remove", "2"}), 1);
    EXPECT_EQ(run({"check"}), 0) << out;

    save({emptySlot(), character("Alice", "Arwen")});
    EXPECT_EQ(run({"remove", "1"}), 0);
    EXPECT_EQ(load(0).ownerName.view(), "Alice");
}

TEST_F(Edit, MarksAreTakenOffAndKeepTheOtherVerbsAway) {
    PlayerRecord alice = character("Alice", "Arwen");
    alice.onlineFlag = 1;
    save({alice, character("Bob", "Bjorn")});
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"set", "2", "gold", "1"}, {"remove", "2"}, {"reset"}, {"restore", "x"}}) {
        EXPECT_EQ(run(arguments), 1);
        EXPECT_THAT(err, HasSubstr("marked on-line: Arwen"));
    }
    EXPECT_EQ(run({"set", "2", "gold", "1", "--force"}), 0);
    EXPECT_EQ(run({"offline", "2"}), 0);
    EXPECT_EQ(load(0).onlineFlag, 1u);
    EXPECT_EQ(run({"offline"}), 2);
    EXPECT_EQ(run({"offline", "1", "--all"}), 2);
    EXPECT_EQ(run({"offline", "--all"}), 0);
    EXPECT_EQ(load(0).onlineFlag, 0u);
}

TEST_F(Edit, ABackupRestoresEverythingAsItWas) {
    writeFile("scores.dat", "Arwen#1500Ranger\n");
    writeFile("111526.txt", "It's a new day!\n\r");
    EXPECT_EQ(run({"backup", "kept.tar"}), 0) << err;
    EXPECT_EQ(run({"backup", "kept.tar"}), 1);
    EXPECT_EQ(run({"reset"}), 0);
    EXPECT_FALSE(std::filesystem::exists("morchars.dat"));
    EXPECT_TRUE(std::filesystem::exists("morvek.cfg"));
    EXPECT_TRUE(std::filesystem::exists("heal.asc"));

    writeFile("111626.txt", "It's a new day!\n\r");
    EXPECT_EQ(run({"restore", "kept.tar"}), 0) << err;
    EXPECT_EQ(bytesChanged(), 0u);
    EXPECT_EQ(readFile("scores.dat"), "Arwen#1500Ranger\n");
    EXPECT_FALSE(std::filesystem::exists("111626.txt"));

    EXPECT_EQ(run({"backup", "--list"}), 0);
    EXPECT_THAT(out, HasSubstr("backup/20261115-120000.tar  3 files, 3 players\n"));
    EXPECT_THAT(out, HasSubstr("backup/20261115-120000.2.tar  1 file, 0 players\n"));
    EXPECT_EQ(std::system("tar -tf kept.tar >listed"), 0);
    EXPECT_EQ(readFile("listed"), "111526.txt\nmorchars.dat\nscores.dat\n");
}

TEST_F(Edit, ADamagedOrForeignBackupIsRefused) {
    run({"backup", "kept.tar"});
    const std::string whole = readFile("kept.tar");
    const auto refused = [&](std::string bytes) {
        writeFile("damaged.tar", bytes);
        return run({"restore", "damaged.tar"}) == 1;
    };
    EXPECT_TRUE(refused(whole.substr(0, 40000)));
    EXPECT_TRUE(refused(whole.substr(0, whole.size() - 1024)));
    std::string renamed = whole;
    renamed[0] = 'M';
    EXPECT_TRUE(refused(renamed));
    std::string flipped = whole;
    flipped[105] = '7';
    EXPECT_TRUE(refused(flipped));
    EXPECT_EQ(std::system("mkdir d && echo x >d/x && tar -cf foreign.tar d/x"), 0);
    EXPECT_EQ(run({"restore", "foreign.tar"}), 1);
    EXPECT_THAT(err, HasSubstr("\"d/x\", which is no data file; nothing was changed"));
    EXPECT_EQ(bytesChanged(), 0u);
}

TEST_F(Edit, TheNewestFiftyBackupsAreKept) {
    for (int i = 0; i < 53; ++i) {
        EXPECT_EQ(run({"backup"}), 0);
    }
    EXPECT_EQ(backups(), 50u);
    EXPECT_FALSE(std::filesystem::exists("backup/20261115-120000.3.tar"));
    EXPECT_TRUE(std::filesystem::exists("backup/20261115-120000.53.tar"));
}
