// Both shops, run over a price list of the test's own.
#include "towne/shop.h"

#include "door/screen.h"
#include "state/game_state.h"
#include "towne/said.h"

#include <gmock/gmock.h>

using namespace morvek;
using namespace morvek::test;
using testing::HasSubstr;
using testing::Not;

namespace {

struct PriceLine {
    const char* name;
    double price, offeredFrom, taken;
    double poorAt; // the most gold with which the ware's key finds a shortage
    const char *beforeShortage, *afterShortage;
    double salePrice;
    const char *nameInSale, *sold;
};

struct PriceList {
    const char* title;
    void (*buy)();
    void (*sell)();
    std::int32_t Player::*number;
    std::string Player::*item;
    const char *bareName, *thanks;
    std::vector<PriceLine> lines;
};

const std::string tooPoor = "You don't have enough gold.";

// clang-format off
const PriceList weapons{
    "`red`Weapons in Stock|", buyWeapon, sellWeapon, &Player::weaponNumber, &Player::weapon,
    "Fists", "||`bright white`Thank you!||", {
    {"Club", 1250, 1250, 1250, 1249, "|`red`", "||", 1225, "Club", "`red`Sold!||"},
    {"Dagger", 1500, 1500, 1500, 1499, "|`red`", "||", 1450, "Dagger", "Sold!||"},
    {"Javelin", 11000, 11000, 11000, 10999, "|", "||", 1900, "Javelin", "Sold!||"},
    {"Mace", 12500, 12500, 12500, 12499, "|", "||", 12250, "Mace", "Sold!||"},
    {"Sickle", 15000, 15000, 15000, 14999, "|", "||", 14500, "Sickle", "Sold!||"},
    {"Spear", 110000, 110000, 110000, 10999, "|", "||", 19000, "Spear", "Sold!||"},
}};

const PriceList armours{
    "`red`Armour in Stock|", buyArmour, sellArmour, &Player::armourNumber, &Player::armour,
    "T-Shirt", "Thank you!||", {
    {"Cloth", 1250, 1250, 250, 1249, "||`red`", "||", 1225, "Cloth", "`red`Sold!||"},
    {"Feyweave", 1500, 1500, 1500, 1499, "|`red`", "|", 1450, "Leather", "`red`Sold!||"},
    {"Starweave", 11000, 1000, 11000, 999, "|", "|", 1900, "Hide", "`red`Sold!||"},
    {"Leather", 12500, 12500, 12500, 12499, "|", "|", 12250, "Leather", "`red`Sold!||"},
    {"Feyleather", 15000, 15000, 15000, 14999, "|", "|", 14500, "Feyleather", "`red`Sold!||"},
    {"Starleather", 110000, 10000, 110000, 9999, "|", "|", 19000, "Starleather", "`red`Sold!||"},
}};
// clang-format on

// What the buying screen says to these keys, up to the next screen.
std::string saidInBuying(const PriceList& shop, double gold, const std::string& keys) {
    newCall();
    game.player.gold = gold;
    caller.type(keys + " l ");
    shop.buy();
    return said("`bright white`" + moneyText(gold) + "|", shop.title);
}

std::string saidInSale(const PriceList& shop, std::int32_t number, const std::string& keys) {
    newCall();
    game.player.gold = 7;
    game.player.*shop.number = number;
    caller.type(keys);
    shop.sell();
    return said();
}

} // namespace

TEST(Shops, SellAndBuyByThePriceList) {
    for (const PriceList& shop : {weapons, armours}) {
        char key = '1';
        for (const PriceLine& line : shop.lines) {
            const std::string question = "||`red`" + std::string(line.name) +
                                         " for `bright white`" + moneyText(line.price) +
                                         "`red` gold" + yesNo;
            EXPECT_EQ(saidInBuying(shop, line.offeredFrom, {key, 'y'}),
                      question + shop.thanks + anyKey);
            EXPECT_EQ(game.player.gold, line.offeredFrom - line.taken) << line.name;
            EXPECT_EQ(game.player.*shop.number, key - '0');
            EXPECT_EQ(game.player.*shop.item, line.name);
            EXPECT_THAT(saidInBuying(shop, line.offeredFrom - 1, {key}), Not(HasSubstr(" for ")));
            EXPECT_EQ(saidInBuying(shop, line.poorAt, {key}),
                      line.beforeShortage + tooPoor + line.afterShortage + anyKey);

            const std::string offer = "||`bright white`" + moneyText(line.salePrice) +
                                      " `red`gold pieces.||`red`Do you wish to sell your "
                                      "`bright white`" +
                                      line.nameInSale + "`red`" + yesNo;
            EXPECT_EQ(saidInSale(shop, key - '0', "y "), offer + line.sold + anyKey);
            EXPECT_EQ(game.player.gold, 7 + line.salePrice);
            EXPECT_EQ(game.player.*shop.number, 0);
            EXPECT_EQ(game.player.*shop.item, shop.bareName);
            EXPECT_EQ(saidInSale(shop, key - '0', "n "),
                      offer + "||`red`I didn't want to pay you anyway!||" + anyKey);
            EXPECT_EQ(game.player.*shop.number, key++ - '0');
        }
    }
}

TEST(Shops, ADeclinedWeaponRunsOnIntoDearerOnes) {
    const std::string tooBad = "That's too bad.||" + anyKey;
    const auto declined = [&](double gold, char key, const std::string& shortage) {
        EXPECT_THAT(saidInBuying(weapons, gold, {key, 'n', ' '}),
                    testing::EndsWith(yesNo + "||`bright white`" + tooBad + shortage));
        EXPECT_EQ(game.player.gold, gold);
    };
    declined(1300, '1', "|`red`" + tooPoor + "||" + anyKey);
    for (const auto& [gold, key] : {std::pair{1500, '1'}, {12499, '3'}, {14999, '4'}}) {
        declined(gold, key, "|" + tooPoor + "||" + anyKey);
    }
    declined(15000, '1', "");
    declined(200000, '6', "");
    EXPECT_THAT(saidInBuying(armours, 1300, "1n"), testing::EndsWith(yesNo + "||`red`" + tooBad));
    EXPECT_EQ(saidInBuying(weapons, 11000, "6"), "") << "beyond the limit, below the price";
    EXPECT_EQ(saidInBuying(weapons, 109999, "6"), "");
}

TEST(Shops, ShowTheirStock) {
    newCall(false);
    game.player.gold = 20000;
    game.player.weapon = "`Club`";
    caller.type("l ");
    buyWeapon();
    EXPECT_THAT(caller.screen(), HasSubstr("show `Club`\n")); // no colour
    // clang-format off
    EXPECT_EQ(said("", "`red`[`bright red`2"),
        "||`red`Weapons in Stock|`bright white`----------------------------------|"
        "`red`[`bright red`1`red`] `bright white`Club                    `bright red`1250 `red`gp |");
    EXPECT_EQ(said("15000 `red`gp |"),
        "`red`[`bright red`6`red`] `bright white`Spear                 `bright red`110000 `red`gp |"
        "|`red`L`bright red`)`bright white`eave                            ||"
        "`red`Your current weapon is`bright red`: `bright white``Club`||"
        "`red`Gold`bright red`: `bright white`20000|||`red`Maybe next time, eh?||" + anyKey);
    caller.type("l ");
    buyArmour();
    EXPECT_EQ(said("", "`red`[`bright red`2"),
        "||`red`Armour in Stock|`bright white`------------------------------------|"
        "`red`[`bright red`1`red`] `bright white`Cloth                     `bright red`1250 `red`gp |");
    EXPECT_THAT(said("15000 `red`gp |"), testing::StartsWith(
        "`red`[`bright red`6`red`] `bright white`Starleather             `bright red`110000 `red`gp |"
        "|`red`L`bright red`)`bright white`eave                            ||"
        "`red`Your current armour is`bright red`: `bright white`||"));
    // clang-format on
}

TEST(Shops, BareHandsAndForgedNumbersAreNoWares) {
    EXPECT_EQ(saidInSale(weapons, 0, " "), "||`red`You can't sell your own fists.||" + anyKey);
    for (const std::int32_t forged : {-1, 7}) {
        EXPECT_EQ(saidInSale(weapons, forged, ""), "");
        EXPECT_EQ(saidInSale(armours, forged, " "),
                  "||`red`You can't sell your own `bright white`T-shirt`red`.||" + anyKey);
        EXPECT_EQ(game.player.armourNumber, forged);
    }
}

TEST(Shops, TheMenuLeadsToEverythingAndBack) {
    newCall();
    game.session.inGame = 1;
    caller.type("bl s y r");
    weaponShop();
    EXPECT_THAT(said(), HasSubstr("Maybe next time, eh?"));
    EXPECT_THAT(said(), HasSubstr("own fists"));
    EXPECT_THAT(caller.screen(), testing::EndsWith("key\nclear\nmenu weapons bsyr\n"));
    newCall(); // before he is in the game
    caller.type("y r");
    armourShop();
    EXPECT_THAT(caller.screen(), HasSubstr("key\nsay |\nclear\nclear\nmenu armours bsyr\n"));
}
