#pragma once

#include <string>
#include <string_view>

#include "call_log.h"
#include "caller.h"
#include "clock.h"
#include "connection.h"
#include "key_decoder.h"
#include "output.h"

namespace odoors {

// One caller's session. What is shown is collected in output and goes out in one write before
// every look for a key and at the end. The session ends the process by itself when the caller is
// gone, has used up his time or types nothing for too long.
class Session {
public:
    // The flag is shared with the program, which may set it: 1 when the caller has ANSI graphics.
    explicit Session(char& ansiFlag) : output(ansiFlag), ansiFlag_(ansiFlag) {}

    // Opens the session: starts the caller's time and makes his terminal raw. With a lock file, a
    // caller who is not alone is told so, and the process ends. Throws a StartupError when the file
    // cannot be locked.
    void open(const Caller& caller, const std::optional<std::string>& lockFile);

    // Ends the process: shows what is collected, resets the colour, restores the terminal. With a
    // status that is not 0 a board's caller gets time to read the last line.
    [[noreturn]] void finish(int status);

    // Ends the process because the call cannot start; the operator has been told. A caller who is
    // connected is told too. startedByBoard says whether to wait for one who is not.
    [[noreturn]] void endAtStart(bool startedByBoard);

    // Ends the process as for a caller who is gone when a signal has come that ends the session.
    void endIfSignalled();

    // Asks the terminal what is not known of it: whether it has ANSI graphics, its width, and its
    // character set. Waits at most a second for an answer.
    void detectTerminal();

    // Whether the terminal is known to have fewer than 80 columns.
    bool isNarrow() const { return narrow_; }

    // Clears the screen, after a pause in which the caller can read what it would wipe.
    void clearScreen();

    // The next key; none when none is there and none is waited for.
    Key nextKey(bool wait);

    // The next key when it is already there, left where it is.
    Key typedAhead();

    // Whether the next keys are those of a line, which a warning must not tear.
    void setTypingLine(bool typing) { typingLine_ = typing; }

    // The whole minutes that the caller has left now.
    int minutesLeft() const { return limit_.minutesLeft(monotonicNow()); }

    Output output;

private:
    void connect(const Caller& caller);
    void startClock(const Caller& caller);
    void endWhenTimeIsUsedUp();
    void acquireCallerLock(const std::string& lockFile);
    bool receive(Milliseconds timeout);
    template <typename Condition>
    void receiveUntil(Condition holds, Milliseconds giveUp);
    bool askCursorReports(std::string_view question, std::size_t count);
    void measureTerminal();
    void pauseForReader();
    bool checkTime(Milliseconds now);
    bool repeatNotice();
    void warn(const std::string& notice);
    void flush();
    void flushUnread();
    void sendLast();
    void waitForReader(const Ending& ending);
    [[noreturn]] void endForLostCaller();
    [[noreturn]] void endWithLine(std::string_view line, const Ending& ending);

    char& ansiFlag_;
    Connection connection_;
    KeyDecoder keys_;
    TimeLimit limit_;
    Milliseconds longestWait_ = never;
    Milliseconds longestPause_ = 0;      // before a clear
    Milliseconds escapeSettles_ = never; // when a lone escape becomes a key
    std::string unseenNotice_;           // a warning that was shown while keys were typed ahead
    bool typingLine_ = false;
    bool asksForAnsi_ = false;
    bool asksForCharset_ = false;
    bool narrow_ = false;
    bool callerKnown_ = false;
    bool startedByBoard_ = false;
};

} // namespace odoors
