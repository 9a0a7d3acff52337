#pragma once

#include <array>
#include <string>

namespace morvek {

struct ScrollEntry {
    std::string author;
    std::string message;
};

// The message board, oldest message first.
using Scroll = std::array<ScrollEntry, 10>;

} // namespace morvek
