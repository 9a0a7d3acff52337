// What bytes are which keys, and what the keys that a caller types do, as he sees it.
#include "key_decoder.h"

#include "call.h"

using namespace odoors;
using namespace std::string_literals;

namespace {

std::string lineAfter(const std::string& start, const std::string& keys, int longest = 8,
                      unsigned char least = 0, unsigned char most = 127,
                      const Arguments& arguments = plain) {
    const Door door = [&] {
        std::string text = start + std::string(80, '\0');
        od_input_str(text.data(), longest, least, most);
        od_disp_str((std::string("[") + text.c_str() + "]").c_str());
    };
    return callWithKeys(arguments, keys, door).shown;
}

// The keys in the bytes when they come at once, and when each comes alone.
void expectKeys(Charset charset, const std::string& bytes, const std::string& keys) {
    for (const std::size_t step : {bytes.size() + 1, std::size_t{1}, std::size_t{2}}) {
        KeyDecoder decoder;
        decoder.setCharset(charset);
        for (std::size_t at = 0; at < bytes.size(); at += step) {
            decoder.feed(std::string_view(bytes).substr(at, step));
        }
        decoder.settleEscape();
        std::string taken;
        while (const char key = decoder.pop()) {
            taken += key;
        }
        EXPECT_EQ(taken, keys) << testing::PrintToString(bytes) << " by " << step;
    }
}

} // namespace

TEST(Keys, ReturnAndBackspaceHaveSeveralSpellings) {
    for (const std::string& bytes : {"\r"s, "\n"s, "\r\n"s, "\r\0"s}) {
        expectKeys(Charset::cp437, bytes, "\r");
    }
    expectKeys(Charset::cp437, "\n\r\r\n\n\r\0\r"s, "\r\r\r\r\r\r");
    expectKeys(Charset::cp437, "\b\x7f", "\b\b");
}

TEST(Keys, OtherBytesAreKeysOfTheirOwnButForNul) {
    expectKeys(Charset::cp437, "aZ~\x03\x1a\x94", "aZ~\x03\x1a\x94");
    expectKeys(Charset::cp437, "a\0b\0"s, "ab");
}

TEST(Keys, AnEscapeSequenceIsOneKeyOfNoMenu) {
    for (const std::string sequence :
         {"\033[A", "\033OP", "\033[15~", "\033[1;5C", "\033[[A", "\033O[", "\033[3;4R"}) {
        expectKeys(Charset::cp437, sequence + "q", "\x7fq");
    }
    expectKeys(Charset::cp437, "\033[" + std::string(1000, '1') + "Aq", "\x7fq");
}

TEST(Keys, AnEscapeThatBeginsNoSequenceIsAKey) {
    expectKeys(Charset::cp437, "\033", "\033");
    expectKeys(Charset::cp437, "\033q\033\033", "\033q\033\033");
    expectKeys(Charset::cp437, "\033\033[A\033\r\n", "\033\x7f\033\r");
}

TEST(Keys, ASequenceIsBrokenOffByAControlByteAndByTheEnd) {
    expectKeys(Charset::cp437, "\033[1\rq", "\x7f\rq");
    expectKeys(Charset::cp437, "\033[[\bq", "\x7f\bq");
    expectKeys(Charset::cp437, "\033[\033[Bq", "\x7f\x7fq");
    expectKeys(Charset::cp437, "\033[1\x7fq", "\x7f\bq");
    for (const char* cut : {"x\033[", "x\033[12;", "x\033[["}) {
        expectKeys(Charset::cp437, cut, "x");
    }
}

TEST(Keys, Utf8CharactersComeAsCp437) {
    expectKeys(Charset::utf8, "\xc3\xb6\xe2\x95\x90\xc3\x9f", "\x94\xcd\xe1");
    expectKeys(Charset::utf8, "\xe4\xbd\xa0\xf0\x9f\x98\x80x", "\x7f\x7fx");
    expectKeys(Charset::utf8, "\xc3q\xe2\x95\r\xff\x80\xc3\xc3\xb6", "\x7fq\x7f\r\x7f\x7f\x7f\x94");
    expectKeys(Charset::utf8, "\xe2\x95\033[A\xe2", "\x7f\x7f");
}

TEST(LineInput, ShowsAndKeepsWhatIsTyped) {
    EXPECT_EQ(lineAfter("", "ab c\r"), "ab c\n\r[ab c]");
    EXPECT_EQ(lineAfter("", "ab\b\x7f\bc\r"), "ab\b \b\b \bc\n\r[c]");
    EXPECT_EQ(lineAfter("", "a\033[Ab\t\x01\033Oc\033d\r"), "abd\n\r[abd]");
}

TEST(LineInput, OffersTheTextThatIsThere) {
    EXPECT_EQ(lineAfter("old", "\r"), "old\n\r[old]");
    EXPECT_EQ(lineAfter("old", "\033[A\tnew\r"), "old\b \b\b \b\b \bnew\n\r[new]");
    EXPECT_EQ(lineAfter("old", "\bx\r"), "old\b \bx\n\r[olx]");
    EXPECT_EQ(lineAfter("o\033d", "n\r"), "od\b \b\b \bn\n\r[n]") << "not on the screen";
}

TEST(LineInput, KeepsToItsLimits) {
    EXPECT_EQ(lineAfter("", "123456789\r"), "12345678\n\r[12345678]");
    EXPECT_EQ(lineAfter("longer than eight", "\r"), "longer t\n\r[longer t]");
    EXPECT_EQ(lineAfter("", "abc\r", 0), "\n\r[]");
    EXPECT_EQ(lineAfter("", "a`\x94~\x7f\r", 8, 32, 127), "a`~\b \b\n\r[a`]");
    EXPECT_EQ(lineAfter("", "19a\x94\r", 8, '2', 255), "9a\x94\n\r[9a\x94]");
    EXPECT_EQ(lineAfter("", "\xc3\xa4\r", 8, 132, 132, {"-L", "-CHARSET=utf8"}),
              "\xc3\xa4\n\r[\xc3\xa4]");
}

TEST(Keys, AreChosenInEitherCase) {
    const Outcome outcome = callWithKeys(plain, "xY\033[nNS1\033", [] {
        od_printf("<%c>", od_get_answer("yn"));
        od_printf("<%c>", od_get_answer("YN"));
        for (int wait = 0;; wait = 1) {
            od_printf("<%d>", od_get_key(wait));
        }
    });
    EXPECT_EQ(outcome.shown, "<y><N><83><49><27>");
    EXPECT_EQ(outcome.status, 2);
}

TEST(Menu, ShowsTheCallersFileUnlessAKeyIsTypedAlready) {
    const Folder folder;
    const auto shownFor = [&](const Arguments& arguments, const char* keys, const char* hotkeys) {
        const Door door = [&] {
            od_printf("`red`>");
            od_printf("<%c>", od_hotkey_menu(folder.path("menu").c_str(), hotkeys, 1));
        };
        return callWithKeys(arguments, keys, door).shown;
    };
    EXPECT_EQ(shownFor(plain, "xs", "SHQ"), "><S>");
    folder.write("Menu.ASC", "plain `file`\r\n\x80\x1aSAUCE00");
    EXPECT_EQ(shownFor(plain, "s", "SHQ"), "><S>");
    EXPECT_EQ(shownFor(plain, "xs", "SHQ"), ">plain `file`\r\n\x80<S>");
    EXPECT_EQ(shownFor(plain, "\033[As", "SHQA"), ">plain `file`\r\n\x80<S>");
    EXPECT_EQ(shownFor(plain, "", "SHQ"), ">plain `file`\r\n\x80");
    EXPECT_EQ(shownFor({"-L", "-CHARSET=utf8"}, "xs", "S"), ">plain `file`\r\n\xc3\x87<S>");
    EXPECT_EQ(shownFor(coloured, "xs", "s"), "\033[0;31m>plain `file`\r\n\x80<s>\033[0m");
    folder.write("menu.ans", "\033[1;32mgreen");
    EXPECT_EQ(shownFor(coloured, "xs", "s"), "\033[0;31m>\033[1;32mgreen\033[0;31m<s>\033[0m");
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
    const std::vector<std::string> screens{"\033[2J\033[H\033[2;2Hsecond screen", "end\033[0m"};
    ASSERT_EQ(outcome.writes.size(), 3U);
    EXPECT_EQ(std::vector(outcome.writes.begin() + 1, outcome.writes.end()), screens);
}
