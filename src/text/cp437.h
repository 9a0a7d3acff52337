// CP437, the character set of the game and of its files, to and from UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace text {

// Appends CP437 bytes to a text in UTF-8; bytes below 128 stay as they are.
void appendAsUtf8(std::string& utf8, std::string_view bytes);

// The CP437 byte of a Unicode character, 0 when there is none.
char cp437Byte(char32_t character);

// The text in CP437; nothing when it is not UTF-8, or holds a NUL or a character that CP437 has
// not.
std::optional<std::string> toCp437(std::string_view utf8);

// Whether the bytes are UTF-8 and hold a character above 127, so are hardly CP437.
bool looksLikeUtf8(std::string_view bytes);

// Puts the characters of a stream of UTF-8 bytes together.
class Utf8Reader {
public:
    enum class Step { character, more, malformed };

    // Reads the next byte: it completes a character, is part of one, or cannot be. A malformed
    // byte is forgotten, and so is what came before it.
    Step read(char byte);

    // Whether a character has begun that is not complete.
    bool midway() const { return due_ > 0; }

    // The character that read() has completed.
    char32_t character() const { return character_; }

    // Forgets a character that has begun.
    void reset() { due_ = 0; }

private:
    char32_t character_ = 0;
    char32_t least_ = 0;
    int due_ = 0;
};

} // namespace text
