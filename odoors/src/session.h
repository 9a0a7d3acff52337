#ifndef ODOORS_SESSION_H
#define ODOORS_SESSION_H

#include <string>
#include <string_view>

#include "call_log.h"
#include "caller.h"
#include "clock.h"
#include "connection.h"
#include "key_decoder.h"
#include "options.h"
#include "output.h"

namespace odoors {

// One caller's session. What is shown is collected in output and goes out in one write before
// every look for a key and at the end. The session ends the process by itself when the caller is
// gone, has used up his time or types nothing for too long.
class Session {
public:
    Session();

    // Opens the session; throws a Refusal when there is no caller. A door that serves one caller
    // at a time tells another so and ends.
    void open(const Options& options);

    // Ends the process: shows what is collected, resets the colour, restores the terminal.
    [[noreturn]] void finish(int status);

    // Ends the process because the session cannot begin; tells the caller where he can be reached.
    // The operator has been told why.
    [[noreturn]] void endAtStart(bool startedByBoard);

    // Ends the process as for a caller who is gone when a signal has come that ends the session.
    void endIfSignalled();

    // Asks a terminal of unknown kind whether it has ANSI graphics.
    void detectAnsi();

    // Waits for the next key.
    char waitForKey() { return nextKey(true); }

    // The next key, 0 when none is there.
    char keyIfThere() { return nextKey(false); }

    // The next key when it is already there, left where it is; 0 otherwise.
    char typedAhead();

    // Whether the caller has ANSI graphics now.
    bool ansi() const;

    Output output;

private:
    char nextKey(bool wait);
    bool receive(Milliseconds patience);
    void noteTime();
    void flush();
    void lockOutOthers(const std::string& lockFile);
    void showLine(std::string_view line);
    void sendLast();
    void leaveTimeToRead(const Ending& ending);
    [[noreturn]] void endForLostCaller();
    [[noreturn]] void endWithLine(std::string_view line, const Ending& ending);

    Connection connection_;
    KeyDecoder keys_;
    TimeLimit limit_;
    Milliseconds longestWait_ = never;
    Milliseconds escapeSettles_ = never;
    bool ansiSettled_ = true;
    bool startedByBoard_ = false;
    bool callerKnown_ = false;
};

} // namespace odoors

#endif
