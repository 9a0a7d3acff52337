#include "towne/shop_wares.h"

namespace morvek {
namespace {

constexpr const char* line = "\n\r";
constexpr const char* lines = "\n\r\n\r";

constexpr const char* red = "`red`You don't have enough gold.\n\r\n\r";
constexpr const char* plain = "You don't have enough gold.\n\r\n\r";
constexpr const char* redTight = "`red`You don't have enough gold.\n\r";
constexpr const char* tight = "You don't have enough gold.\n\r";

constexpr const char* inRed = "`red`Sold!\n\r\n\r";
constexpr const char* inPlain = "Sold!\n\r\n\r";

} // namespace

// The columns of the wares: name, price, offered from, taken, shortage up to, sale price, name in
// the sale; what comes before a shortage, how it is said, how the sale is.
// clang-format off
constexpr Shop weapons{
    .menu = "weapons",
    .number = &Player::weaponNumber,
    .item = &Player::weapon,
    .title = "`red`Weapons in Stock\n\r",
    .rule = "`bright white`----------------------------------\n\r",
    .stockWidth = 28,
    .currentItem = "`red`Your current weapon is`bright red`: `bright white`",
    .thanks = "\n\r\n\r`bright white`Thank you!\n\r\n\r",
    .declined = "`bright white`That's too bad.\n\r\n\r",
    .declineEndsIt = false,
    .bareName = "Fists",
    .nothingToSell = "`red`You can't sell your own fists.\n\r\n\r",
    .refusesUnknown = false,
    .wares = {{
        {"Club",      1250,   1250,   1250,  1249,  1225, "Club",    line, red,   inRed},
        {"Dagger",    1500,   1500,   1500,  1499,  1450, "Dagger",  line, red,   inPlain},
        {"Javelin",  11000,  11000,  11000, 10999,  1900, "Javelin", line, plain, inPlain},
        {"Mace",     12500,  12500,  12500, 12499, 12250, "Mace",    line, plain, inPlain},
        {"Sickle",   15000,  15000,  15000, 14999, 14500, "Sickle",  line, plain, inPlain},
        {"Spear",   110000, 110000, 110000, 10999, 19000, "Spear",   line, plain, inPlain},
    }},
};

constexpr Shop armours{
    .menu = "armours",
    .number = &Player::armourNumber,
    .item = &Player::armour,
    .title = "`red`Armour in Stock\n\r",
    .rule = "`bright white`------------------------------------\n\r",
    .stockWidth = 30,
    .currentItem = "`red`Your current armour is`bright red`: `bright white`",
    .thanks = "Thank you!\n\r\n\r",
    .declined = "`red`That's too bad.\n\r\n\r",
    .declineEndsIt = true,
    .bareName = "T-Shirt",
    .nothingToSell = "`red`You can't sell your own `bright white`T-shirt`red`.\n\r\n\r",
    .refusesUnknown = true,
    .wares = {{
        {"Cloth",         1250,  1250,    250,  1249,  1225, "Cloth",       lines, red, inRed},
        {"Feyweave",      1500,  1500,   1500,  1499,  1450, "Leather",     line, redTight, inRed},
        {"Starweave",    11000,  1000,  11000, 10999,  1900, "Hide",        line, tight, inRed},
        {"Leather",      12500, 12500,  12500, 12499, 12250, "Leather",     line, tight, inRed},
        {"Feyleather",   15000, 15000,  15000, 14999, 14500, "Feyleather",  line, tight, inRed},
        {"Starleather", 110000, 10000, 110000, 10999, 19000, "Starleather", line, tight, inRed},
    }},
};
// clang-format on

} // namespace morvek
