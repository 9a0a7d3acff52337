#include "sysop/tool.h"

#include <functional>

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
    {"castle1.24 is 2", [](PlayerRecord& one) { one.worldState[(980 - 272) / 4] = 2; }},
    {"castle2.1 is 2", [](PlayerRecord& one) { one.worldState[(1028 - 272) / 4] = 2; }},
    {"cavern1.13 is 3", [](PlayerRecord& one) { one.worldState[306] = 3; }},
    {"mortuary1.1 (its copy) is 3",
     [](PlayerRecord& one) { one.worldState[(1308 - 272) / 4] = 3; }},
    {"worldState holds something", [](PlayerRecord& one) { one.worldState[29] = 1; }},
};

class Check : public Sysop {
protected:
    // Both find what is to be told.
    static void expectFault(const std::string& fault) {
        EXPECT_THAT(told("check"), testing::AllOf(StartsWith("1: "), HasSubstr(fault)));
    }
    static void expectFault(const char* file, const std::string& content, const char* fault) {
        writeFile(file, content);
        expectFault(fault);
        fs::remove(file);
    }
};

} // namespace

// What else the game makes, the soak checks.
TEST_F(Check, FindsNothingInWhatTheGameMakes) {
    PlayerRecord online = character("Bob", "Bjorn");
    online.onlineFlag = 1;
    save({character("Alice", "Arwen"), online, character("Carol", "")});
    EXPECT_THAT(told("check"), HasSubstr("note: morchars.dat: slot 2 (Bob): onlineFlag is 1"));
    EXPECT_THAT(told("check"), HasSubstr("note: morchars.dat: slot 3 (Carol): name is empty"));
    EXPECT_THAT(told("check"), Not(StartsWith("1: ")));
}

TEST_F(Check, NamesRecordAndFieldOfEachFault) {
    for (const Fault& fault : faultsOfRecord) {
        PlayerRecord wrong = character("Bob", "Bjorn");
        fault.make(wrong);
        save({character("Alice", "Arwen"), wrong});
        expectFault("morchars.dat: slot 2 (Bob): " + std::string(fault.told));
        EXPECT_THAT(told("check"), Not(HasSubstr("slot 1 "))) << fault.told;
    }
}

TEST_F(Check, SeesSeveralRecordsTogether) {
    const PlayerRecord alice = character("Alice", "Arwen");
    PlayerRecord nobody = alice;
    nobody.ownerName.length = 99;
    std::vector<PlayerRecord> last(slotCount, emptySlot());
    last[49] = alice;
    const Cases<std::vector<PlayerRecord>, const char*> cases{
        {{alice, alice}, "slot 2 (Alice): ownerName owns slot 1 too"},
        {{emptySlot(), alice}, "slot 2 (Alice) stands behind slot 1, which is free"},
        {{nobody}, "slot 1: ownerName has the length 99"},
        {last, "slot 50 (Alice) is one that the game never looks into"}};
    for (const auto& [slots, fault] : cases) {
        save(slots);
        expectFault(fault);
    }
    fs::resize_file("morchars.dat", 3000);
    expectFault("morchars.dat has 3000 bytes and not 75000: it ends in slot 3");
    fs::remove("morchars.dat");
    fs::create_directory("morchars.dat");
    expectFault("error: morchars.dat is no file that can be read");
}

TEST_F(Check, ReadsScoresBoardAndNewsAsTheGameDoes) {
    expectFault("scores.dat", "A#5Ranger\nB#9Rogue\n", "line 2: score is 9");
    expectFault("scores.dat", "A#5Ranger\nB\n", "line 2 cannot be read");
    expectFault("scores.dat", "A #5 Ranger\n", "reads as \"A #5Ranger\"");
    expectFault("scores.dat", "A#5Bard\n", "className reads as \"Bard\"");
    expectFault("scores.dat", "A#5Rogue\nA#4Rogue\n", "is \"A\" a second time");
    std::string eleven;
    for (char name = 'A'; name < 'L'; ++name) {
        eleven.append(1, name).append("#7Rogue\n");
    }
    expectFault("scores.dat", eleven, "line 11 is one too many");
    const std::string empty(48, '\0');
    expectFault("scroll.dat", empty + storedText("\033[2J"),
                "entry 2: author holds a control byte");
    expectFault("scroll.dat", storedText("A") + bytesOf(forged("", 50)),
                "entry 1: message has the length 50");
    expectFault("scroll.dat", std::string(481, '\0'), "has 481 bytes");
    expectFault("111526.txt", "It's a new day!\n\rBob\n", "line 2 does not end");
    expectFault("139926.txt", "It's a new day!\n\r", "is named after no day");
}

TEST_F(Check, NamesWhatItsUserCannotWrite) {
    writeFile("scroll.dat", "", 0666);
    writeFile("scores.dat", "A#5Rogue\n", 0444);
    ::chmod(".", 0555);
    const AsNobody nobody;
    expectFault("warning: . admits no new file");
    expectFault("warning: scores.dat cannot be written");
    expectFault("0 errors and 2 warnings");
}

TEST_F(Check, ReadsTheConfigurationAndLooksForTheMenus) {
    for (const char* menu : {"heal.asc", "drink.asc", "drink.ans"}) {
        fs::remove(menu);
    }
    expectFault("warning: heal.asc is not there");
    expectFault("error: drink.asc is not there, nor is drink.ans");
    expectFault("1 error and 1 warning");
    const Cases<std::string, const char*> cases{
        {"x\n" + std::string(254, 'y') + "\n.\n", "morvek.cfg: line 2 is longer than 253"},
        {"x\ny\n.\r\n", "error: morvek.cfg: line 3 ends in a carriage return"},
        {"x\ny\n/nowhere/at/all\n", "leads to \"/nowhere/at/all\", which is no directory"}};
    for (const auto& [configuration, fault] : cases) {
        writeFile("morvek.cfg", configuration);
        expectFault(fault);
    }
}
