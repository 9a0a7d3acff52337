// A test that works in a fresh directory of its own, which is gone afterwards.
#pragma once

#include "support/folder.h"
#include "support/game_test.h"

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

inline void writeFile(const std::string& path, std::string_view content, mode_t mode = 0644) {
    std::ofstream(path, std::ios::binary) << content;
    ::chmod(path.c_str(), mode);
}

// Everybody may write in the directory; a new call has begun.
struct InTemporaryDirectory : testing::Test {
    InTemporaryDirectory() {
        fs::current_path(folder.self);
        ::chmod(".", 0777);
        newCall();
    }
    ~InTemporaryDirectory() override {
        ::chmod(".", 0777);
        fs::current_path("/");
    }

    Folder folder;
};

// For as long as it lives, the test has no more rights than anybody: root may read everything.
struct AsNobody {
    AsNobody() { EXPECT_EQ(::seteuid(::getuid() == 0 ? 65534 : ::getuid()), 0); }
    ~AsNobody() { EXPECT_EQ(::seteuid(::getuid()), 0); }
};
