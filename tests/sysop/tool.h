// A game directory made by the tool, and the tool run in it.
#pragma once

#include "state/game_state.h"
#include "state/player_record.h"
#include "support/temporary_directory.h"
#include "sysop/command_line.h"

#include <cstring>
#include <sstream>

namespace morvek::test {

// A character as the game has just made it.
inline PlayerRecord character(const char* owner, const char* name) {
    game = GameState{};
    game.player.name = name;
    game.player.className = "Ranger";
    game.player.level = 1;
    game.player.gold = 25.0;
    game.player.experienceNeeded = 1000;
    game.player.hitPoints = game.player.maxHitPoints = 24;
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

class Sysop : public InTemporaryDirectory {
protected:
    Sysop() {
        ::setenv("TZ", "UTC", 1);
        std::filesystem::create_directory("board");
        run({"init", "board/game", "--board", "The Board", "--menus", MORVEK_MENUS_DIR});
        std::filesystem::current_path("board/game");
    }

    std::string out;
    std::string err;

    int run(const std::vector<std::string>& arguments) {
        std::ostringstream shown;
        std::ostringstream complaints;
        const int status = runSysop(arguments, shown, complaints);
        out = shown.str();
        err = complaints.str();
        return status;
    }

    static void save(std::vector<PlayerRecord> slots) {
        slots.resize(slotCount, emptySlot());
        writeFile("morchars.dat", {reinterpret_cast<const char*>(slots.data()), 75000});
    }

    static PlayerRecord load(std::size_t index) {
        PlayerRecord slot;
        const std::string bytes = readFile("morchars.dat");
        EXPECT_EQ(bytes.size(), 75000u);
        std::memcpy(&slot, bytes.data() + index * sizeof slot, sizeof slot);
        return slot;
    }

    static std::size_t backups() {
        std::size_t count = 0;
        if (std::filesystem::exists("backup")) {
            for ([[maybe_unused]] const auto& one : std::filesystem::directory_iterator("backup")) {
                ++count;
            }
        }
        return count;
    }
};

} // namespace morvek::test
