// The board by what its callers see, and its file by the byte.
#include "towne/scroll_board.h"

#include "files/scroll_file.h"
#include "support/temporary_directory.h"
#include "towne/said.h"

#include <sys/stat.h>

using namespace morvek;
using namespace morvek::test;
using testing::HasSubstr;

namespace {

const std::string zeros(480, '\0');

std::string slotBytes(const std::string& text) {
    std::string bytes(24, '\0');
    bytes[4] = static_cast<char>(text.size());
    if (text.size() > 15) {
        bytes[8] = bytes[4];
        return bytes;
    }
    return bytes.replace(8, text.size(), text);
}

std::string lastEntry(const std::string& author, const std::string& message) {
    return zeros.substr(48) + slotBytes(author) + slotBytes(message);
}

} // namespace

class Board : public InTemporaryDirectory {
protected:
    Board() { game.player.name = "Arwen"; }

    static void board(const std::string& keys) {
        caller.type(keys);
        scrollBoard();
    }
    // What the board shows to a call that has just begun.
    static std::string shownToTheNextCaller() {
        newCall();
        board("c");
        return said("--||", "`red`W");
    }
};

TEST_F(Board, AMissingBoardIsCreatedFromMemoryAndShown) {
    game.scroll.back() = {"Bors", "Kept"};
    board("c");
    EXPECT_EQ(said(), "`bright white`-`bright red`-`red`- `bright white`Morvek's Scroll `red`-"
                      "`bright red`-`bright white`-|"
                      "`bright white`----------------------------------||"
                      "`red`Bors`bright red`: `bright white`Kept||"
                      "`red`W`bright red`)`bright white`rite to Scroll `bright white`or `red`C"
                      "`bright red`)`bright white`lose Scroll||");
    const std::string bytes = lastEntry("Bors", "Kept");
    EXPECT_EQ(readFile("scroll.dat"), bytes + bytes);
}

TEST_F(Board, FifteenCharactersLastAndSixteenLastForTheCall) {
    board("wFifteen letters\rYc");
    EXPECT_THAT(said(), HasSubstr("`bright red`Message`bright red`: `bright white`|`red`Save "
                                  "message (`bright white`Y`red`/`bright white`N`red`)"
                                  "`bright red`: `bright white`"));
    const std::string bytes = lastEntry("Arwen", "Fifteen letters");
    EXPECT_EQ(readFile("scroll.dat"), bytes + bytes);
    EXPECT_EQ(shownToTheNextCaller(), "`red`Arwen`bright red`: `bright white`Fifteen letters||");

    game.player.name = "Bors";
    board("wSixteen letters.\ryc");
    EXPECT_EQ(readFile("scroll.dat").substr(432, 48),
              slotBytes("Bors") + slotBytes("Sixteen letters."));
    board("c");
    EXPECT_EQ(said("--||", "`red`W"), "`red`Arwen`bright red`: `bright white`Fifteen letters|"
                                      "`red`Bors`bright red`: `bright white`Sixteen letters.||");
    EXPECT_EQ(shownToTheNextCaller(), "`red`Arwen`bright red`: `bright white`Fifteen letters|");
}

TEST_F(Board, TheEleventhMessagePushesTheFirstOffTheTop) {
    for (const char letter : std::string("abcdefghijk")) {
        board("w" + std::string(1, letter) + "\ryc");
    }
    std::string expected;
    for (const char letter : std::string("bcdefghijk")) {
        expected += "`red`Arwen`bright red`: `bright white`" + std::string(1, letter) + "|";
    }
    EXPECT_EQ(shownToTheNextCaller(), expected + "|");
}

TEST_F(Board, ADeclinedMessageWipesTheBoard) {
    board("wHello\ryc");
    caller.type("wAgain\rn");
    EXPECT_THROW(scrollBoard(), OutOfKeys); // the call breaks off at the menu that follows
    EXPECT_EQ(readFile("scroll.dat"), zeros + lastEntry("Arwen", "Hello"));
    EXPECT_EQ(shownToTheNextCaller(), "");
    EXPECT_EQ(readFile("scroll.dat"), zeros + zeros);
}

TEST_F(Board, TextsAreNeverFormatsAndAreCutForDisplay) {
    game.player.name = std::string(50, 'x');
    board("w100%s`blue`%n\ryc");
    EXPECT_THAT(caller.screen(), HasSubstr("say " + std::string(49, 'x') +
                                           "\nsay `bright red`: `bright white`\n"
                                           "say 100%s`blue`%n\nsay ||\n"));
}

TEST_F(Board, AFileOfAnyLengthIsReadAsFarAsItGoes) {
    Scroll full;
    full.fill({"Bors", "I was here"});
    const ScrollBytes image = scrollBytes(full);
    for (std::size_t length = 0; length <= image.size(); ++length) {
        newCall();
        game.scroll.fill({"Cuthbert", "So was I"});
        const std::string bytes(image.data(), length);
        writeFile("scroll.dat", bytes);
        board("c");
        for (std::size_t k = 0; k < game.scroll.size(); ++k) {
            const bool read = 48 * (k + 1) <= length;
            const bool kept = 48 * k >= length;
            ASSERT_TRUE(!read || game.scroll[k].message == "I was here") << length;
            ASSERT_TRUE(!kept || game.scroll[k].message == "So was I") << length;
        }
        const std::string after = readFile("scroll.dat");
        ASSERT_EQ(after.size(), length + 480) << "the second copy begins where the reading ended";
        ASSERT_EQ(after.substr(0, length), bytes);
    }
    writeFile("scroll.dat", std::string(2000, '\xff'));
    EXPECT_EQ(shownToTheNextCaller(), "");
}

TEST_F(Board, WhatCannotBeOpenedOrCreatedIsShownFromMemory) {
    const auto writeAndShow = [](const char* message) {
        board("w" + std::string(message) + "\ryc");
        EXPECT_THAT(said("--||"), HasSubstr(message + std::string("||")));
    };
    ::mkdir("scroll.dat", 0777);
    writeAndShow("To a directory");
    ::rmdir("scroll.dat");
    ::mkfifo("scroll.dat", 0666);
    writeAndShow("To a pipe");
    ::remove("scroll.dat");
    const AsNobody nobody; // in a directory that is closed to him
    writeAndShow("To nobody");
    EXPECT_EQ(game.scroll[7].message, "To a directory");
}
