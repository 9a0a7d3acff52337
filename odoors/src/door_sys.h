// DOOR.SYS, 31 lines, or 52 with what later boards added:
//
//      1  serial port: COM0: local                    (not used: the way is never in this file)
//      4  node
//     10  name
//     14  password                                    (never looked at)
//     19  minutes left
//     20  graphics: GR ANSI, NG none, 7E none and seven bits
//     36  alias, where there is such a line
//
// The other lines tell of the line's speed, the caller's account and the board; they are not used.
#ifndef ODOORS_DOOR_SYS_H
#define ODOORS_DOOR_SYS_H

#include "drop_file.h"

namespace odoors {

// What the lines of a DOOR.SYS say; throws a Refusal for one that is missing or no number.
DropFile readDoorSys(const DropLines& lines);

} // namespace odoors

#endif
