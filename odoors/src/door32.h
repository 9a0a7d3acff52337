// DOOR32.SYS, eleven lines:
//
//      1  how the caller comes: 0 local, 1 serial line, 2 socket
//      2  the descriptor of the socket
//      3  the speed of the line                       (not used)
//      4  the board's program; WWIV writes seconds where others write minutes
//      5  the number of the caller's record           (not used)
//      6  real name
//      7  alias
//      8  security level                              (not used)
//      9  minutes left
//     10  emulation: 0 none, 1 and above ANSI
//     11  node
//
// Boards write 0 for callers whom they serve through standard input and output themselves.
#ifndef ODOORS_DOOR32_H
#define ODOORS_DOOR32_H

#include "drop_file.h"

namespace odoors {

// What the lines of a DOOR32.SYS say; throws a Refusal for one that is missing or no number.
DropFile readDoor32(const DropLines& lines);

} // namespace odoors

#endif
