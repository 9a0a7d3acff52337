// A text that stands in the row of a table itself. A pointer to it would have to be set right in
// every row whenever the program starts, and callers could not share the table's memory.
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
        bytes.at(text.size()) = '\0';
        std::copy(text.begin(), text.end(), bytes.begin());
    }

    constexpr RowText(const char* text) : RowText(std::string_view(text)) {}

    [[nodiscard]] constexpr const char* text() const { return bytes.data(); }

private:
    std::array<char, size> bytes{};
};

} // namespace morvek
