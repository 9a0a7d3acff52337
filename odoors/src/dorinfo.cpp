#include "dorinfo.h"

#include <algorithm>

#include "clock.h"
#include "files.h"
#include "text.h"

namespace odoors {

namespace {

// The whole name, as one text: it may be the real one or the alias, which the file does not tell.
std::string nameOf(const std::string& first, const std::string& last) {
    if (last.empty() || sameLetters(last, "NLN")) {
        return first;
    }
    return first.empty() ? last : first + ' ' + last;
}

// The number in the file's name.
std::optional<int> nodeOf(const std::string& fileName) {
    const std::size_t begin = std::min(fileName.size(), fileName.find_first_of("0123456789"));
    const std::size_t end = fileName.find('.', begin);
    const auto number = readNumber(fileName.substr(begin, end - begin));
    return number && *number <= 9999 ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

} // namespace

DropFile readDorinfo(const DropLines& lines) {
    lines.require(12);
    DropFile file;
    file.alias = nameOf(lines.text(7), lines.text(8));
    file.ansi = lines.number(10) >= 1;
    file.secondsLeft = lines.number(12) * secondsPerMinute;
    file.node = nodeOf(lastPart(lines.path())).value_or(1);
    return file;
}

} // namespace odoors
