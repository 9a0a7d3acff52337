// The program itself, in a game directory of its own.
#pragma once

#include "support/process.h"

#include <map>

#include <unistd.h>

constexpr std::size_t recordSize = 1500;

// Files by their names.
using Files = std::map<std::string, std::string>;

// A game directory as an operator leaves it, and the program in it.
class Game {
public:
    Game() {
        std::filesystem::copy(MORVEK_MENUS_DIR, folder.path());
        write("morvek.cfg", "Morvek\nThe Test Board\n.\n");
    }

    void write(const std::string& name, const std::string& bytes) {
        folder.write(name, bytes);
        filesBefore.merge(data());
    }

    Child program(const Arguments& arguments) const {
        return [arguments, directory = folder.path()] {
            if (chdir(directory.c_str()) == 0) {
                execv(MORVEK_PROGRAM, commandLine(arguments).data());
            }
            std::abort();
        };
    }

    std::string text(const std::string& name) const { return readFile(folder.path(name)); }

    // The files that have come since the operator wrote the last of his, but for the lock.
    Files data() const {
        Files found;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            const std::string name = entry.path().filename();
            if (filesBefore.count(name) == 0 && name != "morvek.lock") {
                found[name] = text(name);
            }
        }
        return found;
    }

    Folder folder;

private:
    Files filesBefore;
};
