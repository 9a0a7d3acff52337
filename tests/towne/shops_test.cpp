// Both shops, run over a price list of the test's own.
#include "support/game_test.h"
#include "towne/shop.h"

namespace {

// Of each ware: name, price, the least gold with which it is offered, what it takes, the most gold
// with which its key finds a shortage, the shortage, sale price, name in the sale, and its end.
using Prices = Cases<std::string, int, int, int, int, std::string, int, std::string, const char*>;

struct Shop {
    Prices prices;
    const char *bareName, *thanks;
    void (*buy)();
    void (*sell)();
    std::int32_t Player::*number;
    std::string Player::*item;
};

const std::string red = "{|}{`r`You don't have enough gold.||}[any key]";
const std::string plain = "{|}{You don't have enough gold.||}[any key]";
const std::string redTight = "{|}{`r`You don't have enough gold.|}[any key]";
const std::string tight = "{|}{You don't have enough gold.|}[any key]";
const std::string redLow = "{||}{`r`You don't have enough gold.||}[any key]";

const Prices weaponPrices{
    {"Club", 1250, 1250, 1250, 1249, red, 1225, "Club", "{`r`Sold!||}"},
    {"Dagger", 1500, 1500, 1500, 1499, red, 1450, "Dagger", "{Sold!||}"},
    {"Javelin", 11000, 11000, 11000, 10999, plain, 1900, "Javelin", "{Sold!||}"},
    {"Mace", 12500, 12500, 12500, 12499, plain, 12250, "Mace", "{Sold!||}"},
    {"Sickle", 15000, 15000, 15000, 14999, plain, 14500, "Sickle", "{Sold!||}"},
    {"Spear", 110000, 110000, 110000, 10999, plain, 19000, "Spear", "{Sold!||}"}};
const Shop weapons{weaponPrices,   "Fists",    "{||`W`Thank you!||}[any key]",
                   buyWeapon,      sellWeapon, &Player::weaponNumber,
                   &Player::weapon};

const Prices armourPrices{
    {"Cloth", 1250, 1250, 250, 1249, redLow, 1225, "Cloth", "{`r`Sold!||}"},
    {"Feyweave", 1500, 1500, 1500, 1499, redTight, 1450, "Leather", "{`r`Sold!||}"},
    {"Starweave", 11000, 1000, 11000, 999, tight, 1900, "Hide", "{`r`Sold!||}"},
    {"Leather", 12500, 12500, 12500, 12499, tight, 12250, "Leather", "{`r`Sold!||}"},
    {"Feyleather", 15000, 15000, 15000, 14999, tight, 14500, "Feyleather", "{`r`Sold!||}"},
    {"Starleather", 110000, 10000, 110000, 9999, tight, 19000, "Starleather", "{`r`Sold!||}"}};
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
        for (const auto& [name, price, offeredFrom, taken, poorAt, shortage, salePrice, nameInSale,
                          sold] : shop.prices) {
            const std::string key = std::to_string(++number);
            EXPECT_EQ(inBuying(shop, offeredFrom, key + "y"), "{||}{`r`" + name + " for `W`" +
                                                                  std::to_string(price) +
                                                                  "`r` gold" + yesNo + shop.thanks);
            EXPECT_EQ(game.player.gold, offeredFrom - taken) << name;
            EXPECT_EQ(game.player.*shop.number, number);
            EXPECT_EQ(game.player.*shop.item, name);
            EXPECT_EQ(inBuying(shop, offeredFrom - 1, key).find(" for "), std::string::npos);
            EXPECT_EQ(inBuying(shop, poorAt, key), shortage);

            const std::string offer = "{||}{`W`" + std::to_string(salePrice) +
                                      " `r`gold pieces.|}{|}{`r`Do you wish to sell your `W`" +
                                      nameInSale + "`r`" + yesNo;
            EXPECT_THAT(inSale(shop, number, "n "), StartsWith(offer));
            EXPECT_EQ(game.player.*shop.number, number);
            EXPECT_EQ(inSale(shop, number, "y "), offer + sold + "[any key]");
            EXPECT_EQ(game.player.gold, salePrice);
            EXPECT_EQ(game.player.*shop.number, 0);
            EXPECT_EQ(game.player.*shop.item, shop.bareName);
        }
    }
}

TEST(Shops, ADeclinedWeaponRunsOnIntoDearerOnes) {
    const auto declined = [](double gold, const std::string& key, const std::string& shortage) {
        EXPECT_THAT(inBuying(weapons, gold, key + "n "),
                    EndsWith(yesNo + "{||}{`W`That's too bad.||}[any key]" + shortage));
        EXPECT_EQ(game.player.gold, gold);
    };
    declined(1300, "1", red);
    declined(14999, "4", plain);
    declined(15000, "1", "");
    declined(200000, "6", "");
    EXPECT_THAT(inBuying(armours, 1300, "1n"),
                EndsWith(yesNo + "{||}{`r`That's too bad.||}[any key]"));
    EXPECT_EQ(inBuying(weapons, 11000, "6"), "") << "beyond the limit, below the price";
}

TEST(Shops, BareHandsAndForgedNumbersAreNoWares) {
    for (const int forged : {-1, 7}) {
        EXPECT_EQ(inSale(weapons, forged, ""), "");
        EXPECT_EQ(inSale(armours, forged, " "),
                  "{||}{`r`You can't sell your own `W`T-shirt`r`.||}[any key]");
        EXPECT_EQ(game.player.armourNumber, forged);
    }
}

TEST(Shops, TheMenuLeadsToEverythingAndBack) {
    newCall();
    caller.visit(weaponShop, "bl s y r");
    EXPECT_TRUE(caller.saw("`R`1250 `r`gp |}") && caller.saw("own fists"));
    EXPECT_THAT(caller.screen, EndsWith("[any key]{|}[clear][clear][menu weapons bsyr]"));
    game.session.inGame = 1;
    EXPECT_THAT(caller.visit(armourShop, "y r"), EndsWith("[any key][clear][menu armours bsyr]"));
}
