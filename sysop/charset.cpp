#include "sysop/charset.h"

#include "text/cp437.h"

#include <algorithm>

namespace morvek {
namespace {

std::string blanks(std::string_view cp437, std::size_t width) {
    const std::size_t shown = withoutControls(cp437).size();
    return std::string(width - std::min(width, shown), ' ');
}

} // namespace

std::string toUtf8(std::string_view cp437) {
    std::string utf8;
    text::appendAsUtf8(utf8, withoutControls(cp437));
    return utf8;
}

std::string inQuotes(std::string_view cp437) {
    std::string text(1, '"');
    return text.append(toUtf8(cp437)).append("\"");
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
