#pragma once

#include "call_log.h"
#include "clock.h"

namespace odoors {

// Puts the terminal behind the descriptor into raw mode, so that every key comes at once, unechoed
// and as it is, until restoreTerminal(), the end of the process or its crash. Keys already typed
// are kept. Does nothing for what is no terminal, and nothing when called again.
void makeTerminalRaw(int descriptor);

// Gives the terminal back as it was found; may be called at any time and from a signal handler.
void restoreTerminal();

// From now on a signal that ends the session (a hang-up, an interrupt, a termination) is noted and
// breaks every wait; a process that has not ended half a second later is ended where it stands.
// Writing to a caller who is gone raises no signal, and a stop signal is ignored, since it would
// leave the terminal raw.
void watchSignals();

// Whether such a signal has come.
bool sessionSignalled();

// Ends the process so much later if it still runs, whatever it is doing: it may be blocked by a
// caller who takes no output. A later call replaces an earlier one, also with never; once a signal
// has come that ends the session, its shorter time counts. Only after watchSignals().
void endAfter(Milliseconds span, const Ending& ending);

} // namespace odoors
