#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/characters.h"

namespace odoors {

using text::isControl;
using text::isDigit;
using text::sameLetter;
using text::sameLetters;
using text::toLower;

// Whether the byte can go on with a character of UTF-8.
constexpr bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

// The text without the blanks and control bytes at its end.
std::string_view withoutTrailingBlanks(std::string_view text);

// The whole number that the text is, blanks around it allowed, held within ±10^13; none when the
// text is anything else.
std::optional<std::int64_t> readNumber(std::string_view text);

} // namespace odoors
