#include "key_decoder.h"

#include <vector>

#include <gtest/gtest.h>

using namespace odoors;

namespace {

std::string keysOf(KeyDecoder& decoder) {
    std::string keys;
    while (const char key = decoder.take()) {
        keys += key;
    }
    return keys;
}

// The keys in the bytes when they come at once, and when each comes alone.
void expectKeys(Charset charset, const std::string& bytes, const std::string& keys) {
    for (const std::size_t step : {bytes.size() + 1, std::size_t{1}, std::size_t{2}}) {
        KeyDecoder decoder;
        decoder.setCharset(charset);
        for (std::size_t at = 0; at < bytes.size(); at += step) {
            decoder.feed(std::string_view(bytes).substr(at, step));
        }
        decoder.finish();
        EXPECT_EQ(keysOf(decoder), keys) << testing::PrintToString(bytes) << " by " << step;
    }
}

} // namespace

TEST(Keys, AreDecodedFromBytes) {
    using namespace std::string_literals;
    const std::string endless = "\033[" + std::string(1000, '1') + "Aq";
    const std::vector<std::string> bytesAndKeys{
        "aZ~", "aZ~", "\r", "\r", "\n", "\r", "\r\n", "\r", "\r\0"s, "\r", "\n\r", "\r\r",
        "\r\r\n\n", "\r\r\r", "\r\0\n"s, "\r\r", "a\0b\0"s, "ab", "\b\x7f", "\b\b", "\x03\x1a\x94",
        "\x03\x1a\x94", "\033[A", "\x7f", "\033OP\033[15~s", "\x7f\x7fs", "\033[1;5Cq", "\x7fq",
        "\033[[As", "\x7fs", "\033O[s", "\x7fs", endless, "\x7fq", "\033[3;4R", "\x7f",
        // Escapes of their own, sequences broken off and cut short.
        "\033", "\033", "\033q", "\033q", "\033\033", "\033\033", "\033\033[A", "\033\x7f",
        "\033\r\n", "\033\r", "\033[1\rq", "\x7f\rq", "\033[[\bq", "\x7f\bq", "\033[\033[Bq",
        "\x7f\x7fq", "\033[1\x7fq", "\x7f\bq", "x\033[", "x", "x\033[12;", "x", "x\033[[", "x"};
    for (std::size_t i = 0; i < bytesAndKeys.size(); i += 2) {
        expectKeys(Charset::cp437, bytesAndKeys[i], bytesAndKeys[i + 1]);
    }
}

TEST(Keys, Utf8CharactersComeAsCp437) {
    expectKeys(Charset::utf8, "\xc3\xb6\xe2\x95\x90\xc3\x9f", "\x94\xcd\xe1");
    expectKeys(Charset::utf8, "\xe4\xbd\xa0\xf0\x9f\x98\x80x", "\x7f\x7fx");
    expectKeys(Charset::utf8, "\xc3q\xe2\x95\r\xff\x80\xc3\xc3\xb6", "\x7fq\x7f\r\x7f\x7f\x7f\x94");
    expectKeys(Charset::utf8, "\xe2\x95\033[A\xe2", "\x7f\x7f");
}

TEST(Keys, OneExpectedCursorReportIsNoKey) {
    KeyDecoder decoder;
    decoder.expectCursorReport();
    decoder.feed("a\033[R\033[;R\033[1;R\033[1;2;3Rb");
    EXPECT_FALSE(decoder.cursorReportSeen());
    decoder.feed("\033[24;80");
    decoder.feed("Rc\033[1;1R");
    EXPECT_TRUE(decoder.cursorReportSeen());
    EXPECT_EQ(keysOf(decoder), "a\x7f\x7f\x7f\x7f"
                               "bc\x7f");
}
