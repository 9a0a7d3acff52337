#include "sysop/charset.h"

#include "text/cp437.h"

#include <algorithm>

namespace morvek {
bool holdsControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(), isControl);
}

std::string toUtf8(std::string_view cp437) {
    std::string utf8;
    text::appendAsUtf8(utf8, withoutControls(cp437));
    return utf8;
}

std::string inQuotes(std::string_view cp437) {
    std::string text(1, '"');
    return text.append(toUtf8(cp437)).append("\"");
}

std::size_t lengthOf(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(
        utf8.begin(), utf8.end(), [](char byte) { return (byte & '\xc0') != '\x80'; }));
}

std::string padded(const std::string& utf8, std::size_t width, bool toTheRight) {
    const std::string blanks(width - std::min(width, lengthOf(utf8)), ' ');
    return toTheRight ? blanks + utf8 : utf8 + blanks;
}

std::string toHtml(std::string_view cp437) {
    std::string html;
    for (const char one : toUtf8(cp437)) {
        if (std::string_view("&<>\"'").find(one) == std::string_view::npos) {
            html += one;
        } else {
            html.append("&#").append(std::to_string(int{one})).append(";");
        }
    }
    return html;
}

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace morvek
