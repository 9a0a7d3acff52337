#ifndef ODOORS_CALLER_H
#define ODOORS_CALLER_H

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
    std::int64_t inactivitySeconds = 0; // 0: a wait for a key may last for ever
};

// What a caller's session finds at standard input and output.
struct Streams {
    bool open = true; // both of them
    bool inputIsTerminal = false;
    bool outputIsTerminal = false;
};

// What was there when the process started. The first call opens what was closed on nothing, so that
// no file opened later comes to stand where the caller or the operator is written to.
const Streams& standardStreams();

// The drop file that the options ask for, or the one in the start directory; none for a session
// that has no board, or whose board gives only the caller's socket. Throws a Refusal when there is
// no drop file where there has to be one.
std::optional<DropFile> findDropFile(const Options& options, const Streams& streams);

// The caller of this session. Throws a Refusal when there is no way to reach him.
Caller resolveCaller(const Options& options, const std::optional<DropFile>& file,
                     const Streams& streams);

} // namespace odoors

#endif
