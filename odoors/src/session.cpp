#include "session.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "startup_error.h"
#include "terminal.h"
#include "text.h"

namespace odoors {

namespace {

// A terminal sends an escape sequence at once; a caller cannot type that fast.
constexpr Milliseconds escapeSettlesAfter = 50;

// How long a caller may take to be told why his session ends.
constexpr Milliseconds overtime = 500;

// How long he may then take to read it.
constexpr Milliseconds lastLineStays = 3 * perSecond;

// How long the caller gets to read a text before it is cleared.
constexpr Milliseconds perCharacterRead = 25;
constexpr Milliseconds defaultPause = 2 * perSecond;

// A caller who has typed nothing for too long is warned so long before the end, but not when that
// is more than half of the time.
constexpr Milliseconds lastChance = 60 * perSecond;

constexpr Milliseconds longestDetection = perSecond;
constexpr std::string_view askCursorPosition = "\033[6n";
constexpr std::string_view farCorner = "\033[255;255H";
constexpr int fullWidth = 80;

// One column wide in UTF-8, of any ambiguity; two characters in any other character set.
constexpr std::string_view twoByteCharacter = "\xc3\xb6";
constexpr std::string_view twoBlanks = "  ";

// The column in a report of the cursor's position.
int columnIn(std::string_view report) {
    const std::size_t middle = report.find(';');
    const std::string_view number = report.substr(middle + 1, report.size() - middle - 2);
    return static_cast<int>(std::min<std::int64_t>(readNumber(number).value_or(0), 9999));
}

} // namespace

// The order matters: the caller is connected before anything can go wrong of which he must be told.
// It costs a few system calls; nothing is sent.
void Session::open(const Caller& caller, const std::optional<std::string>& lockFile) {
    connect(caller);
    startClock(caller);
    if (lockFile) {
        acquireCallerLock(*lockFile);
    }
    makeTerminalRaw(STDIN_FILENO);
    endIfSignalled();
}

void Session::connect(const Caller& caller) {
    if (caller.socket) {
        connection_ = Connection(*caller.socket);
    }
    callerKnown_ = true;
    startedByBoard_ = caller.startedByBoard;
    ansiFlag_ = caller.ansi.value_or(false) ? 1 : 0;
    const bool interactive = connection_.isInteractive();
    asksForAnsi_ = interactive && !caller.ansi;
    asksForCharset_ = interactive && caller.charsetGuessed;
    longestPause_ = caller.longestPause.value_or(interactive ? defaultPause : 0);
    output.setCharset(caller.charset);
    keys_.setCharset(caller.charset);
}

void Session::startClock(const Caller& caller) {
    if (caller.inactivitySeconds > 0) {
        longestWait_ = caller.inactivitySeconds * perSecond;
    }
    limit_ = TimeLimit(monotonicNow(), caller.secondsLeft, caller.timed);
    endWhenTimeIsUsedUp();
}

// Also when the program is stuck then.
void Session::endWhenTimeIsUsedUp() {
    if (limit_.end() == never) {
        endAfter(never, timeUsedUp);
    } else {
        endAfter(limit_.end() - monotonicNow() + overtime, timeUsedUp);
    }
}

// The file stays open, and the lock is held, as long as the process lives.
void Session::acquireCallerLock(const std::string& lockFile) {
    const int descriptor = ::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor >= 0 && flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        return;
    }
    if (errno == EWOULDBLOCK) {
        endWithLine("Another caller is inside. Please try again later.", otherCaller);
    }
    throw StartupError{lockFile + ": cannot be locked: " + std::strerror(errno)};
}

void Session::endIfSignalled() {
    if (sessionSignalled()) {
        endForLostCaller();
    }
}

void Session::detectTerminal() {
    asksForAnsi_ = asksForAnsi_ && ansiFlag_ != 1;
    if (!asksForAnsi_ && !(asksForCharset_ && ansiFlag_ == 1)) {
        return;
    }
    const bool answers = askCursorReports(askCursorPosition, 1);
    if (answers) {
        measureTerminal();
    }
    ansiFlag_ = answers || !asksForAnsi_ ? 1 : 0;
    asksForAnsi_ = asksForCharset_ = false; // once is enough
}

// Asks where the cursor is behind a character that is wider unless the terminal shows UTF-8, and in
// the far corner. The same write takes the character off and the cursor back to where it was.
void Session::measureTerminal() {
    const std::string here = keys_.cursorReports().front();
    const std::string back = "\033" + here.substr(0, here.size() - 1) + 'H';
    std::string question(farCorner);
    question.append(askCursorPosition).append(back);
    if (asksForCharset_) {
        question.insert(0, askCursorPosition).insert(0, twoByteCharacter);
        question.append(twoBlanks).append(back);
    }
    if (!askCursorReports(question, asksForCharset_ ? 2 : 1)) {
        return;
    }
    const int start = columnIn(here);
    const int width = columnIn(keys_.cursorReports().back());
    narrow_ = start < width && width < fullWidth;
    const int shown = columnIn(keys_.cursorReports()[1]) - start;
    if (asksForCharset_ && start + 1 < width && (shown == 1 || shown == 2)) {
        const Charset charset = shown == 1 ? Charset::utf8 : Charset::cp437;
        output.setCharset(charset);
        keys_.setCharset(charset);
    }
}

// Asks for so many more reports of the cursor's position; whether all have come in time.
bool Session::askCursorReports(std::string_view question, std::size_t count) {
    const std::vector<std::string>& reports = keys_.cursorReports();
    const std::size_t all = reports.size() + count;
    keys_.expectCursorReports(count);
    output.control(question);
    flushUnread();
    receiveUntil([&] { return reports.size() >= all; }, monotonicNow() + longestDetection);
    return reports.size() >= all;
}

void Session::clearScreen() {
    if (ansiFlag_ == 1) {
        pauseForReader();
    }
    output.clear();
}

void Session::pauseForReader() {
    const Milliseconds pause = std::min(output.unread() * perCharacterRead, longestPause_);
    if (pause > 0 && typedAhead().code == 0) {
        flushUnread();
        receiveUntil([&] { return keys_.peek().code != 0 || keys_.escapePending(); },
                     std::min(monotonicNow() + pause, limit_.end()));
    }
}

Key Session::typedAhead() {
    if (keys_.peek().code == 0) {
        receive(0);
    }
    return keys_.peek();
}

Key Session::nextKey(bool wait) {
    checkTime(monotonicNow());
    wait ? flush() : flushUnread();
    const Milliseconds start = monotonicNow();
    const Milliseconds giveUp = longestWait_ < never - start ? start + longestWait_ : never;
    Milliseconds warning = longestWait_ < 2 * lastChance ? never : giveUp - lastChance;
    for (;;) {
        endIfSignalled();
        if (const Key key = keys_.pop(); key.code != 0) {
            output.markRead();
            return key;
        }
        if (connection_.lost()) {
            endForLostCaller();
        }
        const Milliseconds now = monotonicNow();
        if (now >= giveUp) {
            endWithLine("No key was pressed for too long. Goodbye.", nothingTyped);
        }
        if (checkTime(now) || (wait && repeatNotice())) {
            continue; // a key may have come
        }
        if (now >= warning) {
            warning = never;
            warn("\aThe call ends in 60 seconds unless you press a key.");
            continue;
        }
        const Milliseconds until =
            std::min({giveUp, warning, limit_.end(), limit_.nextWarning(), escapeSettles_});
        if (!receive(wait ? until - now : 0) && !wait) {
            return {};
        }
    }
}

// Reads what the caller has sent, waiting at most that long; false when no key can have come of it.
bool Session::receive(Milliseconds timeout) {
    std::string bytes;
    switch (connection_.read(bytes, timeout)) {
    case Connection::Event::bytes:
        keys_.feed(bytes);
        escapeSettles_ = keys_.escapePending() ? monotonicNow() + escapeSettlesAfter : never;
        return true;
    case Connection::Event::lost:
        keys_.settleEscape();
        escapeSettles_ = never;
        return true;
    case Connection::Event::nothing:
        break;
    }
    if (monotonicNow() < escapeSettles_) {
        return false;
    }
    keys_.settleEscape();
    escapeSettles_ = never;
    return true;
}

// Receives until the condition holds, the moment has come, or the session has to end.
template <typename Condition>
void Session::receiveUntil(Condition holds, Milliseconds giveUp) {
    Milliseconds now = 0;
    while (!holds() && !connection_.lost() && !sessionSignalled() &&
           (now = monotonicNow()) < giveUp) {
        receive(giveUp - now);
    }
}

// Whether the caller has been warned.
bool Session::checkTime(Milliseconds now) {
    if (now >= limit_.end()) {
        endWithLine("Your time is used up.", timeUsedUp);
    }
    const int minutes = limit_.popWarning(now);
    if (minutes > 0) {
        const std::string number = std::to_string(minutes);
        warn("You have at most " + number + (minutes == 1 ? " minute" : " minutes") + " left.");
    }
    return minutes > 0;
}

// Shows the notice again that keys typed ahead may have wiped, unless there are more of them;
// false when there is none.
bool Session::repeatNotice() {
    if (unseenNotice_.empty()) {
        return false;
    }
    if (typedAhead().code == 0) {
        warn(std::exchange(unseenNotice_, {}));
    }
    return true;
}

void Session::warn(const std::string& notice) {
    if (typedAhead().code != 0) {
        unseenNotice_ = notice;
    }
    output.showLine(notice, typingLine_);
    flushUnread();
}

// A caller who reads no more ends the call as one who types no more.
void Session::flush() {
    const std::string bytes = output.drain();
    const bool watched = !bytes.empty() && longestWait_ < limit_.end() - monotonicNow();
    if (watched) {
        endAfter(longestWait_, nothingTyped);
    }
    const bool isSent = !sessionSignalled() && connection_.write(bytes);
    if (watched) {
        endWhenTimeIsUsedUp();
    }
    if (!isSent) {
        endForLostCaller();
    }
}

// Sends what the caller need not have read when the program goes on.
void Session::flushUnread() {
    output.unread();
    flush();
}

void Session::finish(int status) {
    const std::string words =
        status == 0 ? "quit (0)" : "ended by the program (" + std::to_string(status) + ')';
    logEnd(words);
    sendLast();
    if (status != 0) {
        waitForReader({status, words});
    }
    restoreTerminal();
    std::exit(status);
}

// The program's own endings must not run once the session has ended by itself: hence _exit.
void Session::endWithLine(std::string_view line, const Ending& ending) {
    logEnd(ending.words);
    output.showLine(line, false);
    endAfter(overtime, ending);
    sendLast();
    waitForReader(ending);
    restoreTerminal();
    _exit(ending.status);
}

void Session::endAtStart(bool startedByBoard) {
    endIfSignalled();
    if (!callerKnown_) {
        startedByBoard_ = startedByBoard;
    } else if (startedByBoard_) {
        endWithLine("The game cannot be started. Please tell the operator.", startupFailed);
    }
    waitForReader(startupFailed);
    restoreTerminal();
    _exit(startupFailed.status);
}

void Session::sendLast() {
    output.resetColour();
    connection_.write(output.drain());
}

// Waits for a key before the process ends: boards clear the screen the moment their door is gone.
// Keys that were typed before the line was there are dropped.
void Session::waitForReader(const Ending& ending) {
    if (!startedByBoard_) {
        return;
    }
    const Milliseconds giveUp = monotonicNow() + lastLineStays;
    endAfter(lastLineStays + overtime, ending);
    makeTerminalRaw(STDIN_FILENO);
    std::string keys;
    while (connection_.read(keys, 0) == Connection::Event::bytes) {
    }
    Connection::Event event = Connection::Event::nothing;
    Milliseconds now = 0;
    while (event == Connection::Event::nothing && !sessionSignalled() &&
           (now = monotonicNow()) < giveUp) {
        event = connection_.read(keys, giveUp - now);
    }
}

void Session::endForLostCaller() {
    logEnd(connectionLost.words);
    const bool inLine = !output.drain().empty() || output.isInLine();
    output.resetColour();
    if (inLine && sessionSignalled()) { // whoever sent the signal may be at this terminal
        output.control("\r\n");
    }
    connection_.writeAtParting(output.drain());
    restoreTerminal();
    _exit(connectionLost.status);
}

} // namespace odoors
