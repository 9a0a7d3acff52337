// A test that works in a fresh directory of its own, which is gone afterwards.
#pragma once

#include "support/scripted_caller.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <string>
#include <unistd.h>

namespace morvek::test {

inline void writeFile(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

inline std::string readFile(const std::string& path) {
    if (std::filesystem::is_directory(path)) {
        return {};
    }
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class InTemporaryDirectory : public testing::Test {
protected:
    InTemporaryDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "morvek-XXXXXX").string();
        directory = ::mkdtemp(name.data());
        std::filesystem::current_path(directory);
        newCall();
    }
    ~InTemporaryDirectory() override {
        std::filesystem::current_path("/");
        std::filesystem::remove_all(directory);
    }
    InTemporaryDirectory(const InTemporaryDirectory&) = delete;
    InTemporaryDirectory& operator=(const InTemporaryDirectory&) = delete;

    std::filesystem::path directory;
};

// For as long as it lives, the test has no more rights than anybody: root may read everything.
class AsNobody {
public:
    AsNobody() {
        if (::geteuid() == 0 && ::seteuid(65534) != 0) {
            std::abort();
        }
    }
    ~AsNobody() {
        if (::getuid() == 0 && ::seteuid(0) != 0) {
            std::abort();
        }
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
};

} // namespace morvek::test
