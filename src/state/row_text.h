// A fixed-size string stored in a table row. Unlike a pointer it needs no relocation at the start
// of the program, so processes share the memory of the table.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace morvek {

// Room for a text of at most size - 1 characters; a longer one does not compile in a table.
template <std::size_t size>
class RowText {
public:
    constexpr RowText(std::string_view text) {
        bytes_.at(text.size()) = '\0';
        std::copy(text.begin(), text.end(), bytes_.begin());
    }

    constexpr RowText(const char* text) : RowText(std::string_view(text)) {}

    [[nodiscard]] constexpr const char* text() const { return bytes_.data(); }

private:
    std::array<char, size> bytes_{};
};

} // namespace morvek
