#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

// The file's bytes; empty when there is none.
inline std::string readFile(const std::string& path) {
    std::ifstream file(std::filesystem::is_directory(path) ? "" : path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A directory of its own for one test, gone with it.
struct Folder {
    explicit Folder(const std::string& where = "/tmp") : self(where + "/morvek.XXXXXX") {
        if (mkdtemp(self.data()) == nullptr) {
            std::abort();
        }
    }
    ~Folder() { std::filesystem::remove_all(self); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string path(const std::string& name = "") const { return self + '/' + name; }

    // Writes a file into it; its path.
    std::string write(const std::string& name, std::string_view bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

    std::string self;
};
