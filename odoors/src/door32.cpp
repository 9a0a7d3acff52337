#include "door32.h"

#include "clock.h"

namespace odoors {

namespace {

enum CommType : std::int64_t { local = 0, socketComm = 2 };

Route routeOf(std::int64_t commType) {
    return commType == local        ? Route::standardStreams
           : commType == socketComm ? Route::socket
                                    : Route::unreachable;
}

} // namespace

DropFile readDoor32(const DropLines& lines) {
    lines.require(11);
    const bool inSeconds = lines.text(4).starts_with("WWIV");
    DropFile file;
    file.route = routeOf(lines.number(1));
    file.socket = lines.smallNumber(2);
    file.realName = lines.text(6);
    file.alias = lines.text(7);
    file.secondsLeft = lines.number(9) * (inSeconds ? 1 : secondsPerMinute);
    file.ansi = lines.number(10) >= 1;
    file.node = lines.smallNumber(11);
    return file;
}

} // namespace odoors
