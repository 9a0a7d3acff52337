#include "terminal.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>

#include <sys/time.h>
#include <termios.h>
#include <unistd.h>

namespace odoors {

namespace {

constexpr std::array endingSignals{SIGHUP, SIGINT, SIGQUIT, SIGTERM};
constexpr std::array crashSignals{SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGXCPU};

// A signal that comes just before a blocking call would not break it, so it is repeated a few
// times; a process that has not ended then is stuck.
constexpr suseconds_t repeatMicroseconds = 100'000;
constexpr int repeats = 5;

termios found{};
volatile std::sig_atomic_t rawDescriptor = -1;
volatile std::sig_atomic_t signalsSeen = 0;
Ending overdueEnding{};

// For handlers: the program is stuck.
[[noreturn]] void endHere(const Ending& ending) {
    logEnd(ending.words);
    restoreTerminal();
    _exit(ending.status);
}

void onEndingSignal(int) {
    // Each time: an endAfter() that was on its way may have put the clock ahead again.
    const itimerval repeat{{0, 0}, {0, repeatMicroseconds}};
    setitimer(ITIMER_REAL, &repeat, nullptr);
    signalsSeen = signalsSeen + 1;
    if (signalsSeen > repeats) {
        endHere(connectionLost);
    }
}

void onAlarm(int signal) {
    if (signalsSeen == 0 && overdueEnding.status != 0) {
        endHere(overdueEnding);
    }
    onEndingSignal(signal);
}

// The terminal must not stay raw behind a program that failed.
void onCrash(int signal) {
    logEnd("crashed");
    restoreTerminal();
    raise(signal);
}

void handle(int signal, void (*handler)(int), int flags) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

} // namespace

void makeTerminalRaw(int descriptor) {
    if (rawDescriptor >= 0 || tcgetattr(descriptor, &found) != 0) {
        return;
    }
    termios raw = found;
    cfmakeraw(&raw);
    raw.c_iflag &= ~static_cast<tcflag_t>(IXOFF);
    rawDescriptor = descriptor;
    std::atexit(restoreTerminal);
    tcsetattr(descriptor, TCSANOW, &raw);
}

void restoreTerminal() {
    const int descriptor = rawDescriptor;
    if (descriptor < 0) {
        return;
    }
    rawDescriptor = -1;
    // A process in the background would be stopped here rather than end.
    handle(SIGTTOU, SIG_IGN, 0);
    tcsetattr(descriptor, TCSANOW, &found);
}

void watchSignals() {
    sigset_t unblocked;
    sigemptyset(&unblocked);
    sigaddset(&unblocked, SIGALRM);
    handle(SIGALRM, onAlarm, 0);
    for (const int signal : endingSignals) {
        handle(signal, onEndingSignal, 0);
        sigaddset(&unblocked, signal);
    }
    sigprocmask(SIG_UNBLOCK, &unblocked, nullptr);
    for (const int signal : crashSignals) {
        struct sigaction present {};
        sigaction(signal, nullptr, &present);
        if (present.sa_handler == SIG_DFL) {
            handle(signal, onCrash, static_cast<int>(SA_RESETHAND));
        }
    }
    handle(SIGTSTP, SIG_IGN, 0);
    handle(SIGPIPE, SIG_IGN, 0);
    handle(SIGXFSZ, SIG_IGN, 0); // a write that meets the limit fails
}

bool sessionSignalled() { return signalsSeen > 0; }

void endAfter(Milliseconds span, const Ending& ending) {
    if (signalsSeen > 0) {
        return;
    }
    overdueEnding = ending;
    itimerval once{};
    if (span != never) {
        span = std::max<Milliseconds>(span, 1);
        once.it_value.tv_sec = static_cast<time_t>(span / 1000);
        once.it_value.tv_usec = static_cast<suseconds_t>(span % 1000 * 1000);
    }
    setitimer(ITIMER_REAL, &once, nullptr);
}

} // namespace odoors
