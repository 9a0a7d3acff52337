// What the program shows, as bytes for the caller's terminal.
#include "output.h"

#include <gtest/gtest.h>

using namespace odoors;

TEST(ColourCodes, SetTheWholeAttribute) {
    const std::vector<std::pair<std::string, std::string>> sequences{
        {"red", "31"},
        {"  Bright   WHITE  ", "1;37"},
        {"dark brown", "33"},
        {"bright dark green", "32"},
        {"flashing bright blue on white", "1;5;34;47"},
        {"bright flashing YELLOW on grey", "1;5;33;47"},
        {"magenta on black", "35"},
        {"cyan on green", "36;42"}};
    for (const auto& [words, sequence] : sequences) {
        EXPECT_EQ(ansiSequence(readColourCode(words).value()), "\033[0;" + sequence + 'm');
    }
}

TEST(ColourCodes, OfAnotherFormSetNothing) {
    for (const char* words : {"", "bright", "pink", "reds", "red bright", "red on", "red blue",
                              "red on bright blue", "on blue", "red on blue on blue"}) {
        EXPECT_FALSE(readColourCode(words)) << words;
    }
}

struct OutputTest : testing::Test {
    char ansi = 1;
    Output output{ansi};

    std::string coded(const char* text) {
        output.showCoded(text);
        return output.drain();
    }
};

TEST_F(OutputTest, SendsAColourOnceBeforeTextThatNeedsIt) {
    EXPECT_EQ(coded("a"), "\033[0;37ma");
    EXPECT_EQ(coded("`red`"), "");
    EXPECT_EQ(coded("`blue`b`red`c"), "\033[0;34mb\033[0;31mc");
    EXPECT_EQ(coded("`nonsense`d``e"), "de");
    EXPECT_EQ(coded("f`blue"), "f") << "a code that is left open ends with its text";
    EXPECT_EQ(coded("red`g"), "\033[0;34mred");
}

TEST_F(OutputTest, SendsControlBytesOfDisplayFilesOnly) {
    output.show(std::string("`red`\x1b[2J\0\t\x7f\b!\r\n\x80", 17));
    EXPECT_EQ(output.drain(), "\033[0;37m`red`[2J!\r\n\x80");
    EXPECT_EQ(coded("\x1b[31m\a`red`x"), "[31m\033[0;31mx");
    output.showFile("`blue`\x1b[1m\t");
    EXPECT_EQ(coded("y"), "`blue`\x1b[1m\t\033[0;31my") << "the file may have changed the colour";
}

TEST_F(OutputTest, PadsToAColumnWithoutAnsiGraphics) {
    ansi = 0;
    output.showCoded("`red`ab\a");
    output.moveTo(7, 6);
    output.moveTo(7, 2);
    output.erase(2);
    output.moveTo(7, 5);
    EXPECT_EQ(output.drain(), "ab   \b \b\b \b ");
    output.showFile("\r\n\x1b[1;31mabc\x1b[0m\t");
    output.moveTo(7, 10);
    EXPECT_EQ(output.drain(), "\r\n\x1b[1;31mabc\x1b[0m\t ");
}
