#include "clock.h"

#include <algorithm>
#include <array>

namespace odoors {

namespace {

constexpr std::int64_t mostMinutesShown = 32767;
constexpr std::array warnings{5, 1};

} // namespace

int (*readClock)(clockid_t clock, timespec* now) = clock_gettime;

Milliseconds monotonicNow() {
    timespec now{};
    readClock(CLOCK_MONOTONIC, &now);
    return static_cast<Milliseconds>(now.tv_sec) * perSecond + now.tv_nsec / 1'000'000;
}

std::int64_t calendarSecond() {
    timespec now{};
    readClock(CLOCK_REALTIME, &now);
    return now.tv_sec;
}

TimeLimit::TimeLimit(Milliseconds start, std::int64_t seconds, bool enforced)
    : start_(start), seconds_(std::max<std::int64_t>(0, seconds)), enforced_(enforced) {}

int TimeLimit::minutesLeft(Milliseconds now) const {
    const std::int64_t passed = (now - start_) / (secondsPerMinute * perSecond);
    const std::int64_t left = seconds_ / secondsPerMinute - passed;
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, mostMinutesShown));
}

Milliseconds TimeLimit::end() const { return enforced_ ? start_ + seconds_ * perSecond : never; }

int TimeLimit::nextWarningMinutes() const {
    for (const int minutes : warnings) {
        const bool given = lastWarning_ != 0 && lastWarning_ <= minutes;
        if (enforced_ && !given && seconds_ > minutes * secondsPerMinute) {
            return minutes;
        }
    }
    return 0;
}

Milliseconds TimeLimit::nextWarning() const {
    const int minutes = nextWarningMinutes();
    return minutes == 0 ? never : end() - minutes * secondsPerMinute * perSecond;
}

int TimeLimit::popWarning(Milliseconds now) {
    int due = 0;
    while (nextWarning() <= now) {
        due = lastWarning_ = nextWarningMinutes();
    }
    return due;
}

} // namespace odoors
