#include "screen/screen.h"

#include "support/game_test.h"

TEST(Screen, SaysLongTextsWhole) {
    newCall();
    for (const std::size_t length : {509U, 510U, 2000U}) {
        const std::string text(length, 'x');
        EXPECT_EQ(caller.visit([&] { say("<%s>", text.c_str()); }), "{<" + text + ">}");
    }
    EXPECT_EQ(moneyText(1e308) + ".000000", std::to_string(1e308));
}
