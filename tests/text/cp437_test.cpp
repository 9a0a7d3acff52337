#include "text/cp437.h"

#include <gtest/gtest.h>

namespace {

std::string utf8(std::string_view bytes) {
    std::string result;
    text::appendAsUtf8(result, bytes);
    return result;
}

} // namespace

TEST(Cp437, EveryByteGoesToUtf8AndBack) {
    for (int code = 1; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        EXPECT_EQ(text::toCp437(utf8(byte)), byte);
    }
}

TEST(Cp437, BytesAreTheirCharacters) {
    EXPECT_EQ(utf8("\x11\"3DUfw\x88\x99\xaa\xbb\xcc\xdd\xee\xff"), "\x11\"3DUfwêÖ¬╗╠▌ε\u00a0");
}

TEST(Cp437, RefusesWhatIsNotUtf8OrHasNoByte) {
    for (const char* foreign : {"Bj\x94rn", "\xe4\xbd\xa0", "a\xc3", "\xc0\x80", "\xe0\x82\x82"}) {
        EXPECT_EQ(text::toCp437(foreign), std::nullopt);
    }
}
