#include "sysop/charset.h"

#include <algorithm>
#include <array>

namespace morvek {
namespace {

constexpr unsigned firstHigh = 128;

// The characters 128 to 255.
constexpr std::u32string_view highHalf = U"ÇüéâäàåçêëèïîìÄÅ"
                                         U"ÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
                                         U"áíóúñÑªº¿⌐¬½¼¡«»"
                                         U"░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
                                         U"└┴┬├─┼╞╟╚╔╩╦╠═╬╧"
                                         U"╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
                                         U"αßΓπΣσµτΦΘΩδ∞φε∩"
                                         U"≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
static_assert(highHalf.size() == 128);

// The least character that needs so many bytes in UTF-8, and what marks the first of them.
struct Utf8Form {
    std::size_t bytes;
    char32_t least;
    unsigned mark;
    unsigned maskOfMark;
};

constexpr std::array<Utf8Form, 4> utf8Forms{{
    {1, 0, 0x00, 0x80},
    {2, 0x80, 0xC0, 0xE0},
    {3, 0x800, 0xE0, 0xF0},
    {4, 0x10000, 0xF0, 0xF8},
}};

void append(std::string& utf8, char32_t character) {
    const auto form = std::find_if(utf8Forms.rbegin(), utf8Forms.rend(),
                                   [&](const Utf8Form& one) { return character >= one.least; });
    for (std::size_t i = form->bytes; i-- > 0;) {
        const unsigned bits = static_cast<unsigned>(character >> (6 * i));
        const bool first = i + 1 == form->bytes;
        utf8 += static_cast<char>(first ? form->mark | (bits & 0x7FU) : 0x80U | (bits & 0x3FU));
    }
}

// Takes the next character off the text; nothing when no whole one stands there.
std::optional<char32_t> take(std::string_view& utf8) {
    const auto first = static_cast<unsigned char>(utf8.front());
    for (const Utf8Form& form : utf8Forms) {
        if ((first & form.maskOfMark) != form.mark || utf8.size() < form.bytes) {
            continue;
        }
        char32_t character = first & ~form.maskOfMark;
        for (std::size_t i = 1; i < form.bytes; ++i) {
            const auto next = static_cast<unsigned char>(utf8[i]);
            if ((next & 0xC0U) != 0x80U) {
                return std::nullopt;
            }
            character = (character << 6U) | (next & 0x3FU);
        }
        utf8.remove_prefix(form.bytes);
        return character >= form.least ? std::optional(character) : std::nullopt;
    }
    return std::nullopt;
}

std::string blanks(std::string_view cp437, std::size_t width) {
    const std::size_t shown = withoutControls(cp437).size();
    return std::string(width - std::min(width, shown), ' ');
}

} // namespace

bool isControl(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code < 32 || code == 127;
}

std::string withoutControls(std::string_view cp437) {
    std::string kept(cp437);
    std::erase_if(kept, isControl);
    return kept;
}

std::string toUtf8(std::string_view cp437) {
    std::string utf8;
    for (const char byte : withoutControls(cp437)) {
        const auto code = static_cast<unsigned char>(byte);
        append(utf8, code < firstHigh ? char32_t{code} : highHalf[code - firstHigh]);
    }
    return utf8;
}

std::string inQuotes(std::string_view cp437) {
    std::string text(1, '"');
    return text.append(toUtf8(cp437)).append("\"");
}

std::optional<std::string> toCp437(std::string_view utf8) {
    std::string cp437;
    while (!utf8.empty()) {
        const std::optional<char32_t> character = take(utf8);
        const std::size_t high = highHalf.find(character.value_or(0));
        if (!character || (*character >= firstHigh && high == std::u32string_view::npos)) {
            return std::nullopt;
        }
        cp437 += static_cast<char>(*character < firstHigh ? *character : firstHigh + high);
    }
    return cp437;
}

std::string column(std::string_view cp437, std::size_t width) {
    return toUtf8(cp437) + blanks(cp437, width);
}

std::string rightColumn(std::string_view cp437, std::size_t width) {
    return blanks(cp437, width) + toUtf8(cp437);
}

std::string escaped(std::string_view utf8) {
    std::string text;
    for (const char one : utf8) {
        switch (one) {
        case '&':
            text += "&amp;";
            break;
        case '<':
            text += "&lt;";
            break;
        case '>':
            text += "&gt;";
            break;
        case '"':
            text += "&quot;";
            break;
        case '\'':
            text += "&#39;";
            break;
        default:
            text += one;
        }
    }
    return text;
}

} // namespace morvek
