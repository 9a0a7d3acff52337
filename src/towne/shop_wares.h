// The two shops: what they sell, and what they say. The odd prices are intended: Cloth costs a
// fifth of the price on its line, Starweave and Starleather are offered to callers who cannot pay
// for them, two wares buy back for far less than the others, and two garments change their name
// when they are sold.
#pragma once

#include "state/player.h"

#include <array>
#include <cstdint>
#include <string>

namespace morvek {

// One ware. Its number, 1 to 6, is its key in the shop and the player's item number.
struct Ware {
    const char* name;
    std::int32_t price;        // as shown
    std::int32_t offeredFrom;  // gold that an offer needs
    std::int32_t taken;        // gold that it costs
    std::int32_t shortageUpTo; // gold up to which its section finds too little
    std::int32_t salePrice;
    const char* nameInSale;
    const char* shortageLead; // printed before the shortage
    const char* shortage;
    const char* sold;
};

struct Shop {
    const char* menu; // display file
    std::int32_t Player::*number;
    std::string Player::*item;
    const char* title;
    const char* rule;
    int stockWidth; // of a ware's name and price on its line
    const char* currentItem;
    const char* thanks;
    const char* declined;
    bool declineEndsIt; // no shortage is found after a declined offer
    const char* bareName;
    const char* nothingToSell;
    bool refusesUnknown; // a number outside 0 to 6 has nothing to sell, and is told so
    std::array<Ware, 6> wares;
};

extern const Shop weapons;
extern const Shop armours;

} // namespace morvek
