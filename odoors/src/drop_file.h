#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "charset.h"

namespace odoors {

// How the board hands over the caller.
enum class Route { standardStreams, socket, unreachable };

// What a board's drop file says of the caller. Names are CP437, one of them may be empty.
struct DropFile {
    Route route = Route::standardStreams;
    int socket = -1; // for Route::socket: the descriptor, as the file has it
    std::string alias;
    std::string realName;
    std::int64_t secondsLeft = 0;
    std::optional<bool> ansi;       // none: the board does not know
    std::optional<Charset> charset; // what the caller's terminal shows; none: not told
    int node = 1;
};

// The drop file at the path, or in the directory at the path the first of DOOR32.SYS, DOOR.SYS,
// DORINFOn.DEF with the node's number, DORINFO1.DEF and CHAIN.TXT, each in any letter case; none
// when a directory has none. Throws a StartupError for a file that is missing, unreadable, of an
// unknown kind or malformed, which names the path and the line.
std::optional<DropFile> readDropFile(const std::string& path, int node);

// The BBSDEV.DRP at the path, whatever its name is there; throws as readDropFile does.
DropFile readBbsdevFile(const std::string& path);

// What the bytes of a drop file say; its kind is told by the last part of the path. Throws as
// readDropFile does.
DropFile parseDropFile(const std::string& path, std::string_view bytes);

} // namespace odoors
