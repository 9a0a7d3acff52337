#include "sysop/tool.h"

struct Check : Sysop {
    static void expectFault(const std::string& fault) {
        EXPECT_THAT(told("check"), testing::AllOf(StartsWith("1: "), HasSubstr(fault)));
    }
};

// A word that is forged: its place in the record, its value, and what is told.
TEST_F(Check, NamesRecordAndFieldOfEachFault) {
    std::istringstream rows(
        "88 16 name has the length 16|88 4 name is not padded with zeros|"
        "204 27 weapon contains a control byte|228 0 armour is empty|"
        "112 0 className is \"\"|56 7 onlineFlag is 7|48 -1 slotIndex is -1|"
        "52 23226 lastPlayedDay is 23226; must be a date|132 8 level is 8|"
        "184 19 wisdom is 19|248 31 turnsLeft is 31|160 0 hitPoints is 0|"
        "160 25 hitPoints is 25, above maxHitPoints (24)|264 0 inUse is 0|"
        "264 256 inUse is not followed by three zeros|152 0x3fe00000 bankGold is 0.5|"
        "144 0xc0f86a10 gold is -100001|144 0x7ff80000 gold is nan; must be|"
        "268 77 currentLocation is 77|392 2 searched.30 is 2|640 -1 cleared.16 is -1|"
        "980 2 castle1.24 is 2|1028 2 castle2.1 is 2|1496 3 cavern1.13 is 3|"
        "1308 3 mortuary1.1 (its copy) is 3|388 1 worldState is not zero");
    for (std::string row; std::getline(rows, row, '|');) {
        std::size_t read = 0;
        const std::size_t at = std::stoul(row, &read);
        const std::string rest = row.substr(read + 1);
        const auto forged = static_cast<std::uint32_t>(std::stoll(rest, &read, 0));
        PlayerRecord wrong = character("Bob", "Bjorn");
        std::memcpy(reinterpret_cast<char*>(&wrong) + at, &forged, sizeof forged);
        save({character("Alice", "Arwen"), wrong});
        expectFault("morchars.dat: slot 2 (Bob):" + rest.substr(read));
        EXPECT_THAT(told("check"), Not(HasSubstr("slot 1 "))) << row;
    }
}

TEST_F(Check, SeesSeveralRecordsTogether) {
    const PlayerRecord alice = character("Alice", "Arwen");
    PlayerRecord online = character("Bob", "Bjorn");
    online.onlineFlag = 1;
    save({alice, online, character("Carol", "")}); // as the game makes them
    EXPECT_THAT(told("check"), HasSubstr("note: morchars.dat: slot 2 (Bob): onlineFlag is 1"));
    EXPECT_THAT(told("check"), HasSubstr("note: morchars.dat: slot 3 (Carol): name is empty"));
    EXPECT_THAT(told("check"), EndsWith("No errors or warnings.\n"));
    save({alice, alice});
    expectFault("slot 2 (Alice): ownerName owns slot 1 too");
    save({emptySlot(), alice});
    expectFault("slot 2 (Alice) is behind slot 1, which is free");
    PlayerRecord nobody = alice;
    nobody.ownerName.length = 99;
    save({nobody});
    expectFault("slot 1: ownerName has the length 99");
    std::vector<PlayerRecord> last(slotCount, emptySlot());
    last[49] = alice;
    save(last);
    expectFault("slot 50 (Alice) is never searched");
    fs::resize_file("morchars.dat", 3000);
    expectFault("morchars.dat has 3000 bytes; must be 75000: it ends in slot 3");
    fs::remove("morchars.dat");
    fs::create_directory("morchars.dat");
    expectFault("error: morchars.dat is not a regular file");
}

TEST_F(Check, ReadsEveryOtherFileAsTheGameDoes) {
    std::string eleven;
    for (char name = 'A'; name < 'L'; ++name) {
        eleven.append(1, name).append("#7Rogue\n");
    }
    std::string tooLong = storedText("A") + storedText("");
    tooLong[28] = 50;
    const Cases<const char*, std::string, const char*> cases{
        {"scores.dat", "A#5Ranger\nB#9Rogue\n", "line 2: score is 9"},
        {"scores.dat", "A#5Ranger\nB\n", "line 2 cannot be read"},
        {"scores.dat", "A #5 Ranger\n", "reads as \"A #5Ranger\""},
        {"scores.dat", "A#5Bard\n", "className reads as \"Bard\""},
        {"scores.dat", "A#5Rogue\nA#4Rogue\n", "is \"A\" again"},
        {"scores.dat", eleven, "line 11 is one too many"},
        {"scroll.dat", tooLong, "entry 1: message has the length 50"},
        {"scroll.dat", std::string(481, '\0'), "has 481 bytes"},
        {"scroll.dat", storedText("\033[2J"), "entry 1: author contains a control byte"},
        {"111526.txt", "It's a new day!\n\rBob\n", "line 2 does not end"},
        {"139926.txt", "It's a new day!\n\r", "is not named after a date"},
        {"morvek.cfg", "x\n" + std::string(254, 'y') + "\n.\n", "line 2 is longer than 253"},
        {"morvek.cfg", "x\ny\n.\r\n", "error: morvek.cfg: line 3 ends in a carriage return"},
        {"morvek.cfg", "x\ny\n/no/where\n", "is \"/no/where\", which is not a directory"}};
    for (const auto& [file, content, fault] : cases) {
        writeFile(file, content);
        expectFault(fault);
    }
}

TEST_F(Check, NamesWhatIsNotThereOrCannotBeWritten) {
    for (const char* menu : {"heal.asc", "drink.asc", "drink.ans"}) {
        fs::remove(menu);
    }
    writeFile("scroll.dat", "", 0666);
    writeFile("scores.dat", "A#5Rogue\n", 0444);
    ::chmod(".", 0555);
    const AsNobody nobody;
    for (const char* fault :
         {"warning: heal.asc is missing", "error: drink.asc is missing, and drink.ans too",
          "warning: . is not writable", "warning: scores.dat is not writable",
          "1 error and 3 warnings"}) {
        expectFault(fault);
    }
}
