#include "connection.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "terminal.h"

namespace odoors {

namespace {

constexpr std::size_t chunk = 4096;
constexpr int noTimeout = -1; // to poll
constexpr int unwatched = -1; // to poll: not to be watched

// Whether a failed read or write is worth another try.
bool isTransient(int error) { return error == EINTR || error == EAGAIN || error == EWOULDBLOCK; }

} // namespace

Connection::Event Connection::read(std::string& bytes, Milliseconds timeout) {
    if (lost_) {
        return Event::lost;
    }
    std::array<pollfd, 2> ends{
        {{input_, POLLIN, 0}, {outputIsApart() ? output_ : unwatched, 0, 0}}};
    constexpr Milliseconds longest = std::numeric_limits<int>::max();
    const int wait =
        timeout > longest ? noTimeout : static_cast<int>(std::max<Milliseconds>(timeout, 0));
    if (poll(ends.data(), ends.size(), wait) < 0) {
        return errno == EINTR ? Event::nothing : markLost();
    }
    if (ends[0].revents != 0) {
        std::array<char, chunk> buffer;
        const ssize_t count = ::read(input_, buffer.data(), buffer.size());
        if (count > 0) {
            return receive({buffer.data(), static_cast<std::size_t>(count)}, bytes);
        }
        return count < 0 && isTransient(errno) ? Event::nothing : markLost();
    }
    return (ends[1].revents & (POLLERR | POLLHUP | POLLNVAL)) != 0 ? markLost() : Event::nothing;
}

// A caller may go away from the output without closing the input: then it must be watched too. A
// terminal or a socket tells of it at the input, and need not be watched twice.
bool Connection::outputIsApart() {
    if (!outputIsApart_) {
        struct stat input {};
        struct stat output {};
        const bool known = fstat(input_, &input) == 0 && fstat(output_, &output) == 0;
        outputIsApart_ = !known || input.st_dev != output.st_dev || input.st_ino != output.st_ino;
    }
    return *outputIsApart_;
}

Connection::Event Connection::receive(std::string_view fromLine, std::string& bytes) {
    if (!telnet_) {
        bytes += fromLine;
        return Event::bytes;
    }
    const std::size_t before = bytes.size();
    telnet_->receive(fromLine, bytes);
    writeRaw(telnet_->drainOutgoing());
    return bytes.size() > before ? Event::bytes : lost_ ? Event::lost : Event::nothing;
}

bool Connection::write(std::string_view bytes) {
    if (!telnet_) {
        return writeRaw(bytes);
    }
    telnet_->send(bytes);
    return writeRaw(telnet_->drainOutgoing());
}

bool Connection::writeRaw(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(output_, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (sessionSignalled() || !isTransient(errno)) {
            lost_ = true;
            return false;
        } else if (errno != EINTR) {
            pollfd end{output_, POLLOUT, 0};
            poll(&end, 1, -1);
        }
    }
    return true;
}

void Connection::writeAtParting(std::string_view bytes) {
    pollfd end{output_, POLLOUT, 0};
    // A caller who still reads gets the colour back; one who is gone answers the poll at once.
    constexpr int longestParting = 500;
    if (!bytes.empty() && poll(&end, 1, longestParting) == 1 && (end.revents & POLLOUT) != 0) {
        [[maybe_unused]] const ssize_t count = ::write(output_, bytes.data(), bytes.size());
    }
}

bool Connection::isInteractive() const {
    return telnet_ || (isatty(input_) == 1 && isatty(output_) == 1);
}

} // namespace odoors
