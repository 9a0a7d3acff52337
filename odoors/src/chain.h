// CHAIN.TXT, 32 lines:
//
//      1  the number of the caller's record           (not used)
//      2  alias
//      3  real name
//     14  ANSI: 1 when the caller has it
//     15  1 for a remote caller                       (not used: the way is never in this file)
//     16  seconds left, perhaps with a fraction
//
// The other lines tell of the caller's account, the board's directories and the line.
#ifndef ODOORS_CHAIN_H
#define ODOORS_CHAIN_H

#include "drop_file.h"

namespace odoors {

// What the lines of a CHAIN.TXT say; throws a Refusal for one that is missing or no number.
DropFile readChain(const DropLines& lines);

} // namespace odoors

#endif
