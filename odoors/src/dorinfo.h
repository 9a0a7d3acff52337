// DORINFOn.DEF, 12 or 13 lines; n is the node:
//
//      1  the board's name, its operator's first (2) and last name (3)     (not used)
//      4  serial port, its speed (5), a network's mark (6)                 (not used)
//      7  first name
//      8  last name; NLN or nothing for callers who have one name only
//      9  where the caller lives                                           (not used)
//     10  graphics: 0 none, 1 and above ANSI
//     11  security level                                                   (not used)
//     12  minutes left
//     13  the line's driver                                                (not used)
#ifndef ODOORS_DORINFO_H
#define ODOORS_DORINFO_H

#include "drop_file.h"

namespace odoors {

// What the lines of a DORINFOn.DEF say; throws a Refusal for one that is missing or no number.
DropFile readDorinfo(const DropLines& lines);

} // namespace odoors

#endif
