#pragma once

#include <cstdint>
#include <ctime>
#include <limits>

namespace odoors {

// A moment or a span in milliseconds; moments count from an arbitrary start.
using Milliseconds = std::int64_t;

constexpr Milliseconds perSecond = 1000;

constexpr std::int64_t secondsPerMinute = 60;

constexpr Milliseconds never = std::numeric_limits<Milliseconds>::max();

// Reads a clock as clock_gettime() does, which it is unless a test puts another in its place.
extern int (*readClock)(clockid_t clock, timespec* now);

// The time on a clock that nobody can set.
Milliseconds monotonicNow();

// The seconds since the start of 1970 in UTC, on a clock that can be set.
std::int64_t calendarSecond();

// The time that one caller has: how much is left, and what he must be told about it.
class TimeLimit {
public:
    TimeLimit() = default;

    // A caller who has that many seconds from start on; unless enforced they only count down.
    TimeLimit(Milliseconds start, std::int64_t seconds, bool enforced);

    // The whole minutes to show: one less for every whole minute that has passed, 0 to 32767.
    int minutesLeft(Milliseconds now) const;

    // When the time is used up; never when it is not enforced.
    Milliseconds end() const;

    // When the next warning is due; never when none is left.
    Milliseconds nextWarning() const;

    // The warning that is due, as the minutes (5 or 1) that are at most left; 0 for none. Each is
    // due once, and only for a caller who began with more.
    int popWarning(Milliseconds now);

private:
    int nextWarningMinutes() const;

    Milliseconds start_ = 0;
    std::int64_t seconds_ = 0;
    bool enforced_ = false;
    int lastWarning_ = 0;
};

} // namespace odoors
