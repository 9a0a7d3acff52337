// What the keys that a caller types do, as he sees it.
#include <gtest/gtest.h>
#include <unistd.h>

#include "OpenDoor.h"
#include "call.h"

namespace {

const Arguments plain{"-LOCAL"};
const Arguments coloured{"-LOCAL", "-GRAPHICS"};

void askLine(const char* start, int longest, unsigned char least, unsigned char most) {
    char text[80] = "";
    snprintf(text, sizeof text, "%s", start);
    od_input_str(text, longest, least, most);
    od_disp_str((std::string("[") + text + "]").c_str());
}

std::string lineAfter(const char* start, const std::string& keys, int longest = 8,
                      unsigned char least = 0, unsigned char most = 127) {
    return callWithKeys(plain, keys, [&] { askLine(start, longest, least, most); }).shown;
}

} // namespace

TEST(LineInput, EditsTheText) {
    EXPECT_EQ(lineAfter("", "ab c\r"), "ab c\n\r[ab c]");
    EXPECT_EQ(lineAfter("", "\r"), "\n\r[]");
    EXPECT_EQ(lineAfter("", "ab\b\x7f\bc\r"), "ab\b \b\b \bc\n\r[c]");
    EXPECT_EQ(lineAfter("", "123456789\r"), "12345678\n\r[12345678]");
    EXPECT_EQ(lineAfter("", "a\033[Ab\t\x01\033Oc\033d\r"), "abd\n\r[abd]");
    EXPECT_EQ(lineAfter("", "a`\x94~\x7f\r", 8, 32, 127), "a`~\b \b\n\r[a`]");
    EXPECT_EQ(lineAfter("", "19a\x94\r", 8, '2', 255), "9a\x94\n\r[9a\x94]");
    EXPECT_EQ(lineAfter("", "abc\r", 0), "\n\r[]");
}

TEST(LineInput, StartsWithTheTextInTheBuffer) {
    EXPECT_EQ(lineAfter("old", "\r"), "old\n\r[old]");
    EXPECT_EQ(lineAfter("old", "\033[A\tnew\r"), "old\b \b\b \b\b \bnew\n\r[new]");
    EXPECT_EQ(lineAfter("old", "\bx\r"), "old\b \bx\n\r[olx]");
    EXPECT_EQ(lineAfter("longer than eight", "\r"), "longer t\n\r[longer t]");
    EXPECT_EQ(lineAfter("o\033d", "n\r"), "od\b \b\b \bn\n\r[n]");
}

TEST(Keys, AreChosenInEitherCase) {
    const Outcome outcome = callWithKeys(plain, "xY\033[nN1S\033", [] {
        od_printf("<%c>", od_get_answer("yn"));
        od_printf("<%c>", od_get_answer("YN"));
        od_printf("<%d>", od_get_key(1));
        od_printf("<%c>", od_get_key(0));
        od_printf("<%d>", od_get_key(1));
        od_get_key(1);
    });
    EXPECT_EQ(outcome.shown, "<y><N><49><S><27>");
    EXPECT_EQ(outcome.status, 2);
}

TEST(Keys, TypedCharactersComeInTheBoardsCharacterSet) {
    const Arguments arguments{"-LOCAL", "-CHARSET", "utf8", "-USERNAME", "\xc3\xb6"};
    const Outcome outcome = callWithKeys(arguments, "\xc3\xa4x", [] {
        od_printf("%d", static_cast<unsigned char>(od_get_key(1)));
        od_printf("%c%s", od_get_key(1), od_control.user_name);
    });
    EXPECT_EQ(outcome.shown, "132x\xc3\xb6");
}

struct Menu : testing::Test {
    Folder folder;
    std::string name = folder.path("menu");

    std::string shownFor(const Arguments& arguments, const std::string& keys, const char* hotkeys) {
        const Outcome outcome = callWithKeys(arguments, keys, [&] {
            od_printf("`red`>");
            od_printf("<%c>", od_hotkey_menu(name.c_str(), hotkeys, 1));
        });
        return outcome.shown;
    }
};

TEST_F(Menu, ShowsItsFileUnlessTheKeyIsTypedAlready) {
    folder.write("Menu.ASC", "plain `file`\r\n\x80\x1aSAUCE00");
    EXPECT_EQ(shownFor(plain, "s", "SHQ"), "><S>");
    EXPECT_EQ(shownFor(plain, "xs", "SHQ"), ">plain `file`\r\n\x80<S>");
    EXPECT_EQ(shownFor(plain, "\033[As", "SHQA"), ">plain `file`\r\n\x80<S>");
    EXPECT_EQ(shownFor(plain, "", "SHQ"), ">plain `file`\r\n\x80");
    EXPECT_EQ(shownFor({"-L", "-CHARSET=utf8"}, "xs", "S"), ">plain `file`\r\n\xc3\x87<S>");
    name = folder.path("other");
    EXPECT_EQ(shownFor(plain, "xs", "SHQ"), "><S>");
}

TEST_F(Menu, ChoosesTheColouredFileAndKeepsTheColour) {
    folder.write("menu.asc", "plain");
    EXPECT_EQ(shownFor(coloured, "xs", "s"), "\033[0;31m>plain<s>\033[0m");
    folder.write("menu.ans", "\033[1;32mgreen");
    EXPECT_EQ(shownFor(coloured, "xs", "s"), "\033[0;31m>\033[1;32mgreen\033[0;31m<s>\033[0m");
    EXPECT_EQ(shownFor(plain, "xs", "s"), ">plain<s>");
}

TEST(Writes, OneScreenIsOneWrite) {
    const Outcome outcome = callWithKeys(coloured, "ab", [] {
        for (int line = 0; line < 500; ++line) {
            od_printf("`red`A `bright blue`line\n\r");
        }
        od_get_key(1);
        od_clr_scr();
        od_set_cursor(2, 2);
        od_printf("second");
        od_disp_str(" screen");
        od_get_answer("B");
        od_printf("end");
    });
    ASSERT_EQ(outcome.writes.size(), 3U);
    EXPECT_EQ(outcome.writes[1], "\033[2J\033[H\033[2;2Hsecond screen");
    EXPECT_EQ(outcome.writes[2], "end\033[0m");
    EXPECT_EQ(outcome.status, 0);
}
