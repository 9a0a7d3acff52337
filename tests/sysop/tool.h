// A game directory made by the tool, and the tool run in it.
#pragma once

#include "support/stored.h"
#include "sysop/command_line.h"

#include <sstream>

namespace morvek::test {

using testing::Not;

// A character as the game has just made it.
inline PlayerRecord character(const char* owner, const char* name) {
    game = GameState{};
    game.player = {name, "Ranger", 1, 0, 25.0, 0.0, 1000, 24, 24}; // up to his hit points
    for (auto* ability : {&game.player.strength, &game.player.constitution, &game.player.dexterity,
                          &game.player.intelligence, &game.player.wisdom, &game.player.charisma}) {
        *ability = 12;
    }
    game.player.weaponNumber = game.player.armourNumber = 1;
    game.player.weapon = "Club";
    game.player.armour = "Cloth";
    game.player.turnsLeft = game.player.turnsPerDay = 30;
    game.session.doorUserName = owner;
    PlayerRecord slot = emptySlot();
    storePlayer(slot, StoreKind::whole);
    return slot;
}

inline std::string bytesOf(const TextSlot& text) {
    return {reinterpret_cast<const char*>(&text), sizeof text};
}

class Sysop : public InTemporaryDirectory {
protected:
    Sysop() {
        ::setenv("TZ", "UTC", 1);
        fs::create_directory("board");
        told({"init", "board/game", "--board", "The Board", "--menus", MORVEK_MENUS_DIR});
        fs::current_path("board/game");
    }

    // What the tool says when these words are typed, behind its status where that is not 0.
    static std::string told(const std::vector<std::string>& words) {
        std::ostringstream out;
        std::ostringstream err;
        const int status = runSysop(words, out, err);
        EXPECT_EQ(status == 2 ? out.str() : status == 0 ? err.str() : "", "") << "other stream";
        return (status == 0 ? "" : std::to_string(status) + ": ") + out.str() + err.str();
    }
    static std::string told(const std::string& line) {
        std::istringstream words(line);
        return told(std::vector<std::string>{std::istream_iterator<std::string>(words), {}});
    }

    static void save(std::vector<PlayerRecord> slots) {
        slots.resize(slotCount, emptySlot());
        writeFile("morchars.dat", {reinterpret_cast<const char*>(slots.data()), 75000});
    }
};

} // namespace morvek::test
