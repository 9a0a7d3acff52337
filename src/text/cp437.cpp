#include "text/cp437.h"

namespace text {
namespace {

// The characters of the CP437 bytes 128 to 255.
constexpr std::u16string_view upperHalf = u"ÇüéâäàåçêëèïîìÄÅ"
                                          u"ÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
                                          u"áíóúñÑªº¿⌐¬½¼¡«»"
                                          u"░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
                                          u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧"
                                          u"╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
                                          u"αßΓπΣσµτΦΘΩδ∞φε∩"
                                          u"≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00a0";
static_assert(upperHalf.size() == 128);

constexpr unsigned firstUpper = 128;

char continuation(char16_t character, int shift) {
    return static_cast<char>(0x80 | ((character >> shift) & 0x3f));
}

// How many of the bytes at the front are below 128.
std::size_t plainLength(std::string_view bytes) {
    std::size_t length = 0;
    while (length < bytes.size() && static_cast<unsigned char>(bytes[length]) < firstUpper) {
        ++length;
    }
    return length;
}

// A character above 127, as its two or three bytes.
void appendCharacter(std::string& text, char16_t character) {
    if (character < 0x800) {
        text += static_cast<char>(0xc0 | (character >> 6));
    } else {
        text += static_cast<char>(0xe0 | (character >> 12));
        text += continuation(character, 6);
    }
    text += continuation(character, 0);
}

} // namespace

void appendAsUtf8(std::string& utf8, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t plain = plainLength(bytes);
        utf8 += bytes.substr(0, plain);
        bytes.remove_prefix(plain);
        if (!bytes.empty()) {
            appendCharacter(utf8, upperHalf[static_cast<unsigned char>(bytes[0]) - firstUpper]);
            bytes.remove_prefix(1);
        }
    }
}

char cp437Byte(char32_t character) {
    if (character < firstUpper) {
        return static_cast<char>(character);
    }
    for (unsigned i = 0; i < upperHalf.size(); ++i) {
        if (upperHalf[i] == character) {
            return static_cast<char>(firstUpper + i);
        }
    }
    return 0;
}

std::optional<std::string> toCp437(std::string_view utf8) {
    std::string bytes;
    Utf8Reader reader;
    for (const char byte : utf8) {
        const Utf8Reader::Step step = reader.read(byte);
        if (step == Utf8Reader::Step::character) {
            bytes += cp437Byte(reader.character());
        }
        if (step == Utf8Reader::Step::malformed || (!bytes.empty() && bytes.back() == 0)) {
            return std::nullopt;
        }
    }
    return reader.midway() ? std::nullopt : std::optional(bytes);
}

bool looksLikeUtf8(std::string_view bytes) {
    Utf8Reader reader;
    for (const char byte : bytes) {
        if (reader.read(byte) == Utf8Reader::Step::malformed) {
            return false;
        }
    }
    return !reader.midway() && plainLength(bytes) < bytes.size();
}

Utf8Reader::Step Utf8Reader::read(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    if (due_ > 0 && (code & 0xc0) == 0x80) {
        character_ = character_ << 6 | (code & 0x3f);
        if (--due_ > 0) {
            return Step::more;
        }
        return character_ >= least_ ? Step::character : Step::malformed;
    }
    const bool broken = due_ > 0;
    due_ = 0;
    if (broken || (code >= 0x80 && code < 0xc2) || code > 0xf4) {
        return Step::malformed;
    }
    if (code < 0x80) {
        character_ = code;
        return Step::character;
    }
    due_ = code < 0xe0 ? 1 : code < 0xf0 ? 2 : 3;
    least_ = due_ == 1 ? 0x80 : due_ == 2 ? 0x800 : 0x10000;
    character_ = code & (0x3f >> due_);
    return Step::more;
}

} // namespace text
