#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "charset.h"

namespace odoors {

// What the command line asks for; what it leaves open is none.
struct Options {
    std::optional<std::string> dropFile;
    bool local = false;
    std::optional<std::string> userName;
    bool realName = false;
    std::optional<std::int64_t> minutesLeft;
    std::optional<int> node;
    std::optional<int> handle;
    bool standardStreams = false;
    std::optional<bool> ansi;
    std::optional<Charset> charset; // none: what the terminal shows
    std::optional<std::int64_t> inactivitySeconds;
    std::optional<std::int64_t> pauseMilliseconds;
    std::optional<std::string> lockFile;
    std::optional<std::string> logFile;
    bool version = false;
    bool help = false;
};

// Adds what the arguments after the program's name ask for. Throws a StartupError for an option
// that is unknown or has no value or a wrong one; nothing after it, -HELP or -VERSION is read.
void readOptions(std::span<const char* const> arguments, Options& options);

// The options, a line each.
extern const char* const usage;

} // namespace odoors
