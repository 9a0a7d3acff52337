// What bytes are which keys, and what the keys that a caller types do, as he sees it.
#include "key_decoder.h"

#include "call.h"

using namespace odoors;
using namespace std::string_literals;

namespace {

std::string keysIn(const std::string& bytes, Charset charset = Charset::cp437) {
    KeyDecoder decoder;
    decoder.setCharset(charset);
    decoder.feed(bytes);
    decoder.settleEscape();
    std::string keys;
    for (Key key; (key = decoder.pop()).code != 0;) {
        keys += key.digit != 0 ? key.digit : key.code;
    }
    return keys;
}

// What the caller sees while he types the keys into a field, and the text that he has entered.
std::string entered(const std::string& text, const std::string& keys,
                    const Arguments& options = plain) {
    const Door door = [&] {
        std::string field = text + std::string(80, '\0');
        od_input_str(field.data(), 8, '!', 0x94);
        od_disp_str((std::string("[") + field.c_str() + "]").c_str());
    };
    return callWithKeys(options, keys, door).shown;
}

} // namespace

TEST(Keys, AreBytesOrSpellReturnOrBackspace) {
    EXPECT_EQ(keysIn("aZ~\x03\x1a\0\x94"s), "aZ~\x03\x1a\x94");
    EXPECT_EQ(keysIn("\n\r\r\n\n\r\0\r"s), "\r\r\r\r\r\r");
    EXPECT_EQ(keysIn("\b\x7f"), "\b\b");
}

TEST(Keys, AnEscapeSequenceIsOneKeyOfNoMenu) {
    for (const std::string sequence : {"\033[Z", "\033OP", "\033[15~", "\033[2~", "\033[1;5P",
                                       "\033[2A", "\033[[A", "\033O[", "\033O1~", "\033[3;4R"}) {
        EXPECT_EQ(keysIn(sequence + 'q'), "\x7fq");
    }
    EXPECT_EQ(keysIn("\033[" + std::string(1000, '1') + "Aq"), "\x7fq");
}

TEST(Keys, AnEscapeThatBeginsNoSequenceIsAKey) {
    EXPECT_EQ(keysIn("\033q\033\033"), "\033q\033\033");
    EXPECT_EQ(keysIn("\033\033[Z\033\r\n"), "\033\x7f\033\r");
    EXPECT_EQ(keysIn("\033[1\rq"), "\x7f\rq") << "a control byte breaks a sequence off";
}

// Up, left, right, down, Home, PgUp, End, PgDn.
TEST(Keys, OfTheCursorHaveADigitInEverySpelling) {
    for (const char* spelling :
         {"\033[A\033[D\033[C\033[B\033[H\033[5~\033[F\033[6~",                       // xterm
          "\033OA\033OD\033OC\033OB\033OH\033[5~\033OF\033[6~",                       // application
          "\033[1;5A\033[1;2D\033[1;5C\033[1;2B\033[1;5H\033[5;2~\033[1;5F\033[6;2~", // Control
          "\033Ox\033Ot\033Ov\033Or\033Ow\033Oy\033Oq\033Os",                         // keypad
          "\033[A\033[D\033[C\033[B\033[1~\033[5~\033[4~\033[6~", // Linux, PuTTY
          "\033[A\033[D\033[C\033[B\033[7~\033[5~\033[8~\033[6~", // rxvt
          "\033[A\033[D\033[C\033[B\033[H\033[V\033[K\033[U"}) {  // SyncTERM
        EXPECT_EQ(keysIn(spelling), "84627913") << spelling;
    }
}

TEST(Keys, Utf8CharactersComeAsCp437) {
    EXPECT_EQ(keysIn("\xc3\xb6\xe2\x95\x90\xc3\x9f", Charset::utf8), "\x94\xcd\xe1");
    EXPECT_EQ(keysIn("\xe4\xbd\xa0\xf0\x9f\x98\x80x", Charset::utf8), "\x7f\x7fx");
    EXPECT_EQ(keysIn("\xc3q\xe2\x95\r\xff\x80\xc3\xc3\xb6", Charset::utf8),
              "\x7fq\x7f\r\x7f\x7f\x7f\x94");
}

TEST(Field, ShowsAndKeepsWhatIsTyped) {
    EXPECT_EQ(entered("", "ab\b\x7f\bc\r"), "ab\b \b\b \bc\n\r[c]");
    EXPECT_EQ(entered("", "a\033[Ab\t\x01\033Oc\033d\r"), "abd\n\r[abd]");
}

TEST(Field, OffersTheTextThatIsThere) {
    EXPECT_EQ(entered("old", "\r"), "old\n\r[old]");
    EXPECT_EQ(entered("old", "\033[A new\r"), "old\b \b\b \b\b \bnew\n\r[new]");
    EXPECT_EQ(entered("old", "\bx\r"), "old\b \bx\n\r[olx]");
    EXPECT_EQ(entered("o\033d", "n\r"), "od\b \b\b \bn\n\r[n]") << "no control byte";
}

TEST(Field, KeepsToItsLimits) {
    EXPECT_EQ(entered("", "123456789\r"), "12345678\n\r[12345678]");
    EXPECT_EQ(entered("longer than eight", "\r"), "longer t\n\r[longer t]");
    EXPECT_EQ(entered("", " !\x94\x95\r"), "!\x94\n\r[!\x94]");
    EXPECT_EQ(entered("", "\xc3\xb6\r", {"-L", "-CHARSET=utf8"}), "\xc3\xb6\n\r[\xc3\xb6]");
}

TEST(Menu, ShowsTheCallersFileUnlessAKeyIsTypedAlready) {
    const Folder folder;
    const auto shownFor = [&](const Arguments& options, const char* keys) {
        const Door door = [&] {
            od_printf("`red`>");
            od_printf("<%c>", od_hotkey_menu(folder.path("menu").c_str(), "SHQ", 1));
        };
        return callWithKeys(options, keys, door).shown;
    };
    EXPECT_EQ(shownFor(plain, "xs"), "><S>") << "no file";
    folder.write("Menu.ASC", "plain `file`\r\n\x80\x1aSAUCE00");
    EXPECT_EQ(shownFor(plain, "s"), "><S>");
    EXPECT_EQ(shownFor(plain, "xs"), ">plain `file`\r\n\x80<S>");
    EXPECT_EQ(shownFor(coloured, "xs"), "\033[0;31m>plain `file`\r\n\x80<S>\033[0m");
    folder.write("menu.ans", "\033[1;32mgreen");
    EXPECT_EQ(shownFor(coloured, "xs"), "\033[0;31m>\033[1;32mgreen\033[0;31m<S>\033[0m");
}

TEST(Menu, TakesArrowsForDirectionsOnly) {
    const auto chosen = [](const char* keys, const std::string& typed) {
        return callWithKeys(plain, typed,
                            [&] {
                                od_printf("<%c>", od_hotkey_menu("none", keys, 1));
                                od_printf("<%d>", od_get_key(1));
                            })
            .shown;
    };
    EXPECT_EQ(chosen("28f", "\033[C\033[A\033[B"), "<8><127>") << "there is no way east";
    EXPECT_EQ(chosen("12hyf", "\033[F "), "<1><32>");
    EXPECT_EQ(chosen("123456789q", "\033[D "), "<4><32>");
    EXPECT_EQ(chosen("12345678", "\033[D6 "), "<6><32>") << "no letters";
    EXPECT_EQ(chosen("123456l", "\033[D6 "), "<6><32>") << "a list";
}

TEST(Writes, OneScreenIsOneWrite) {
    const Outcome outcome = callWithKeys(coloured, "a", [] {
        od_clr_scr();
        od_set_cursor(2, 3);
        od_printf("%s%*s", "`red`", 10000, "one");
        od_disp("`x`\0", 4, 1);
        od_get_answer("A");
        od_disp_str("`end");
    });
    ASSERT_EQ(outcome.writes.size(), 2U);
    EXPECT_EQ(outcome.writes[0],
              "\033[2J\033[H\033[2;3H\033[0;31m" + std::string(9997, ' ') + "one`x`");
    EXPECT_EQ(outcome.writes[1], "`end\033[0m");
}
