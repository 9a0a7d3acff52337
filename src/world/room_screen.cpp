#include "world/room_screen.h"

#include "screen/screen.h"
#include "state/encounter.h"
#include "state/game_state.h"
#include "world/encounter.h"

#include <string_view>

namespace morvek {
namespace {

constexpr std::size_t maxNameLength = 29;

void showGroup(const Room& room, std::string_view name) {
    const std::int32_t count = game.encounter.monsterCount;
    say("\n\r");
    say("`red`You've encountered `bright red`");
    show(count);
    say(" `bright white`");
    show(name);
    if (count > 1) {
        say("s");
    }
    if (room.oddities.strayColour) {
        say("`red.`\n\r");
    }
    say("\n\r");
}

} // namespace

void showTitle(const Room& room) {
    say("\n\r\n\r");
    say("`red`%s\n\r", room.title.text());
}

void showEncounter(const Room& room) {
    if (!monsterAlive() || game.encounter.monsterCount < 1) {
        return;
    }
    const Monster& monster = game.encounter.monster;
    const std::string_view name = std::string_view(monster.name).substr(0, maxNameLength);
    showGroup(room, name);
    say("`red`Your HP`bright red`: `bright white`");
    showPair(game.player.hitPoints, "`red`/`bright white`", game.player.maxHitPoints);
    say("\n\r");
    say("`bright white`");
    show(name);
    say("'s `red`HP`bright red`: `bright white`");
    showPair(monster.hitPoints, "`red`/`bright white`", monster.maxHitPoints);
}

void showDirections(const Room& room) {
    say("\n\r");
    say("`red`Directions`bright red`:\n\r\n\r");
    for (const Exit& exit : room.exitList()) {
        if (const char* line = lineOf(exit.sign)) {
            say("%s", line);
        }
    }
    say("\n\r");
    say("`red`H`bright red`)`bright white`ealing Shrine\n\r`red`");
    if (room.hasKey('s')) {
        say("`red`S`bright red`)`bright white`earch Area\n\r`red");
    }
    say("`red`Y`bright red`)`bright white`our Status\n\r`red`");
    say("`red`F`bright red`)`bright white`lee to Towne\n\r`red`");
    say("\n\r");
}

void showEncounterChoices(const Room& room) {
    say("\n\r\n");
    say("`red`A`bright red`)`bright white`ttack\n\r");
    say("`red`Y`bright red`)`bright white`our Status\n\r`red`");
    if (room.level) {
        say("`red`F`bright red`)`bright white`lee to Towne\n\r\n\r`red`");
    } else {
        say("`red`F`bright red`)`bright white`lee to Towne\n\r`red`");
    }
}

void showFinding() {
    say("\n\r");
    say("`red`Congratulations!!!");
    say("`red`You found `bright red`Morvek`red`!\n\r\n\r");
    game.world.foundMorvek = 1;
    pressAnyKey();
}

void showReturning() {
    say("\n\r\n\r");
    say("`red`Returning to Towne`bright red`...\n\r\n\r");
}

void showUnderDevelopment() {
    say("\n\r\n\r");
    say("`red`Under Development");
    say("\n\r\n\r");
    pressAnyKey();
}

void showAlreadySearched() {
    say("\n\r\n\r`red`Area already searched.\n\r\n\r");
    say("Press a key to continue...");
    waitForKey();
}

void showExhausted() {
    say("\n\r");
    say("`red`You are `bright white`exhausted`red`.\n\r\n\r");
    pressAnyKey();
}

} // namespace morvek
