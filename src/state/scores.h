#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace morvek {

struct ScoreEntry {
    std::string name;
    std::int32_t score = 0;
    std::string className;
};

constexpr std::size_t topTenSize = 10;

struct Scores {
    ScoreEntry entry; // the score about to be entered
    std::array<ScoreEntry, topTenSize> table{};
    std::int32_t count = 0; // entries read
};

} // namespace morvek
