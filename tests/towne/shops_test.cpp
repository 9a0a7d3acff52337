// Both shops, run over a price list of the test's own.
#include "support/game_test.h"
#include "towne/shop.h"

namespace {

// Of each ware: name, price, the least gold with which it is offered, what it takes, the most gold
// with which its key finds a shortage, sale price, and name in the sale.
using Prices = Cases<std::string, int, int, int, int, int, std::string>;

struct Shop {
    Prices prices;
    const char *bareName, *thanks;
    void (*buy)();
    void (*sell)();
    std::int32_t Player::*number;
    std::string Player::*item;
};

const std::string shortage = "You don't have enough gold.|";

const Prices weaponPrices{{"Club", 1250, 1250, 1250, 1249, 1225, "Club"},
                          {"Dagger", 1500, 1500, 1500, 1499, 1450, "Dagger"},
                          {"Javelin", 11000, 11000, 11000, 10999, 1900, "Javelin"},
                          {"Mace", 12500, 12500, 12500, 12499, 12250, "Mace"},
                          {"Sickle", 15000, 15000, 15000, 14999, 14500, "Sickle"},
                          {"Spear", 110000, 110000, 110000, 10999, 19000, "Spear"}};
const Shop weapons{weaponPrices,   "Fists",    "{||`W`Thank you!||}[any key]",
                   buyWeapon,      sellWeapon, &Player::weaponNumber,
                   &Player::weapon};

const Prices armourPrices{{"Cloth", 1250, 1250, 250, 1249, 1225, "Cloth"},
                          {"Feyweave", 1500, 1500, 1500, 1499, 1450, "Leather"},
                          {"Starweave", 11000, 1000, 11000, 999, 1900, "Hide"},
                          {"Leather", 12500, 12500, 12500, 12499, 12250, "Leather"},
                          {"Feyleather", 15000, 15000, 15000, 14999, 14500, "Feyleather"},
                          {"Starleather", 110000, 10000, 110000, 9999, 19000, "Starleather"}};
const Shop armours{armourPrices,   "T-Shirt",  "{Thank you!||}[any key]",
                   buyArmour,      sellArmour, &Player::armourNumber,
                   &Player::armour};

// What a caller with so much gold reads after these keys, until the stock is shown again.
std::string inBuying(const Shop& shop, double gold, const std::string& keys) {
    newCall();
    game.player.gold = gold;
    caller.visit(shop.buy, keys + " l ");
    return caller.between("[menu command 123456l]", "[clear]");
}

std::string inSale(const Shop& shop, int number, const std::string& keys) {
    newCall();
    game.player.*shop.number = number;
    return caller.visit(shop.sell, keys);
}

} // namespace

TEST(Shops, BuyAndSellByThePriceList) {
    for (const Shop& shop : {weapons, armours}) {
        int number = 0;
        for (const auto& [name, price, offeredFrom, taken, poorAt, salePrice, nameInSale] :
             shop.prices) {
            const std::string key = std::to_string(++number);
            EXPECT_EQ(inBuying(shop, offeredFrom, key + "y"), "{||}{`r`" + name + " for `W`" +
                                                                  std::to_string(price) +
                                                                  "`r` gold" + yesNo + shop.thanks);
            EXPECT_EQ(game.player.gold, offeredFrom - taken) << name;
            EXPECT_EQ(game.player.*shop.number, number);
            EXPECT_EQ(game.player.*shop.item, name);
            EXPECT_EQ(inBuying(shop, offeredFrom - 1, key).find(" for "), std::string::npos);
            EXPECT_THAT(inBuying(shop, poorAt, key), HasSubstr(shortage));

            const std::string offer = "{||}{`W`" + std::to_string(salePrice) +
                                      " `r`gold pieces.|}{|}{`r`Do you wish to sell your `W`" +
                                      nameInSale + "`r`" + yesNo;
            EXPECT_THAT(inSale(shop, number, "n "), StartsWith(offer));
            EXPECT_EQ(game.player.*shop.number, number);
            EXPECT_THAT(inSale(shop, number, "y "), HasSubstr("Sold!||}[any key]"));
            EXPECT_EQ(game.player.gold, salePrice);
            EXPECT_EQ(game.player.*shop.number, 0);
            EXPECT_EQ(game.player.*shop.item, shop.bareName);
        }
    }
}

TEST(Shops, ADeclinedWeaponRunsOnIntoDearerOnes) {
    const std::string pity = "{`W`That's too bad.||}[any key]";
    EXPECT_THAT(inBuying(weapons, 1300, "1n "),
                EndsWith(pity + "{|}{`r`" + shortage + "|}[any key]"));
    EXPECT_THAT(inBuying(weapons, 14999, "4n "),
                EndsWith(pity + "{|}{" + shortage + "|}[any key]"));
    EXPECT_EQ(game.player.gold, 14999);
    EXPECT_THAT(inBuying(weapons, 15000, "1n "), EndsWith(pity));
    EXPECT_THAT(inBuying(weapons, 200000, "6n "), EndsWith(pity));
    EXPECT_THAT(inBuying(armours, 1300, "1n"),
                EndsWith(yesNo + "{||}{`r`That's too bad.||}[any key]"));
    EXPECT_EQ(inBuying(weapons, 11000, "6"), "") << "beyond the limit, below the price";
}

TEST(Shops, TheMenuLeadsToEverythingAndBackButBareHandsAndForgedNumbersAreNoWares) {
    newCall();
    caller.visit(weaponShop, "bl s y r");
    EXPECT_TRUE(caller.saw("`R`1250 `r`gp |}") && caller.saw("own fists"));
    EXPECT_THAT(caller.screen, EndsWith("[any key]{|}[clear][clear][menu weapons bsyr]"));
    game.session.inGame = 1;
    EXPECT_THAT(caller.visit(armourShop, "y r"), EndsWith("[any key][clear][menu armours bsyr]"));
    for (const int forged : {-1, 7}) {
        EXPECT_EQ(inSale(weapons, forged, ""), "");
        EXPECT_EQ(inSale(armours, forged, " "),
                  "{||}{`r`You can't sell your own `W`T-shirt`r`.||}[any key]");
        EXPECT_EQ(game.player.armourNumber, forged);
    }
}
