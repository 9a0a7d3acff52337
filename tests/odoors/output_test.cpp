#include "output.h"

#include "call.h"

using namespace odoors;

TEST(ColourCodes, SetTheWholeAttributeOrNothing) {
    for (const std::string row :
         {"red=31", "bright red=1;31", "  Bright   WHITE  =1;37", "grey=37", "dark brown=33",
          "bright yellow=1;33", "bright dark green=32", "flashing bright blue on white=1;5;34;47",
          "bright flashing blue on GREY=1;5;34;47", "magenta on black=35", "cyan on green=36;42",
          "bright black=1;30"}) {
        const std::size_t middle = row.find('=');
        const std::optional<Attribute> attribute = readColourCode(row.substr(0, middle));
        EXPECT_EQ(ansiSequence(attribute.value()), "\033[0;" + row.substr(middle + 1) + 'm');
    }
    for (const char* words :
         {"", "bright", "pink", "red bright", "red on", "red on bright blue", "red blue",
          "red in blue", "on blue", "red on blue on blue", "reds", "bright\tred"}) {
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

TEST_F(OutputTest, ColourIsSentOnceBeforeTextThatNeedsIt) {
    // A code that is left open ends with its text.
    std::string shown;
    for (const char* text : {"a", "`red`", "`blue`b`red`c", "`nonsense`f``g", "\a`green`\a", "h",
                             "i`blue", "red`j", "k`green on", "`", "l"}) {
        shown += coded(text) + '|';
    }
    EXPECT_EQ(shown, "\033[0;37ma||\033[0;34mb\033[0;31mc|fg||\033[0;32mh|i|\033[0;34mred|k||l|");
}

TEST_F(OutputTest, OnlyDisplayFilesSendControlBytes) {
    output.show(std::string("`red`\x1b[2J\0\t\x7f\b!\r\n\x80", 17));
    EXPECT_EQ(output.drain(), "\033[0;37m`red`[2J!\r\n\x80");
    EXPECT_EQ(coded("\x1b[31m\a`red`x"), "[31m\033[0;31mx");
    output.showFile("`red`\x1b[1m\t");
    EXPECT_EQ(output.drain(), "`red`\x1b[1m\t");
    EXPECT_EQ(coded("same colour"), "\033[0;31msame colour");
    output.showFile("plain");
    EXPECT_EQ(coded("y"), "plainy");
}

TEST_F(OutputTest, PadsToColumnWithoutAnsiGraphics) {
    ansi = 0;
    output.showCoded("`red`ab\a");
    output.moveTo(7, 6);
    output.moveTo(7, 6);
    output.moveTo(7, 2);
    output.erase(2);
    output.moveTo(7, 5);
    output.show("\n\x80");
    output.moveTo(7, 7);
    EXPECT_EQ(output.drain(), "ab   \b \b\b \b \n\x80 ");
    output.showFile("\r\x1b[1;31mabc\x1b[0m\t");
    output.moveTo(7, 10);
    output.clear();
    output.moveTo(7, 3);
    EXPECT_EQ(output.drain(), "\r\x1b[1;31mabc\x1b[0m\t \f  ");
}

TEST(Printf, FormatsTextsOfAnyLength) {
    for (const std::size_t length : {0U, 1023U, 1024U, 100000U}) {
        const std::string filler(length, 'x');
        const Outcome outcome = callWithKeys({"-LOCAL", "-GRAPHICS"}, "", [&] {
            od_printf("`red`%s%s", filler.c_str(), "`blue`y");
            od_disp("`z`\0?", 5, 1);
            od_disp("ignored", -1, 0);
            od_disp_str("`");
        });
        const std::string red = length > 0 ? "\033[0;31m" + filler : "";
        EXPECT_EQ(outcome.shown, red + "\033[0;34my`z`?`\033[0m") << length;
    }
}
