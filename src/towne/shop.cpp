// The rules of buying. A player has one weapon and one armour; what he buys takes its place, and
// what he sells leaves him with bare fists or a T-shirt.
//
// The chosen ware is offered if the gold reaches `offeredFrom`; what it takes is not compared with
// the gold. If it is not offered, or a weapon is declined, the first ware from there on whose
// `shortageUpTo` is at least the gold reports a shortage: a caller who declines a Club is mostly
// told that he cannot afford something dearer. If there is no such ware, nothing is said: a Spear
// for 20000 gold just shows the screen again.

#include "towne/shop.h"

#include "screen/screen.h"
#include "state/game_state.h"
#include "status/status_screen.h"
#include "towne/shop_wares.h"

#include <cstdint>
#include <string>

namespace morvek {
namespace {

const Ware& wareOf(const Shop& shop, std::int32_t number) {
    return shop.wares.at(static_cast<std::size_t>(number - 1));
}

bool isWare(const Shop& shop, std::int32_t number) {
    return number >= 1 && number <= static_cast<std::int32_t>(shop.wares.size());
}

void give(const Shop& shop, std::int32_t number, const char* name) {
    game.player.*shop.number = number;
    game.player.*shop.item = name;
}

void showWare(const Shop& shop, std::int32_t number) {
    const Ware& ware = wareOf(shop, number);
    const auto priceWidth = static_cast<int>(std::to_string(ware.price).size());
    say("`red`[`bright red`%d`red`] `bright white`%-*s`bright red`%d `red`gp \n\r", number,
        shop.stockWidth - priceWidth, ware.name, ware.price);
}

void drawStock(const Shop& shop) {
    clearScreen();
    say("%s", shop.title);
    say("%s", shop.rule);
    for (std::int32_t number = 1; isWare(shop, number); ++number) {
        showWare(shop, number);
    }
    say("\n\r");
    say("`red`L`bright red`)`bright white`eave                            \n\r\n\r");
    say("%s", shop.currentItem);
    show(game.player.*shop.item);
    say("\n\r\n\r");
    say("`red`Gold`bright red`: `bright white`");
    showMoney(game.player.gold);
    say("\n\r");
}

void sell(const Shop& shop, std::int32_t number) {
    const Ware& ware = wareOf(shop, number);
    game.player.gold -= ware.taken;
    give(shop, number, ware.name);
    say("%s", shop.thanks);
    pressAnyKey();
}

void sayDeclined(const Shop& shop) {
    say("\n\r\n\r");
    say("%s", shop.declined);
    pressAnyKey();
}

// Offers the ware; true when the sections that follow have nothing more to say.
bool offer(const Shop& shop, std::int32_t number) {
    const Ware& ware = wareOf(shop, number);
    say("\n\r\n\r");
    say("`red`%s for `bright white`%d`red` gold [`bright red`y`red`/`bright red`n`red`]"
        "`bright red`: `bright white`",
        ware.name, ware.price);
    if (answer("YN") == 'Y') {
        sell(shop, number);
        return true;
    }
    sayDeclined(shop);
    return shop.declineEndsIt;
}

void sayShortage(const Ware& ware) {
    say("%s", ware.shortageLead);
    say("%s", ware.shortage);
    pressAnyKey();
}

void serve(const Shop& shop, std::int32_t chosen) {
    if (game.player.gold >= wareOf(shop, chosen).offeredFrom && offer(shop, chosen)) {
        return;
    }
    for (std::int32_t number = chosen; isWare(shop, number); ++number) {
        const Ware& ware = wareOf(shop, number);
        if (game.player.gold <= ware.shortageUpTo) {
            sayShortage(ware);
            return;
        }
    }
}

void sayMaybeNextTime() {
    say("\n\r\n\r");
    say("`red`Maybe next time, eh?\n\r\n\r");
    pressAnyKey();
}

void buy(const Shop& shop) {
    while (true) {
        drawStock(shop);
        const char key = menu("command", "123456l");
        if (key == 'l') {
            sayMaybeNextTime();
            return;
        }
        serve(shop, key - '0');
    }
}

void sayNothingToSell(const Shop& shop) {
    say("\n\r\n\r");
    say("%s", shop.nothingToSell);
    pressAnyKey();
}

bool asksToSell(const Ware& ware) {
    say("\n\r\n\r");
    say("`bright white`%d `red`gold pieces.\n\r", ware.salePrice);
    say("\n\r");
    say("`red`Do you wish to sell your `bright white`%s`red` [`bright red`y`red`/`bright red`n"
        "`red`]`bright red`: `bright white`",
        ware.nameInSale);
    return answer("YN") == 'Y';
}

void buyBack(const Shop& shop, const Ware& ware) {
    if (asksToSell(ware)) {
        game.player.gold += ware.salePrice;
        give(shop, 0, shop.bareName);
        say("%s", ware.sold);
    } else {
        say("\n\r\n\r`red`I didn't want to pay you anyway!\n\r\n\r");
    }
    pressAnyKey();
}

void trade(const Shop& shop) {
    const std::int32_t held = game.player.*shop.number;
    if (isWare(shop, held)) {
        buyBack(shop, wareOf(shop, held));
    } else if (held == 0 || shop.refusesUnknown) {
        sayNothingToSell(shop);
    }
}

void status() {
    showStatus();
    if (game.session.inGame == 0) {
        say("\n\r");
        clearAnsiOnly();
    }
}

void visit(const Shop& shop) {
    while (true) {
        clearScreen();
        switch (menu(shop.menu, "bsyr")) {
        case 'b':
            buy(shop);
            break;
        case 's':
            trade(shop);
            break;
        case 'y':
            status();
            break;
        default:
            return;
        }
    }
}

} // namespace

void weaponShop() { visit(weapons); }

void armourShop() { visit(armours); }

void buyWeapon() { buy(weapons); }

void buyArmour() { buy(armours); }

void sellWeapon() { trade(weapons); }

void sellArmour() { trade(armours); }

} // namespace morvek
