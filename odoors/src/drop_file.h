#ifndef ODOORS_DROP_FILE_H
#define ODOORS_DROP_FILE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

// The lines of a drop file, counted from 1. Whatever is asked of them and cannot be had throws a
// Refusal that names the file and the line.
class DropLines {
public:
    // Takes the whole file apart: lines end in CRLF or LF, the last one perhaps in nothing.
    DropLines(std::string path, std::string_view bytes);

    const std::string& path() const { return path_; }

    std::size_t count() const { return lines_.size(); }

    // Throws unless the file has that many lines at least.
    void require(std::size_t count) const;

    // The line without the blanks at its end.
    const std::string& text(std::size_t line) const { return lines_[line - 1]; }

    // The whole number in the line, held within ±10^13.
    std::int64_t number(std::size_t line) const;

    // The whole number in the line, held within the limits of an int.
    int smallNumber(std::size_t line) const;

    // Throws for what is wrong in the line.
    [[noreturn]] void refuse(std::size_t line, const std::string& reason) const;

private:
    std::string path_;
    std::vector<std::string> lines_;
};

// The drop file at the path, or in the directory at the path the first of DOOR32.SYS, DOOR.SYS,
// DORINFOn.DEF with the node's number, DORINFO1.DEF and CHAIN.TXT, each in any letter case; none
// when a directory holds none. Throws a Refusal for a file that is missing, unreadable, of an
// unknown kind or wrong inside.
std::optional<DropFile> readDropFile(const std::string& path, int node);

// The BBSDEV.DRP at the path, whatever its name is there; throws a Refusal as readDropFile does.
DropFile readBbsdevFile(const std::string& path);

} // namespace odoors

#endif
