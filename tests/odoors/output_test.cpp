#include "output.h"

#include <cstdlib>

#include <gtest/gtest.h>
#include <iconv.h>

#include "OpenDoor.h"
#include "call.h"

using namespace odoors;

TEST(ColourCodes, SetTheWholeAttributeOrNothing) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"red", "\033[0;31m"},
        {"bright red", "\033[0;1;31m"},
        {"  Bright   WHITE  ", "\033[0;1;37m"},
        {"grey", "\033[0;37m"},
        {"dark brown", "\033[0;33m"},
        {"bright yellow", "\033[0;1;33m"},
        {"flashing bright blue on white", "\033[0;1;5;34;47m"},
        {"bright flashing blue on GREY", "\033[0;1;5;34;47m"},
        {"magenta on black", "\033[0;35m"},
        {"cyan on green", "\033[0;36;42m"},
        {"bright dark green", "\033[0;32m"},
        {"bright black", "\033[0;1;30m"},
        {"", nullptr},
        {"bright", nullptr},
        {"pink", nullptr},
        {"red bright", nullptr},
        {"red on", nullptr},
        {"red on bright blue", nullptr},
        {"red blue", nullptr},
        {"red in blue", nullptr},
        {"on blue", nullptr},
        {"red on blue on blue", nullptr},
        {"reds", nullptr},
        {"bright\tred", nullptr}};
    for (const auto& [words, sequence] : cases) {
        const std::optional<Attribute> attribute = readColourCode(words);
        ASSERT_EQ(attribute.has_value(), sequence != nullptr) << words;
        if (attribute) {
            EXPECT_EQ(ansiSequence(*attribute), sequence) << words;
        }
    }
}

struct OutputTest : testing::Test {
    char ansi = 1;
    Output output{ansi};

    std::string coded(const char* text) {
        output.showCoded(text);
        return output.take();
    }
};

TEST_F(OutputTest, ColourIsSentOnceBeforeTextThatNeedsIt) {
    EXPECT_EQ(coded("a"), "\033[0;37ma");
    EXPECT_EQ(coded("`red`"), "");
    EXPECT_EQ(coded("`blue`b`red`c"), "\033[0;34mb\033[0;31mc");
    EXPECT_EQ(coded("d`blue``red`e"), "de");
    EXPECT_EQ(coded("`nonsense`f``g"), "fg");
    EXPECT_EQ(coded("\a`green`\a"), "");
    EXPECT_EQ(coded("h"), "\033[0;32mh");
}

TEST_F(OutputTest, OpenCodeEndsWithItsText) {
    EXPECT_EQ(coded("a`blue"), "\033[0;37ma");
    EXPECT_EQ(coded("red`b"), "\033[0;34mred");
    EXPECT_EQ(coded("c`green on"), "c");
    EXPECT_EQ(coded("`"), "");
    EXPECT_EQ(coded("d"), "d");
}

TEST_F(OutputTest, AttributeIsKeptWithoutAnsiGraphics) {
    ansi = 0;
    EXPECT_EQ(coded("`bright red`a"), "a");
    output.resetColour();
    output.clear();
    EXPECT_EQ(output.take(), "\f");
    ansi = 1;
    EXPECT_EQ(coded("b"), "\033[0;1;31mb");
    output.setAttribute({15, 1, false});
    output.clear();
    output.moveTo(3, 80);
    EXPECT_EQ(output.take(), "\033[2J\033[H\033[3;80H");
    EXPECT_EQ(coded("c"), "\033[0;1;37;44mc");
}

TEST_F(OutputTest, OnlyDisplayFilesSendControlBytes) {
    output.show(std::string("`red`\x1b[2J\0\t\x7f\b!\r\n\x80", 17));
    EXPECT_EQ(output.take(), "\033[0;37m`red`[2J!\r\n\x80");
    EXPECT_EQ(coded("\x1b[31m\a`red`x"), "[31m\033[0;31mx");
    output.showFile("`red`\x1b[1m\t");
    EXPECT_EQ(output.take(), "`red`\x1b[1m\t");
    EXPECT_EQ(coded("same colour"), "\033[0;31msame colour");
    output.showFile("plain");
    EXPECT_EQ(coded("y"), "plainy");
}

TEST_F(OutputTest, PadsToColumnWithoutAnsiGraphics) {
    ansi = 0;
    const auto pad = [this](int column) {
        output.take();
        output.moveTo(7, column);
        return output.take();
    };
    output.showCoded("`red`ab\a");
    EXPECT_EQ(pad(6), "   ");
    EXPECT_EQ(pad(6), "");
    EXPECT_EQ(pad(2), "");
    output.erase(2);
    EXPECT_EQ(pad(5), " ");
    output.show("\n");
    EXPECT_EQ(pad(6), " ");
    output.show("\n\rx");
    EXPECT_EQ(pad(3), " ");
    output.showFile("\r\x1b[1;31mabc\x1b[0m");
    EXPECT_EQ(pad(5), " ");
    output.clear();
    EXPECT_EQ(pad(0), "");
    output.setCharset(Charset::utf8);
    output.show("\x80");
    EXPECT_EQ(pad(3), " ");
}

TEST(CharsetTest, EveryByteGoesToUtf8AndBack) {
    iconv_t converter = iconv_open("UTF-8", "CP437");
    ASSERT_NE(converter, reinterpret_cast<iconv_t>(-1));
    for (int code = 1; code < 256; ++code) {
        char byte = static_cast<char>(code);
        std::string expected(4, '\0');
        char* from = &byte;
        char* to = expected.data();
        std::size_t fromLeft = 1;
        std::size_t toLeft = expected.size();
        ASSERT_EQ(iconv(converter, &from, &fromLeft, &to, &toLeft), 0U);
        expected.resize(expected.size() - toLeft);
        std::string text;
        appendAsUtf8(text, byte);
        EXPECT_EQ(text, expected) << code;
        EXPECT_EQ(cp437FromUtf8(text), std::string(1, byte)) << code;
    }
    iconv_close(converter);
    for (const char* foreign : {"Bj\x94rn", "\xe4\xbd\xa0", "a\xc3", "\xc0\x80", "\xe0\x82\x82"}) {
        EXPECT_EQ(cp437FromUtf8(foreign), foreign);
    }
}

TEST(Printf, FormatsTextsOfAnyLength) {
    for (const int length : {0, 1, 1022, 1023, 1024, 1025, 100000}) {
        const std::string filler(static_cast<std::size_t>(length), 'x');
        const Outcome outcome = callWithKeys({"-LOCAL", "-GRAPHICS"}, "", [&] {
            od_printf("`red`%s%s", filler.c_str(), "`blue`y");
            od_disp("`z`\0?", 5, 1);
            od_disp("ignored", -1, 0);
            od_disp_str("`");
        });
        const std::string red = length > 0 ? "\033[0;31m" + filler : "";
        EXPECT_EQ(outcome.shown, red + "\033[0;34my`z`?`\033[0m") << length;
        EXPECT_EQ(outcome.writes.size(), 1U);
    }
}
