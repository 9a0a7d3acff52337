// The operator's log: a line a call, tabs between its parts, in UTF-8:
//
//     2026-11-15T21:04:33    node 3    Jörg Ace    12 min    quit (0)
//
// The time is when the call began. A line is appended in one write, so those of several nodes do
// not mix.
#pragma once

#include <string>
#include <string_view>

namespace odoors {

// How a call ends: the process's status, and what the log calls it.
struct Ending {
    int status;
    std::string_view words;
};

constexpr Ending startupFailed{1, "could not start (1)"};
constexpr Ending connectionLost{2, "connection lost (2)"};
constexpr Ending timeUsedUp{3, "time used up (3)"};
constexpr Ending nothingTyped{4, "no key pressed (4)"};
constexpr Ending otherCaller{5, "another caller inside (5)"};

// Opens the log for a call that begins now; throws a StartupError when it cannot be written. Until
// then nothing is logged.
void openCallLog(const std::string& path);

// Says who is calling, his name in CP437.
void setLoggedCaller(int node, std::string_view name);

// Logs how the call has ended, unless that is done already. Safe in a signal handler.
void logEnd(std::string_view how);

// Logs that the call could not start, and why.
void logStartupError(std::string_view reason);

} // namespace odoors
