#include "status/status_screen.h"

#include "screen/screen.h"
#include "state/game_state.h"

#include <string>
#include <string_view>

namespace morvek {
namespace {

constexpr std::size_t maxValueLength = 49;

void showValue(std::string_view value) { show(value.substr(0, maxValueLength)); }

void showValue(std::int32_t value) { showValue(std::to_string(value)); }

void line(const char* label, std::string_view value) {
    say("%s", label);
    showValue(value);
    say("\n\r");
}

void line(const char* label, std::int32_t value) { line(label, std::to_string(value)); }

// A line of two values with a separator between them.
void line(const char* label, std::int32_t value, const char* separator, std::int32_t limit) {
    say("%s", label);
    showValue(value);
    say("%s", separator);
    showValue(limit);
    say("\n\r");
}

void trimLineFeeds(std::string& text) {
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
}

} // namespace

// The labels of the two money lines are a character longer before their colour changes, so that
// all the colons line up.
void showStatus() {
    Player& player = game.player;
    trimLineFeeds(player.name);
    clearScreen();
    say("`red`Your Status`bright red:");
    say("\n\r");
    say("`bright white`----------------------------------------\n\r");
    line("`red`Name         `bright red`  : `bright white`", player.name);
    line("`red`Class        `bright red`  : `bright white`", player.className);
    line("`red`Level        `bright red`  : `bright white`", player.level);
    line("`red`Experience   `bright red`  : `bright white`", player.experience,
         "`red`/`bright white`", player.experienceNeeded);
    line("`red`Money on Hand `bright red` : `bright white`", moneyText(player.gold));
    line("`red`Money in Bank `bright red` : `bright white`", moneyText(player.bankGold));
    line("`red`Hit Points   `bright red`  : `bright white`", player.hitPoints,
         "`red`/`bright white`", player.maxHitPoints);
    line("`red`Strength     `bright red`  : `bright white`", player.strength);
    line("`red`Constitution `bright red`  : `bright white`", player.constitution);
    line("`red`Dexterity    `bright red`  : `bright white`", player.dexterity);
    line("`red`Intelligence `bright red`  : `bright white`", player.intelligence);
    line("`red`Wisdom       `bright red`  : `bright white`", player.wisdom);
    line("`red`Charisma     `bright red`  : `bright white`", player.charisma);
    line("`red`Weapon       `bright red`  : `bright white`", player.weapon);
    line("`red`Armour       `bright red`  : `bright white`", player.armour);
    line("`red`Turns Left   `bright red`  : `bright white`", player.turnsLeft,
         "`red` of `bright white`", player.turnsPerDay);
    say("`red`Remaining Time`bright red` : `bright white`%d minutes", remainingMinutes());
    say("\n\r\n\r");
    pressAnyKey();
}

} // namespace morvek
