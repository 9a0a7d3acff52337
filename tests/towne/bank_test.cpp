#include "towne/bank.h"

#include "support/game_test.h"

namespace {

// Visits the bank with 5000 gold in it; its first answer.
std::string atTheBank(double gold, const std::string& keys) {
    newCall();
    game.player = {.gold = gold, .bankGold = 5000};
    caller.visit(visitBank, keys);
    return caller.between("[line 8 32 127 0]", "[clear]");
}

const std::string insufficient = "{|}{`r`You do not have sufficient funds.}{||}[any key]";

} // namespace

TEST(Bank, MovesAnAmountThatIsThere) {
    EXPECT_EQ(atTheBank(7, "d007\r r"),
              "{|}<007>{`r` gold has been deposited to the bank.}{||}[any key]");
    EXPECT_EQ(game.player.gold, 0);
    EXPECT_EQ(game.player.bankGold, 5007);
}

TEST(Bank, SaysTheReverseOfARefusal) {
    EXPECT_EQ(atTheBank(10, "d11\r r"), "[any key]");
    EXPECT_EQ(atTheBank(0, "d0\r r"), "[any key]");
    EXPECT_EQ(atTheBank(10, "dall\r r"), insufficient);
    EXPECT_EQ(atTheBank(-6000, "d-7000\r r"), insufficient);
    EXPECT_EQ(game.player.gold, -6000);
}

TEST(Bank, EachFieldKeepsItsTextForOneVisit) {
    atTheBank(1000, "d250\r w99\r d\r w\r r");
    EXPECT_EQ(game.player.gold, 1000 - 250 + 99 - 250 + 99);
    EXPECT_EQ(atTheBank(10, "d\r r"), insufficient) << "a new visit offers 0 again";
}
