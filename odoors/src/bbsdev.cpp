#include "bbsdev.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "clock.h"
#include "text.h"

namespace odoors {

namespace {

constexpr std::int64_t secondsPerHour = 60 * secondsPerMinute;
constexpr std::int64_t secondsPerDay = 24 * secondsPerHour;

// More than anybody's session lasts.
constexpr std::int64_t unlimited = 100'000 * secondsPerDay;

struct Transport {
    std::string_view word;
    Route route;
};

constexpr std::array<Transport, 7> transports{{{"local", Route::standardStreams},
                                               {"stdio", Route::standardStreams},
                                               {"socket", Route::socket},
                                               {"serial", Route::unreachable},
                                               {"winserial", Route::unreachable},
                                               {"uart", Route::unreachable},
                                               {"fossil", Route::unreachable}}};

Route routeOf(const DropLines& lines) {
    for (const Transport& transport : transports) {
        if (sameLetters(transport.word, lines.text(2))) {
            return transport.route;
        }
    }
    lines.refuse(2, "is an unknown connection type");
}

std::optional<bool> ansiOf(const std::string& text) {
    return sameLetters(text, "Y")   ? std::optional(true)
           : sameLetters(text, "N") ? std::optional(false)
                                    : std::nullopt;
}

std::optional<Charset> charsetOf(const std::string& text) {
    return sameLetters(text, "UTF-8")    ? std::optional(Charset::utf8)
           : sameLetters(text, "IBM437") ? std::optional(Charset::cp437)
                                         : std::nullopt;
}

bool hasForm(std::string_view text, std::string_view form) {
    return std::equal(text.begin(), text.end(), form.begin(), form.end(),
                      [](char c, char place) { return place == '0' ? isDigit(c) : c == place; });
}

// A moment of the calendar as its second since the start of 1970.
std::optional<std::int64_t> readMoment(std::string_view text) {
    if (!hasForm(text, "0000-00-00T00:00:00Z")) {
        return std::nullopt;
    }
    const auto part = [text](std::size_t at, std::size_t length) {
        return static_cast<int>(readNumber(text.substr(at, length)).value_or(0));
    };
    const auto unsignedPart = [part](std::size_t at) { return static_cast<unsigned>(part(at, 2)); };
    const std::chrono::year_month_day date{std::chrono::year(part(0, 4)),
                                           std::chrono::month(unsignedPart(5)),
                                           std::chrono::day(unsignedPart(8))};
    if (!date.ok() || part(11, 2) > 23 || part(14, 2) > 59 || part(17, 2) > 60) {
        return std::nullopt;
    }
    const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
    return days * secondsPerDay + part(11, 2) * secondsPerHour + part(14, 2) * secondsPerMinute +
           part(17, 2);
}

std::int64_t secondsLeft(const DropLines& lines) {
    if (lines.text(11).empty()) {
        return unlimited;
    }
    const std::optional<std::int64_t> end = readMoment(lines.text(11));
    if (!end) {
        lines.refuse(11, "is not a time in UTC (YYYY-MM-DDTHH:MM:SSZ)");
    }
    return *end - calendarSecond();
}

} // namespace

DropFile readBbsdev(const DropLines& lines) {
    lines.require(19);
    if (!lines.text(1).starts_with("1.")) {
        lines.refuse(1, "is an unknown version; 1.x is needed");
    }
    DropFile file;
    file.route = routeOf(lines);
    if (file.route == Route::socket) {
        file.socket = lines.smallNumber(3);
    }
    file.alias = cp437FromUtf8(lines.text(4));
    file.ansi = ansiOf(lines.text(8));
    file.secondsLeft = secondsLeft(lines);
    file.charset = charsetOf(lines.text(12));
    file.node = lines.smallNumber(18);
    return file;
}

} // namespace odoors
