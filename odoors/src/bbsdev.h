// BBSDEV.DRP, 19 lines in UTF-8:
//
//      1  version of this layout: 1.x
//      2  how the caller comes: local, stdio, socket, serial, winserial, uart or fossil
//      3  what belongs to it: the descriptor of a socket
//      4  alias, the only name there is
//      8  ANSI: Y or N
//     11  when the caller must be off, YYYY-MM-DDTHH:MM:SSZ; empty: whenever he likes
//     12  what his terminal shows: UTF-8 or IBM437
//     18  node
//
// The other lines are not used.
#ifndef ODOORS_BBSDEV_H
#define ODOORS_BBSDEV_H

#include "drop_file.h"

namespace odoors {

// What the lines of a BBSDEV.DRP say, its name in CP437 and its time as what is left of it now;
// throws a Refusal for a line that is missing or not of its form.
DropFile readBbsdev(const DropLines& lines);

} // namespace odoors

#endif
