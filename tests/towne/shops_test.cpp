// Both shops, on a plain ware and the odd ones.
#include "support/game_test.h"
#include "towne/shop.h"

namespace {

// What a caller with so much gold reads after these keys, until the stock is shown again.
std::string buying(void (*buy)(), double gold, const std::string& keys) {
    newCall();
    game.player.gold = gold;
    caller.visit(buy, keys + " l ");
    return caller.between("[menu command 123456l]", "[clear]");
}

const std::string pity = "{`W`That's too bad.||}[any key]";

} // namespace

TEST(Shops, SellWhatTheCallerConfirms) {
    EXPECT_EQ(buying(buyWeapon, 12500, "4y"),
              "{||}{`r`Mace for `W`12500`r` gold" + yesNo + "{||`W`Thank you!||}[any key]");
    EXPECT_EQ(game.player.gold, 0);
    EXPECT_EQ(game.player.weaponNumber, 4);
    EXPECT_EQ(game.player.weapon, "Mace");
    EXPECT_EQ(buying(buyWeapon, 12499, "4"), "{|}{You don't have enough gold.||}[any key]");
}

TEST(Shops, OfferSomeArmourBelowItsPrice) {
    EXPECT_THAT(buying(buyArmour, 10000, "6y"), HasSubstr("Starleather for `W`110000`r` gold"));
    EXPECT_EQ(game.player.gold, -100000);
    EXPECT_THAT(buying(buyArmour, 1250, "1y"), EndsWith("{Thank you!||}[any key]"));
    EXPECT_EQ(game.player.gold, 1000) << "a Cloth takes 250";
}

TEST(Shops, SayNothingBetweenLimitAndPrice) {
    EXPECT_EQ(buying(buyWeapon, 11000, "6"), "");
    EXPECT_THAT(buying(buyWeapon, 10999, "6"), HasSubstr("enough gold."));
}

TEST(Shops, DeclinedWeaponRunsOnIntoDearerOnes) {
    EXPECT_THAT(buying(buyWeapon, 1300, "1n "),
                EndsWith(pity + "{|}{`r`You don't have enough gold.||}[any key]"));
    EXPECT_THAT(buying(buyWeapon, 15000, "1n "), EndsWith(pity));
    EXPECT_THAT(buying(buyArmour, 1300, "1n"),
                EndsWith(yesNo + "{||}{`r`That's too bad.||}[any key]"));
}

TEST(Shops, BuyBackAndLeaveBareHands) {
    newCall();
    game.player.weaponNumber = 3;
    EXPECT_EQ(caller.visit(sellWeapon, "n "),
              "{||}{`W`1900 `r`gold pieces.|}{|}{`r`Do you wish to sell your `W`Javelin`r`" +
                  yesNo + "{||`r`I didn't want to pay you anyway!||}[any key]");
    EXPECT_EQ(game.player.weaponNumber, 3);
    EXPECT_THAT(caller.visit(sellWeapon, "y "), EndsWith("{Sold!||}[any key]"));
    EXPECT_EQ(game.player.gold, 1900);
    EXPECT_EQ(game.player.weaponNumber, 0);
    EXPECT_EQ(game.player.weapon, "Fists");
}

TEST(Shops, CallSoldArmourByAnotherName) {
    newCall();
    game.player.armourNumber = 3;
    EXPECT_THAT(caller.visit(sellArmour, "y "), HasSubstr("sell your `W`Hide`r`"));
    EXPECT_EQ(game.player.armour, "T-Shirt");
}

TEST(Shops, MenuLeadsToEverythingAndBack) {
    newCall();
    caller.visit(weaponShop, "bl s y r");
    EXPECT_TRUE(caller.saw("`R`1250 `r`gp |}"));
    EXPECT_THAT(caller.screen, EndsWith("[any key]{|}[clear][clear][menu weapons bsyr]"));
    game.session.inGame = 1;
    EXPECT_THAT(caller.visit(armourShop, "y r"), EndsWith("[any key][clear][menu armours bsyr]"));
}
