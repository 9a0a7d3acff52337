#include "door/screen.h"

#include "support/game_test.h"

TEST(Screen, SaysTextsOfAnyLengthWhole) {
    newCall();
    for (const std::size_t length : {511U, 512U, 2000U}) {
        const std::string text(length, 'x');
        EXPECT_EQ(caller.visit([&] { say("<%s>", text.c_str()); }), "{<" + text + ">}");
    }
}

TEST(Screen, ShowsMoneyWithoutDecimals) {
    EXPECT_EQ(moneyText(0.5), "0");
    EXPECT_EQ(moneyText(1e308).size(), 309U);
}

TEST(Screen, ReadsNumbersAsStrtolWithinAnInt) {
    EXPECT_EQ(typedNumber(" 12x"), 12);
    EXPECT_EQ(typedNumber("-3"), -3);
    EXPECT_EQ(typedNumber("none"), 0);
    EXPECT_EQ(typedNumber("99999999999"), INT32_MAX);
    EXPECT_EQ(typedNumber("-99999999999999999999"), INT32_MIN);
}
