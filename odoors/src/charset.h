#ifndef ODOORS_CHARSET_H
#define ODOORS_CHARSET_H

#include <string>
#include <string_view>

namespace odoors {

// What a caller's terminal shows. The game's own texts are always CP437.
enum class Charset { cp437, utf8 };

// Adds CP437 bytes to a text in UTF-8; bytes below 128 stay as they are.
void appendAsUtf8(std::string& text, std::string_view bytes);

// The CP437 byte of a Unicode character, 0 when there is none.
char cp437Byte(char32_t character);

// The text taken from UTF-8 into CP437; as it is when it is not UTF-8 or has no such form.
std::string cp437FromUtf8(std::string_view text);

// What the environment says of the terminal that this process was started from.
Charset charsetOfEnvironment();

// Puts the characters of a stream of UTF-8 bytes together.
class Utf8Reader {
public:
    enum class Step { character, more, malformed };

    // Takes the next byte: it completes a character, is part of one, or cannot be. A malformed
    // byte is forgotten, and so is what came before it.
    Step take(char byte);

    // Whether a character has begun that is not complete.
    bool midway() const { return due_ > 0; }

    // The character that take() has completed.
    char32_t character() const { return character_; }

    // Forgets a character that has begun.
    void reset() { due_ = 0; }

private:
    char32_t character_ = 0;
    char32_t least_ = 0;
    int due_ = 0;
};

} // namespace odoors

#endif
