#include "call_log.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <sys/uio.h>

#include "clock.h"
#include "startup_error.h"
#include "text.h"
#include "text/cp437.h"

namespace odoors {

namespace {

constexpr Milliseconds perMinute = 60'000;

volatile std::sig_atomic_t file = -1; // -1: not open, or the line is written
Milliseconds beginning = 0;
std::string date;
std::string caller = "node -\t-";
bool callerKnown = false;

std::string localDate() {
    const std::time_t now = calendarSecond();
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local)};
}

std::string plainUtf8(std::string_view cp437) {
    std::string utf8;
    text::appendAsUtf8(utf8, cp437);
    return text::withoutControls(utf8);
}

iovec part(std::string_view text) { return {const_cast<char*>(text.data()), text.size()}; }

// The program may end without a word to the library.
void logUntoldEnd() { logEnd(callerKnown ? "ended by the program" : startupFailed.words); }

} // namespace

void openCallLog(const std::string& path) {
    file =
        open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    if (file < 0) {
        throw StartupError{path + ": cannot be written: " + std::strerror(errno)};
    }
    beginning = monotonicNow();
    date = localDate();
    std::atexit(logUntoldEnd);
}

void setLoggedCaller(int node, std::string_view name) {
    const std::string shown = plainUtf8(name);
    caller = "node " + std::to_string(node) + '\t' + (shown.empty() ? "-" : shown);
    callerKnown = true;
}

// Allocates nothing, for the sake of signal handlers.
void logEnd(std::string_view how) {
    const int log = file;
    file = -1;
    if (log < 0) {
        return;
    }
    std::array<char, 24> digits;
    const std::int64_t minutes = (monotonicNow() - beginning) / perMinute;
    const char* end = std::to_chars(digits.begin(), digits.end(), minutes).ptr;
    const std::string_view minutesText(digits.data(),
                                       static_cast<std::size_t>(end - digits.data()));
    const std::array parts{part(date),        part("\t"),     part(caller), part("\t"),
                           part(minutesText), part(" min\t"), part(how),    part("\n")};
    [[maybe_unused]] const ssize_t written =
        writev(log, parts.data(), static_cast<int>(parts.size()));
}

void logStartupError(std::string_view reason) {
    logEnd(std::string(startupFailed.words) + ": " +
           plainUtf8(text::toCp437(reason).value_or(std::string(reason))));
}

} // namespace odoors
