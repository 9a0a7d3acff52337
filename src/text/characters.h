// Bytes and letters, in any character set that holds ASCII.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace text {

// Whether a terminal obeys the byte instead of showing it: below 32, or 127.
constexpr bool isControl(char byte) {
    return static_cast<unsigned char>(byte) < ' ' || byte == 127;
}

// The text without its control bytes.
inline std::string withoutControls(std::string_view text) {
    std::string kept(text);
    std::erase_if(kept, isControl);
    return kept;
}

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr char toLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether both are the same but for the case of a letter A to Z.
constexpr bool sameLetter(char one, char other) { return toLower(one) == toLower(other); }

constexpr bool sameLetters(std::string_view one, std::string_view other) {
    return one.size() == other.size() &&
           (one == other || std::equal(one.begin(), one.end(), other.begin(), sameLetter));
}

} // namespace text
