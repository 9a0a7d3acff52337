// The board by what its callers see, and its file by the byte.
#include "towne/scroll_board.h"

#include "files/scroll_file.h"
#include "support/stored.h"

struct Board : InTemporaryDirectory {
    Board() { game.player.name = "Arwen"; }

    // The file's 480 bytes with one entry, the last.
    static std::string lastEntry(const std::string& author, const std::string& message) {
        return std::string(432, '\0') + storedText(author) + storedText(message);
    }
    // The line of an entry on the screen.
    static std::string shown(const std::string& author, const std::string& message,
                             const char* end = "{|}") {
        return "{`r`}{" + author + "}{`R`: `W`}{" + message + "}" + end;
    }
    // The entries that these keys bring to the screen at last.
    static std::string entries(const std::string& keys) {
        const std::string& screen = caller.visit(scrollBoard, keys);
        const std::string last = screen.substr(screen.rfind("--||}") + 5);
        return last.substr(0, last.find("{`r`W`R`)`W`rite to Scroll `W`or `r`C`R`)`W`lose Scroll||}"
                                        "[menu tavern wc]"));
    }
};

TEST_F(Board, SixteenCharactersLastForTheCall) {
    entries("wFifteen letters\rYc"); // and the missing board is created
    const std::string bytes = lastEntry("Arwen", "Fifteen letters");
    EXPECT_EQ(readFile("scroll.dat"), bytes + bytes);
    game.player.name = "Bors";
    EXPECT_EQ(entries("wSixteen letters.\ryc"),
              shown("Arwen", "Fifteen letters") + shown("Bors", "Sixteen letters.", "{||}"));
    std::string unnamed = storedText("");
    unnamed[4] = unnamed[8] = 16;
    EXPECT_EQ(readFile("scroll.dat").substr(432, 48), storedText("Bors") + unnamed);
    newCall();
    EXPECT_EQ(entries("c"), shown("Arwen", "Fifteen letters"));
}

TEST_F(Board, DeclinedMessageWipesTheBoard) {
    entries("wHello\ryc");
    EXPECT_THROW(entries("wAgain\rn"), OutOfKeys); // the call breaks off at the next menu
    EXPECT_EQ(readFile("scroll.dat").substr(0, 480), std::string(480, '\0'));
    EXPECT_EQ(entries("c"), "");
}

TEST_F(Board, TextsAreNoFormats) {
    EXPECT_EQ(entries("w100%s`blue`%n\ryc"), shown("Arwen", "100%s`blue`%n", "{||}"));
}
