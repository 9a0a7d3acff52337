#include "chain.h"

#include <algorithm>

#include "text.h"

namespace odoors {

namespace {

constexpr std::size_t secondsLine = 16;

// The line's number without its fraction.
std::int64_t wholeSeconds(const DropLines& lines) {
    const std::string& text = lines.text(secondsLine);
    const std::size_t point = text.find('.');
    const std::string fraction = point < text.size() ? text.substr(point + 1) : std::string();
    const std::optional<std::int64_t> seconds = readNumber(text.substr(0, point));
    if (!seconds || !std::all_of(fraction.begin(), fraction.end(), isDigit)) {
        lines.refuse(secondsLine, "is not a number");
    }
    return *seconds;
}

} // namespace

DropFile readChain(const DropLines& lines) {
    lines.require(32);
    DropFile file;
    file.alias = lines.text(2);
    file.realName = lines.text(3);
    file.ansi = lines.number(14) == 1;
    file.secondsLeft = wholeSeconds(lines);
    return file;
}

} // namespace odoors
