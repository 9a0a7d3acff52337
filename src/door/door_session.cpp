#include "door/door_session.h"

#include "door/title_menu.h"
#include "files/configuration_file.h"
#include "screen/screen.h"
#include "state/game_state.h"
#include "state/text_slot.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <unistd.h>

namespace morvek {
namespace {

constexpr int brightWhite = 15;
constexpr int black = 0;

// The day of the call is the day it began, also when it passes midnight.
void setDateStamp() {
    const std::time_t now = std::time(nullptr);
    std::array<char, 16> stamp{};
    if (const std::tm* local = std::localtime(&now)) {
        std::strftime(stamp.data(), stamp.size(), "%m%d%y", local);
    }
    game.session.dateStamp = stamp.data();
}

// If the directory cannot be entered, the game stays in the start directory.
void enterGameDirectory() {
    if (::chdir(game.session.gameDirectory.c_str()) != 0) {
        return;
    }
}

} // namespace

int runDoor(int argc, char* argv[]) {
    readCommandLine(argc, argv);
    if (!readConfiguration()) {
        std::fprintf(stderr, "morvek: %s: a line is longer than 253 characters\n",
                     configurationFileName);
        return 1;
    }
    openSession();
    // A record stores at most 15 bytes of a name, so cut it here for the whole call.
    sanitizeUserName(TextSlot::capacity);
    setColour(brightWhite, black);
    setDateStamp();
    setDisplayName();
    detectTerminal();
    clearAnsiOnly();
    enterGameDirectory();
    titleMenu();
}

} // namespace morvek
