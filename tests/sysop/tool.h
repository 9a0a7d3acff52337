// A game directory made by the tool, and the tool run in it.
#pragma once

#include "state/roster.h"
#include "support/character.h"
#include "support/stored.h"
#include "sysop/command_line.h"

#include <iomanip>
#include <sstream>

namespace morvek::test {

using testing::Not;

struct Sysop : InTemporaryDirectory {
    Sysop() {
        ::setenv("TZ", "UTC", 1);
        fs::create_directory("board");
        told("init board/game --board \"The Board\"" + withMenus);
        fs::current_path("board/game");
    }

    // What the tool says when this line is typed, behind its status where that is not 0.
    static std::string told(const std::string& line) {
        std::istringstream typed(line);
        std::vector<std::string> words;
        for (std::string word; typed >> std::quoted(word);) {
            words.push_back(word);
        }
        std::ostringstream out;
        std::ostringstream err;
        const int status = runSysop(words, out, err);
        EXPECT_EQ(status == 2 ? out.str() : status == 0 ? err.str() : "", "") << "other stream";
        const std::string all = out.str() + err.str();
        EXPECT_TRUE(all.find_first_of("\a\b\t\r\033\x7f") == std::string::npos ||
                    line.ends_with("--ansi"))
            << all;
        return (status == 0 ? "" : std::to_string(status) + ": ") + all;
    }

    static void save(std::vector<PlayerRecord> slots) {
        slots.resize(slotCount, emptySlot());
        writeFile("morchars.dat", {reinterpret_cast<const char*>(slots.data()), 75000});
    }

    const std::string withMenus = " --menus \"" MORVEK_MENUS_DIR "\"";
};

} // namespace morvek::test
