#include "characters/player_list.h"

#include "characters/character_file.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "state/roster.h"

namespace morvek {
namespace {

void showListed(const TextSlot& name, std::size_t slot) {
    say("`bright red`");
    show(name.view());
    say(" `red`#`bright white`");
    show(static_cast<std::int32_t>(slot + 1));
    say("\n\r");
}

} // namespace

void loadRoster() {
    clearAnsiOnly();
    if (!readRoster()) {
        return;
    }
    for (std::size_t slot = 0; slot < searchedSlots; ++slot) {
        const PlayerRecord& stored = game.roster.slots()[slot];
        if (!stored.ownerName.view().empty()) {
            game.roster.list()[slot] = stored;
            game.roster.list()[slot].version.assign(listVersion);
        }
    }
}

void showPlayerList() {
    clearScreen();
    say("`red`Player List\n\r");
    say("`bright white`-----------\n\r");
    say("\n\r");
    for (std::size_t slot = 0; slot < searchedSlots; ++slot) {
        const TextSlot& name = game.roster.list()[slot].name;
        if (!name.view().empty()) {
            showListed(name, slot);
            game.roster.playerCount = static_cast<std::int32_t>(slot + 2);
        }
    }
}

void showUsersOnline() {
    clearScreen();
    say("`red`Users currently on-line`bright red`:\n\r");
    say("`bright white`------------------------\n\r\n\r");
    for (std::size_t slot = 0; slot < searchedSlots; ++slot) {
        const PlayerRecord& stored = game.roster.slots()[slot];
        if (stored.onlineFlag == 1) {
            showListed(stored.name, slot);
        }
    }
    say("\n\r");
    pressAnyKey();
}

} // namespace morvek
