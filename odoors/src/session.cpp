#include "session.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "OpenDoor.h"
#include "terminal.h"
#include "text.h"

namespace odoors {

namespace {

constexpr Milliseconds perSecond = 1000;

// A terminal sends an escape sequence in one go; a caller cannot type that fast.
constexpr Milliseconds escapeSettlesAfter = 50;

// How long a caller may take to be told why his session ends.
constexpr Milliseconds overtime = 500;

// How long he may then take to read it.
constexpr Milliseconds lastLineStays = 3 * perSecond;

constexpr Milliseconds longestDetection = perSecond;
constexpr std::string_view askCursorPosition = "\033[6n";

} // namespace

Session::Session() : output(od_control.user_ansi) {}

bool Session::ansi() const {
    return od_control.user_ansi == 1;
}

void Session::open(const Options& options) {
    const Streams& streams = standardStreams();
    startedByBoard_ = !options.local;
    const std::optional<DropFile> file = findDropFile(options, streams);
    startedByBoard_ = file || (options.handle && !options.local);
    const Caller caller = resolveCaller(options, file, streams);
    setLoggedCaller(caller.node, caller.name);
    if (caller.socket) {
        connection_ = Connection(*caller.socket);
    }
    std::snprintf(od_control.user_name, sizeof od_control.user_name, "%s", caller.name.c_str());
    od_control.od_node = caller.node;
    od_control.user_ansi = caller.ansi.value_or(false) ? 1 : 0;
    callerKnown_ = true;
    ansiSettled_ = caller.ansi.has_value() || !connection_.canBeAsked();
    output.setCharset(caller.charset);
    keys_.setCharset(caller.charset);
    if (caller.inactivitySeconds > 0) {
        longestWait_ = caller.inactivitySeconds * perSecond;
    }
    const Milliseconds start = presentMoment();
    limit_ = TimeLimit(start, caller.secondsLeft, caller.timed);
    if (caller.timed) {
        endAfter(limit_.end() - start + overtime, timeUsedUp);
    }
    od_control.user_timelimit = limit_.minutesLeft(start);
    if (options.lockFile) {
        lockOutOthers(*options.lockFile);
    }
    makeTerminalRaw(STDIN_FILENO);
    endIfSignalled();
}

void Session::endIfSignalled() {
    if (sessionSignalled()) {
        endForLostCaller();
    }
}

// The lock lives as long as the process: the file is never closed.
void Session::lockOutOthers(const std::string& lockFile) {
    const int descriptor = ::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor >= 0 && flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        return;
    }
    if (errno == EWOULDBLOCK) {
        endWithLine("Another caller is inside. Please try again later.", otherCaller);
    }
    throw Refusal{lockFile + ": cannot be locked: " + std::strerror(errno)};
}

void Session::detectAnsi() {
    if (ansiSettled_ || ansi()) {
        return;
    }
    ansiSettled_ = true;
    keys_.expectCursorReport();
    output.control(askCursorPosition);
    flush();
    const Milliseconds giveUp = presentMoment() + longestDetection;
    Milliseconds now = 0;
    while (!keys_.cursorReportSeen() && !connection_.lost() && !sessionSignalled() &&
           (now = presentMoment()) < giveUp) {
        receive(giveUp - now);
    }
    od_control.user_ansi = keys_.cursorReportSeen() ? 1 : 0;
}

char Session::typedAhead() {
    if (keys_.peek() == 0) {
        receive(0);
    }
    return keys_.peek();
}

char Session::nextKey(bool wait) {
    noteTime();
    flush();
    const Milliseconds start = presentMoment();
    const Milliseconds giveUp = longestWait_ < never - start ? start + longestWait_ : never;
    for (;;) {
        endIfSignalled();
        if (const char key = keys_.take()) {
            od_control.user_timelimit = limit_.minutesLeft(presentMoment());
            return key;
        }
        if (connection_.lost()) {
            endForLostCaller();
        }
        const Milliseconds now = presentMoment();
        if (now >= limit_.end()) {
            endWithLine("Your time is used up.", timeUsedUp);
        }
        if (now >= giveUp) {
            endWithLine("No key was pressed for too long. Goodbye.", nothingTyped);
        }
        const Milliseconds until = std::min({giveUp, limit_.end(), escapeSettles_});
        if (!receive(wait ? until - now : 0) && !wait) {
            return 0;
        }
    }
}

// Takes in what the caller has sent, or waits that long for it; false when nothing has come of it.
bool Session::receive(Milliseconds patience) {
    std::string bytes;
    switch (connection_.read(bytes, patience)) {
    case Connection::Event::bytes:
        keys_.feed(bytes);
        escapeSettles_ = keys_.escapePending() ? presentMoment() + escapeSettlesAfter : never;
        return true;
    case Connection::Event::lost:
        keys_.finish();
        escapeSettles_ = never;
        return true;
    case Connection::Event::nothing:
        break;
    }
    if (presentMoment() < escapeSettles_) {
        return false;
    }
    keys_.settleEscape();
    escapeSettles_ = never;
    return true;
}

void Session::noteTime() {
    const Milliseconds now = presentMoment();
    od_control.user_timelimit = limit_.minutesLeft(now);
    if (now >= limit_.end()) {
        endWithLine("Your time is used up.", timeUsedUp);
    }
    const int minutes = limit_.takeWarning(now);
    if (minutes > 0) {
        const std::string number = std::to_string(minutes);
        showLine("You have at most " + number + (minutes == 1 ? " minute" : " minutes") + " left.");
    }
}

void Session::flush() {
    if (sessionSignalled() || !connection_.write(output.take())) {
        endForLostCaller();
    }
}

void Session::showLine(std::string_view line) {
    if (output.column() > 0) {
        output.show("\n\r");
    }
    output.show(line);
    output.show("\n\r");
}

void Session::finish(int status) {
    logEnd(status == 0 ? "quit (0)" : "ended by the program (" + std::to_string(status) + ')');
    sendLast();
    restoreTerminal();
    std::exit(status);
}

// The program's own endings must not run once the session has ended by itself: hence _exit.
void Session::endWithLine(std::string_view line, const Ending& ending) {
    logEnd(ending.words);
    showLine(line);
    endAfter(overtime, ending);
    sendLast();
    leaveTimeToRead(ending);
    restoreTerminal();
    _exit(ending.status);
}

void Session::endAtStart(bool startedByBoard) {
    endIfSignalled();
    startedByBoard_ = startedByBoard_ || startedByBoard;
    if (startedByBoard_ && callerKnown_) {
        endWithLine("The game cannot be started. Please tell the operator.", startupFailed);
    }
    leaveTimeToRead(startupFailed);
    restoreTerminal();
    _exit(startupFailed.status);
}

void Session::sendLast() {
    output.resetColour();
    connection_.write(output.take());
}

// Waits for a key before the process ends: boards clear the screen the moment their door is gone.
// Keys that were typed before the line was there are dropped.
void Session::leaveTimeToRead(const Ending& ending) {
    if (!startedByBoard_) {
        return;
    }
    const Milliseconds giveUp = presentMoment() + lastLineStays;
    endAfter(lastLineStays + overtime, ending);
    makeTerminalRaw(STDIN_FILENO);
    std::string keys;
    while (connection_.read(keys, 0) == Connection::Event::bytes) {
    }
    Connection::Event event = Connection::Event::nothing;
    Milliseconds now = 0;
    while (event == Connection::Event::nothing && !sessionSignalled() &&
           (now = presentMoment()) < giveUp) {
        event = connection_.read(keys, giveUp - now);
    }
}

void Session::endForLostCaller() {
    logEnd(connectionLost.words);
    output.take();
    output.resetColour();
    connection_.writeAtParting(output.take());
    restoreTerminal();
    _exit(connectionLost.status);
}

} // namespace odoors
