#include "door_sys.h"

#include "clock.h"
#include "text.h"

namespace odoors {

namespace {

constexpr std::size_t aliasLine = 36;

std::optional<bool> ansiOf(const std::string& graphics) {
    if (sameLetters(graphics, "GR")) {
        return true;
    }
    if (sameLetters(graphics, "NG") || sameLetters(graphics, "7E")) {
        return false;
    }
    return std::nullopt;
}

} // namespace

DropFile readDoorSys(const DropLines& lines) {
    lines.require(31);
    DropFile file;
    file.node = lines.smallNumber(4);
    file.realName = lines.text(10);
    file.secondsLeft = lines.number(19) * secondsPerMinute;
    file.ansi = ansiOf(lines.text(20));
    if (lines.count() >= aliasLine) {
        file.alias = lines.text(aliasLine);
    }
    return file;
}

} // namespace odoors
