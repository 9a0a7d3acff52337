// A stored text of at most 15 characters, 24 bytes in every file that holds one:
//
//   0   4  a word without meaning: written as 0, ignored when read
//   4   4  length of the text, unsigned
//   8  16  the text, zeros behind it
//
// A length above 15 holds no text and reads as empty.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace morvek {

struct TextSlot {
    static constexpr std::size_t capacity = 15;

    std::uint32_t reserved = 0;
    std::uint32_t length = 0;
    std::array<char, 16> bytes{};

    constexpr TextSlot() = default;
    constexpr explicit TextSlot(std::string_view text) { assign(text); }

    // The stored text; empty when the length is out of range.
    [[nodiscard]] constexpr std::string_view view() const {
        return length <= capacity ? std::string_view(bytes.data(), length) : std::string_view();
    }

    // Stores the first 15 characters of the text.
    constexpr void assign(std::string_view text) {
        const std::string_view kept = text.substr(0, capacity);
        reserved = 0;
        length = static_cast<std::uint32_t>(kept.size());
        bytes.fill('\0');
        std::copy(kept.begin(), kept.end(), bytes.begin());
    }
};

static_assert(sizeof(TextSlot) == 24);

} // namespace morvek
