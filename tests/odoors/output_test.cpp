// What the program shows, as bytes for the caller's terminal.
#include "output.h"

#include "ansi_colours.h"

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
        EXPECT_EQ(ansiSequence(readColourCode(words).value(), Charset::cp437),
                  "\033[0;" + sequence + 'm');
    }
    EXPECT_EQ(ansiSequence({9, 7, true}, Charset::utf8), "\033[0;5;94;47m");
    EXPECT_EQ(ansiSequence({3, 0, false}, Charset::utf8), "\033[0;36;40m");
}

// From dark green on red on.
TEST(DisplayFileColours, AreRewrittenForAUtf8Terminal) {
    const std::vector<std::pair<std::string, std::string>> sequences{
        {"\033[1m", "\033[92;41m"},
        {"\033[1;30m\033[40m\033[22m", "\033[90;41m\033[90;40m\033[30;40m"},
        {"\033[34;1m\033[0mx\033[m", "\033[94;41m\033[0;37;40mx\033[;37;40m"},
        {"\033[0;5;1;7;36;44m", "\033[0;5;7;96;44m"},
        {"\033[97;39m\033[49;93;25m", "\033[97;41m\033[25;93;40m"},
        {"\033[1;38;5;200m\033[104m", "\033[1;38;5;200m\033[104m"},
        {"\033[2J\033[5;1H\033[?25l\033[1", "\033[2J\033[5;1H\033[?25l\033[1"},
        {"\033[\033[1m[1m\033", "\033[\033[92;41m[1m\033"}};
    for (const auto& [bytes, rewritten] : sequences) {
        EXPECT_EQ(coloursForUtf8(bytes, {2, 4, false}), rewritten);
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

TEST_F(OutputTest, ClearsAUtf8TerminalInTheColourThatIsSet) {
    output.setCharset(Charset::utf8);
    EXPECT_EQ(coded("`bright red`"), "");
    output.clear();
    EXPECT_EQ(coded("x"), "\033[0;91;40m\033[2J\033[Hx");
    output.showFile("\033[32m\xb0");
    EXPECT_EQ(coded("y"), "\033[92;40m\xe2\x96\x91\033[0;91;40my");
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
