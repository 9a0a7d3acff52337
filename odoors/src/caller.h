#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "charset.h"
#include "drop_file.h"
#include "options.h"

namespace odoors {

// Who the caller is, how he is reached and what he may do: the drop file, the options, which win
// over it, and what is usual where neither says anything.
struct Caller {
    std::string name;          // CP437, at most 35 bytes
    std::optional<int> socket; // none: he is at standard input and output
    int node = 1;
    std::int64_t secondsLeft = 0;
    bool timed = false;       // whether the session ends when they are used up
    std::optional<bool> ansi; // none: the terminal is to be asked
    Charset charset = Charset::cp437;
    bool charsetGuessed = false;              // a terminal with ANSI graphics is to be asked
    bool startedByBoard = false;              // rather than by himself
    std::int64_t inactivitySeconds = 0;       // 0: a wait for a key may last for ever
    std::optional<std::int64_t> longestPause; // before a clear, in milliseconds; none: as is usual
};

// What a caller's session finds at standard input and output.
struct Streams {
    bool open = true; // both of them
    bool inputIsTerminal = false;
};

// What was there when the process started. The first call opens /dev/null for those that were
// closed, so that no file opened later takes their place.
const Streams& standardStreams();

// The caller of this call, by the drop file that the options ask for, else the environment, else
// the start directory. Throws a StartupError when there is no drop file where there has to be one,
// when it is malformed, or when there is no way to reach the caller.
Caller findCaller(const Options& options, const Streams& streams);

// The caller whom these tell of. Throws a StartupError when there is no way to reach him.
Caller resolveCaller(const Options& options, const std::optional<DropFile>& file,
                     const Streams& streams);

} // namespace odoors
