// The rules of the bank. An amount of at least 1 that its source holds is moved. The refusals are
// inverted on purpose: an amount above the balance is refused silently; an amount below 1, or no
// number, gets "insufficient funds" if the balance exceeds it.
//
// The two fields for the amount are kept apart. Each starts a visit as "0" and offers what was
// typed into it last.

#include "towne/bank.h"

#include "screen/screen.h"
#include "state/game_state.h"

#include <cstdint>
#include <string>

namespace morvek {
namespace {

constexpr int maxAmountLength = 8;

struct Transfer {
    const char* question;
    const char* done;
    double Player::*source;
    double Player::*target;
};

constexpr Transfer deposit{
    "`red`How much to gold to deposit`bright red`: `bright white`",
    "`red` gold has been deposited to the bank.",
    &Player::gold,
    &Player::bankGold,
};

constexpr Transfer withdrawal{
    "`red`How much to gold to withdraw`bright red`: `bright white`",
    "`red` gold has been withdrawn from bank.",
    &Player::bankGold,
    &Player::gold,
};

void drawBank() {
    clearScreen();
    say("`red`Bank\n\r");
    say("`bright white`----------------------------------------\n\r\n\r");
    say("`red`D`bright red`)`bright white`eposit\n\r");
    say("`red`W`bright red`)`bright white`ithdraw\n\r");
    say("`red`R`bright red`)`bright white`eturn to Towne\n\r\n\r");
    say("`red`Money on Hand `bright red`: `bright white`");
    showMoney(game.player.gold);
    say("`bright red` gold`red`.");
    say("\n\r");
    say("`red`Money in Bank `bright red`: `bright white`");
    showMoney(game.player.bankGold);
    say("`bright red` gold`red`.\n\r\n\r");
}

void sayMoved(const Transfer& transfer, const std::string& typed) {
    say("\n\r");
    show(typed);
    say("%s", transfer.done);
    say("\n\r\n\r");
}

void sayInsufficient() {
    say("\n\r");
    say("`red`You do not have sufficient funds.");
    say("\n\r\n\r");
}

void move(const Transfer& transfer, std::string& field) {
    say("\n\r\n\r");
    say("%s", transfer.question);
    field = askLine(maxAmountLength, 32, 127, field);
    const std::int32_t amount = typedNumber(field);
    double& source = game.player.*transfer.source;
    if (amount >= 1 && source >= amount) {
        source -= amount;
        game.player.*transfer.target += amount;
        sayMoved(transfer, field);
    } else if (source > amount) {
        sayInsufficient();
    }
    pressAnyKey();
}

} // namespace

void visitBank() {
    std::string depositField = "0";
    std::string withdrawalField = "0";
    while (true) {
        drawBank();
        switch (menu("command", "dwr")) {
        case 'd':
            move(deposit, depositField);
            break;
        case 'w':
            move(withdrawal, withdrawalField);
            break;
        default:
            return;
        }
    }
}

} // namespace morvek
