#include "sysop/tool.h"

#include <functional>

using namespace morvek;
using namespace morvek::test;
using testing::HasSubstr;
using testing::Not;

namespace {

// A TextSlot as it may stand in a forged file.
TextSlot forged(std::string_view text, std::uint32_t length) {
    TextSlot slot(text);
    slot.length = length;
    return slot;
}

struct Fault {
    const char* told; // field and what is wrong with it
    std::function<void(PlayerRecord&)> make;
};

const std::vector<Fault> faultsOfRecord{
    {"name has the length 16", [](PlayerRecord& one) { one.name.length = 16; }},
    {"name is not filled up with zeros", [](PlayerRecord& one) { one.name = forged("Arwen", 4); }},
    {"weapon holds a control byte", [](PlayerRecord& one) { one.weapon.assign("Cl\033b"); }},
    {"armour is empty", [](PlayerRecord& one) { one.armour.assign(""); }},
    {"className is \"Bard\"", [](PlayerRecord& one) { one.className.assign("Bard"); }},
    {"version is \"0.6.9a\"", [](PlayerRecord& one) { one.version.assign("0.6.9a"); }},
    {"onlineFlag is 7", [](PlayerRecord& one) { one.onlineFlag = 7; }},
    {"slotIndex is -1", [](PlayerRecord& one) { one.slotIndex = -1; }},
    {"lastPlayedDay is 23226, which is no day",
     [](PlayerRecord& one) { one.lastPlayedDay = 23226; }},
    {"level is 8", [](PlayerRecord& one) { one.level = 8; }},
    {"gold is -100001", [](PlayerRecord& one) { one.gold = -100001; }},
    {"gold is nan", [](PlayerRecord& one) { one.gold = std::nan(""); }},
    {"bankGold is 0.5", [](PlayerRecord& one) { one.bankGold = 0.5; }},
    {"hitPoints is 25, above maxHitPoints (24)", [](PlayerRecord& one) { one.hitPoints = 25; }},
    {"hitPoints is 0", [](PlayerRecord& one) { one.hitPoints = 0; }},
    {"wisdom is 19", [](PlayerRecord& one) { one.wisdom = 19; }},
    {"turnsLeft is 31", [](PlayerRecord& one) { one.turnsLeft = 31; }},
    {"inUse is 0", [](PlayerRecord& one) { one.inUse = 0; }},
    {"inUse is not followed by three zeros", [](PlayerRecord& one) { one.afterInUse[2] = 1; }},
    {"currentLocation is 77", [](PlayerRecord& one) { one.currentLocation = 77; }},
    {"searched.1 is 2", [](PlayerRecord& one) { one.worldState[0] = 2; }},
    {"searched.30 is 2", [](PlayerRecord& one) { one.worldState[30] = 2; }},
    {"cleared.16 is -1", [](PlayerRecord& one) { one.worldState[(640 - 272) / 4] = -1; }},
    {"cavern1.13 is 3", [](PlayerRecord& one) { one.worldState[306] = 3; }},
    {"mortuary1.1 (its copy) is 3",
     [](PlayerRecord& one) { one.worldState[(1308 - 272) / 4] = 3; }},
    {"worldState holds something", [](PlayerRecord& one) { one.worldState[29] = 1; }},
};

std::string cell(std::string_view text) {
    const TextSlot slot(text);
    return {reinterpret_cast<const char*>(&slot), sizeof slot};
}

} // namespace

// What else the game makes, the soak checks.
TEST_F(Sysop, CheckFindsNothingInWhatTheGameMakes) {
    PlayerRecord online = character("Bob", "Bjorn");
    online.onlineFlag = 1;
    save({character("Alice", "Arwen"), online, character("Carol", "")});
    EXPECT_EQ(run({"check"}), 0) << out;
    EXPECT_THAT(out, HasSubstr("note: morchars.dat: slot 2 (Bob): onlineFlag is 1"));
    EXPECT_THAT(out, HasSubstr("note: morchars.dat: slot 3 (Carol): name is empty"));
}

TEST_F(Sysop, CheckNamesRecordAndFieldOfEachFault) {
    for (const Fault& fault : faultsOfRecord) {
        PlayerRecord wrong = character("Bob", "Bjorn");
        fault.make(wrong);
        save({character("Alice", "Arwen"), wrong});
        EXPECT_EQ(run({"check"}), 1) << fault.told;
        EXPECT_THAT(out, HasSubstr("morchars.dat: slot 2 (Bob): " + std::string(fault.told)));
        EXPECT_THAT(out, Not(HasSubstr("slot 1 "))) << out;
        EXPECT_THAT(out, HasSubstr("1 ")) << out;
    }
}

TEST_F(Sysop, CheckSeesSeveralRecordsTogether) {
    const PlayerRecord alice = character("Alice", "Arwen");
    save({alice, alice});
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("slot 2 (Alice): ownerName owns slot 1 too"));

    save({emptySlot(), alice});
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("slot 2 (Alice) stands behind slot 1, which is free"));

    PlayerRecord nobody = alice;
    nobody.ownerName.length = 99;
    save({nobody});
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("slot 1: ownerName has the length 99"));

    std::vector<PlayerRecord> full(slotCount, emptySlot());
    full[49] = alice;
    save(full);
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("slot 50 (Alice) is one that the game never looks into"));

    save({alice});
    std::filesystem::resize_file("morchars.dat", 3000);
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("morchars.dat has 3000 bytes and not 75000: it ends in slot 3"));
    std::filesystem::remove("morchars.dat");
    std::filesystem::create_directory("morchars.dat");
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("error: morchars.dat is no file that can be read"));
}

TEST_F(Sysop, CheckReadsScoresBoardAndNewsAsTheGameDoes) {
    const auto told = [&](const char* file, const std::string& content) {
        writeFile(file, content);
        EXPECT_EQ(run({"check"}), 1) << file << content;
        std::filesystem::remove(file);
        return out;
    };
    EXPECT_THAT(told("scores.dat", "A#5Ranger\nB#9Rogue\n"), HasSubstr("line 2: score is 9"));
    EXPECT_THAT(told("scores.dat", "A#5Ranger\nB\n"), HasSubstr("line 2 cannot be read"));
    EXPECT_THAT(told("scores.dat", "A #5 Ranger\n"), HasSubstr("reads as \"A #5Ranger\""));
    EXPECT_THAT(told("scores.dat", "A#5Bard\n"), HasSubstr("className reads as \"Bard\""));
    EXPECT_THAT(told("scores.dat", "A#5Rogue\nA#4Rogue\n"), HasSubstr("is \"A\" a second time"));
    std::string eleven;
    for (char name = 'A'; name < 'L'; ++name) {
        eleven.append(1, name).append("#7Rogue\n");
    }
    EXPECT_THAT(told("scores.dat", eleven), HasSubstr("line 11 is one too many"));
    EXPECT_THAT(told("scroll.dat", std::string(481, '\0')), HasSubstr("has 481 bytes"));
    EXPECT_THAT(
        told("scroll.dat", std::string(48, '\0') + cell("\033[2J") + std::string(408, '\0')),
        HasSubstr("entry 2: author holds a control byte"));
    std::string length = std::string(28, '\0') + char(50) + std::string(451, '\0');
    EXPECT_THAT(told("scroll.dat", length), HasSubstr("entry 1: message has the length 50"));
    EXPECT_THAT(told("111526.txt", "It's a new day!\n\rBob\n"), HasSubstr("line 2 does not end"));
    EXPECT_THAT(told("139926.txt", "It's a new day!\n\r"), HasSubstr("is named after no day"));
}

TEST_F(Sysop, CheckNamesWhatItsUserCannotWrite) {
    writeFile("scroll.dat", "", 0666);
    writeFile("scores.dat", "A#5Rogue\n", 0444);
    ::chmod(".", 0555);
    const AsNobody nobody;
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("warning: . admits no new file"));
    EXPECT_THAT(out, HasSubstr("warning: scores.dat cannot be written"));
    EXPECT_THAT(out, HasSubstr("0 errors and 2 warnings")) << out;
}

TEST_F(Sysop, CheckReadsTheConfigurationAndLooksForTheMenus) {
    std::filesystem::remove("heal.asc");
    std::filesystem::remove("drink.asc");
    std::filesystem::remove("drink.ans");
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("warning: heal.asc is not there"));
    EXPECT_THAT(out, HasSubstr("error: drink.asc is not there, nor is drink.ans"));
    EXPECT_THAT(out, HasSubstr("1 error and 1 warning"));

    writeFile("morvek.cfg", "x\n" + std::string(254, 'y') + "\n.\n");
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("morvek.cfg: line 2 is longer than 253"));
    writeFile("morvek.cfg", "x\ny\n.\r\n");
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("error: morvek.cfg: line 3 ends in a carriage return"));
    writeFile("morvek.cfg", "x\ny\n/nowhere/at/all\n");
    EXPECT_EQ(run({"check"}), 1);
    EXPECT_THAT(out, HasSubstr("leads to \"/nowhere/at/all\", which is no directory"));
}
