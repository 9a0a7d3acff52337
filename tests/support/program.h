// The program itself, in a game directory of its own.
#pragma once

#include "support/process.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include <unistd.h>

constexpr std::size_t recordSize = 1500;
// Where the texts of two of its slots begin.
constexpr std::size_t ownerNameAt = 68;
constexpr std::size_t nameAt = 92;

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
    file.seekg(0).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

// A game directory as an operator leaves it, and the program in it.
struct Game {
    Folder folder;
    std::set<std::string> filesBefore;

    Game() {
        std::filesystem::copy(MORVEK_MENUS_DIR, folder.path());
        write("morvek.cfg", "Morvek\nThe Test Board\n.\n");
    }

    void write(const std::string& name, const std::string& bytes) {
        folder.write(name, bytes);
        filesBefore = files();
    }

    Child program(const std::vector<std::string>& arguments) const {
        return [arguments, directory = folder.path()] {
            std::vector<char*> words{const_cast<char*>("morvek")};
            for (const std::string& argument : arguments) {
                words.push_back(const_cast<char*>(argument.c_str()));
            }
            words.push_back(nullptr);
            if (chdir(directory.c_str()) == 0) {
                execv(MORVEK_PROGRAM, words.data());
            }
            std::abort();
        };
    }

    std::set<std::string> files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            names.insert(entry.path().filename());
        }
        return names;
    }

    // The files that have come since the operator wrote the last of his.
    std::set<std::string> newFiles() const {
        std::set<std::string> names = files();
        for (const std::string& name : filesBefore) {
            names.erase(name);
        }
        return names;
    }

    std::string text(const std::string& name) const { return contentOf(folder.path(name)); }

    // The news of the day that the call began on.
    std::string news() const {
        for (const std::string& name : newFiles()) {
            if (name.ends_with(".txt")) {
                return text(name);
            }
        }
        return "";
    }

    // How the display file of that name ends on the screen.
    std::string endOf(const std::string& menu) const {
        std::string bytes = text(menu);
        bytes.resize(std::min(bytes.size(), bytes.find('\x1a')));
        return bytes.substr(bytes.size() - std::min<std::size_t>(bytes.size(), 20));
    }
};
