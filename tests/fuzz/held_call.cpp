// The session is the toolkit's own: only the line to the caller, the clock and the process's end
// are replaced.
#include "clock.h"
#include "connection.h"
#include "fuzz.h"
#include "restart.h"
#include "terminal.h"
#include "text.h"

#include <algorithm>

#include <sys/socket.h>

#include "OpenDoor.h"

namespace fuzz {
namespace {

struct CallEnded {};

constexpr std::time_t begin = 1794744000; // 15 November 2026, 12:00 UTC
odoors::Milliseconds milliseconds = 0; // since then; they go by only while the caller is waited for
Call call{};

// Of control bytes the toolkit sends line ends, backspaces, form feeds, a warning's bell, and the
// sequences that clear, move, colour and ask; everything that the texts of others hold is kept from
// the caller.
void inspect(std::string_view shown) {
    for (std::size_t i = 0; call.trusted && i < shown.size(); ++i) {
        require(shown[i] != '\a' || shown.substr(i + 1).starts_with("The call ends in "));
        require(!odoors::isControl(shown[i]) || shown[i] == '\a' ||
                std::string_view("\r\n\b\f\033").find(shown[i]) < 5);
        if (shown[i] == '\033') {
            i = shown.find_first_not_of("[0123456789;", i + 1);
            require(i < shown.size() && std::string_view("JHmn").find(shown[i]) < 4);
        }
    }
}

} // namespace

void hold(const Call& next, const std::function<void()>& door) {
    call = next;
    milliseconds = 0;
    odoors::readClock = [](clockid_t, timespec* now) {
        *now = {static_cast<std::time_t>(begin + milliseconds / 1000),
                static_cast<long>(milliseconds % 1000 * 1'000'000)};
        return 0;
    };
    odoors::Options options;
    options.local = !call.telnet;
    options.userName = call.name;
    options.minutesLeft = call.hurried ? 7 : 60;
    if (!call.measured) {
        options.charset = call.utf8 ? odoors::Charset::utf8 : odoors::Charset::cp437;
    }
    if (call.ansi || !call.telnet) {
        options.ansi = call.ansi;
    }
    if (call.telnet) {
        static const int unconnected = socket(AF_UNIX, SOCK_STREAM, 0);
        options.handle = unconnected;
    }
    odoors::restart(options);
    try {
        od_init();
        door();
    } catch (const CallEnded&) {
    }
}

} // namespace fuzz

using fuzz::call;

// Both are linked in the place of the real ones.
extern "C" void __wrap_od_exit(int, int) { throw fuzz::CallEnded(); }
extern "C" void __wrap__exit(int) { throw fuzz::CallEnded(); }

namespace odoors {

void makeTerminalRaw(int) {}
void restoreTerminal() {}
void watchSignals() {}
void endAfter(Milliseconds, const Ending&) {}
bool sessionSignalled() { return false; }

Connection::Event Connection::read(std::string& bytes, Milliseconds timeout) {
    if (call.keys.empty()) {
        return markLost();
    }
    if (call.slow && (timeout == 0 || call.keys.front() == 0)) {
        fuzz::take(call.keys, timeout == 0 ? 0 : 1);
        fuzz::milliseconds += std::clamp<Milliseconds>(timeout, 0, 60'000);
        return Event::nothing;
    }
    const std::string_view typed = fuzz::take(call.keys, call.slow ? 1 : 4096);
    const std::size_t before = bytes.size();
    if (telnet_) {
        telnet_->receive(typed, bytes);
    } else {
        bytes += typed;
    }
    return bytes.size() > before ? Event::bytes : Event::nothing;
}

bool Connection::write(std::string_view bytes) {
    fuzz::inspect(bytes);
    if (telnet_) {
        telnet_->send(bytes);
        telnet_->drainOutgoing();
    }
    return true;
}

void Connection::writeAtParting(std::string_view bytes) { write(bytes); }

bool Connection::isInteractive() const { return true; }

} // namespace odoors
