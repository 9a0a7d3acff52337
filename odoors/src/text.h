#ifndef ODOORS_TEXT_H
#define ODOORS_TEXT_H

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace odoors {

// The text without the blanks and control bytes at its end.
std::string_view withoutTrailingBlanks(std::string_view text);

// A letter A to Z as a small one; anything else as it is.
constexpr char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether both keys or characters are the same but for the case of a letter A to Z.
constexpr bool sameLetter(char one, char other) {
    return lowered(one) == lowered(other);
}

// Whether both texts are the same but for the case of their letters A to Z.
constexpr bool sameLetters(std::string_view one, std::string_view other) {
    return one.size() == other.size() &&
           (one == other || std::equal(one.begin(), one.end(), other.begin(), sameLetter));
}

// Whether the character is one of 0 to 9.
bool isDigit(char c);

// Whether the byte is one that terminals obey and do not show: below 32, or 127.
constexpr bool isControl(char byte) {
    return static_cast<unsigned char>(byte) < ' ' || byte == 127;
}

// The whole number that the text is, blanks around it allowed, held within ±10^13; none when the
// text is anything else.
std::optional<std::int64_t> readNumber(std::string_view text);

} // namespace odoors

#endif
