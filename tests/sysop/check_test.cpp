#include "sysop/tool.h"

#include "files/game_lock.h"

struct Check : Sysop {
    static void expectFault(const std::string& fault) {
        EXPECT_THAT(told("check"), testing::AllOf(StartsWith("1: "), HasSubstr(fault)));
    }
};

TEST_F(Check, NamesSlotAndFieldOfAForgedWord) {
    // Where in the record, the word, and what is told.
    const Cases<std::size_t, std::uint32_t, const char*> words{
        {88, 16, "name has the length 16"},
        {88, 4, "name is not padded with zeros"},
        {204, 27, "weapon contains a control byte"},
        {52, 23226, "lastPlayedDay is 23226; must be a date"},
        {132, 8, "level is 8"},
        {160, 25, "hitPoints is 25, above maxHitPoints (24)"},
        {144, 0x7ff80000, "gold is nan; must be"},
        {392, 2, "searched.30 is 2"},
        {1308, 3, "mortuary1.1 (its copy) is 3"},
        {388, 1, "worldState is not zero"},
        {48, 3, "slotIndex is 3"},
        {192, 4, "weapon is \"Club\"; number 4 is \"Mace\""},
        {92, 0x726f2342, "name is \"B#orn\"; a '#' would"}};
    for (const auto& [offset, word, fault] : words) {
        PlayerRecord wrong = character("Bob", "Bjorn");
        std::memcpy(reinterpret_cast<char*>(&wrong) + offset, &word, sizeof word);
        save({character("Alice", "Arwen"), wrong});
        expectFault(std::string("morchars.dat: player 2 (Bob): ") + fault);
        EXPECT_THAT(told("check"), Not(HasSubstr("player 1 "))) << fault;
    }
}

TEST_F(Check, SeesSeveralRecordsTogether) {
    const PlayerRecord alice = character("Alice", "Arwen");
    save({alice, alice});
    expectFault("player 2 (Alice): ownerName owns player 1 too");
    save({emptySlot(), alice});
    expectFault("player 2 (Alice) is behind player 1, which is free");
    save(std::vector<PlayerRecord>(45, alice));
    expectFault("morchars.dat has 45 of 49 places taken");
    std::vector<PlayerRecord> last(slotCount, emptySlot());
    last[49] = alice;
    save(last);
    expectFault("player 50 (Alice) is never searched");
}

TEST_F(Check, ReadsEveryOtherFileAsTheGameDoes) {
    std::string tooLong = storedText("A") + storedText("");
    tooLong[28] = 50;
    const Cases<const char*, std::string, const char*> cases{
        {"scores.dat", "A#5Ranger\nB#9Rogue\n", "line 2: score is 9"},
        {"scores.dat", "A#5Ranger\nB\n", "line 2 cannot be read"},
        {"scores.dat", "A#5Bard\n", "className reads as \"Bard\""},
        {"scores.dat", "A#5Rogue\nA#4Rogue\n", "is \"A\" again"},
        {"scores.dat", times(11, "A#7Rogue\n"), "line 11 is one too many"},
        {"scroll.dat", tooLong, "entry 1: message has the length 50"},
        {"scroll.dat", std::string(481, '\0'), "has 481 bytes"},
        {"111526.txt", "It's a new day!\n\rBob\n", "line 2 does not end"},
        {"139926.txt", "It's a new day!\n\r", "is not named after a date"},
        {"scores.dat", "A#b#5Rogue\n", "line 1 cannot be read"},
        {"heal.asc", "Life\r\nHealth\n", "line 2 ends in a line feed without"},
        {"drink.ans", "caf\u00E9", "drink.ans is in UTF-8"},
        {"morvek.lock", "x", "morvek.lock is not empty"},
        {"morvek.cfg", "x\nZo\u00EB\n.\n", "line 2 is in UTF-8"},
        {"morvek.cfg", "x\n" + std::string(254, 'y') + "\n.\n", "line 2 is longer than 253"},
        {"morvek.cfg", "x\ny\n.\r\n", "morvek.cfg: line 3 ends in a carriage return"},
        {"morvek.cfg", "x\ny\n/no/where\n", "is \"/no/where\", which is not a directory"}};
    for (const auto& [file, content, fault] : cases) {
        writeFile(file, content);
        expectFault(fault);
    }
}

TEST_F(Check, NamesMissingAndUnwritableFiles) {
    for (const char* menu : {"heal.asc", "drink.asc", "drink.ans"}) {
        fs::remove(menu);
    }
    writeFile("scores.dat", "A#5Rogue\n", 0444);
    ASSERT_EQ(::mkfifo("scores.asc", 0) + ::chmod("scores.asc", 0666) + ::mkfifo("heal.ASC", 0), 0);
    ::chmod(".", 0555);
    const AsNobody nobody;
    for (const char* fault :
         {"error: heal.ASC is not a regular", "error: scores.asc is not a regular",
          "error: drink.asc is missing, and drink.ans too", "warning: . cannot be written",
          "warning: scores.dat cannot be written", "3 errors and 2 warnings"}) {
        expectFault(fault);
    }
}

TEST_F(Check, IsSilentOnWhatIsNoFault) {
    fs::rename("heal.asc", "HEAL.ASC");
    writeFile("scores.dat", "A#9Rogue\n Bo#8Rogue\n Cy#7Rogue\n");
    save({character(" Al", " Ar")});
    told("set 1 onlineFlag 1");
    EXPECT_THAT(told("check"),
                HasSubstr("note: morchars.dat: player 1 ( Al): onlineFlag is 1, but"));
    GameLock call("morvek.lock");
    ASSERT_TRUE(call.enter(" Al"));
    EXPECT_EQ(told("check"), "note: scores.dat: line 2 begins with a blank, which the game does "
                             "not read\nNo errors or warnings.\n");
    EXPECT_THAT(told("check --json"), HasSubstr("\"place\": \"line 2\""));
}
