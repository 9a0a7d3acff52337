#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "clock.h"
#include "telnet.h"

namespace odoors {

// The way to the caller: a descriptor to read from and one to write to. Neither is ever changed;
// they may be pipes, terminals or files, may be shared and may be nonblocking.
class Connection {
public:
    // The caller is at standard input and output.
    Connection() = default;

    // The caller has a telnet program at the other end of the socket.
    explicit Connection(int socket)
        : input_(socket), output_(socket), telnet_(std::make_unique<Telnet>()) {}

    enum class Event { bytes, nothing, lost };

    // Waits at most that long for input and appends it to bytes. A signal ends the wait early, with
    // nothing.
    Event read(std::string& bytes, Milliseconds timeout);

    // Sends all of it, in one write when the system takes it so; false when the caller is gone.
    bool write(std::string_view bytes);

    // Sends what the caller takes within half a second; a failure does not matter.
    void writeAtParting(std::string_view bytes);

    // Whether the caller is gone or has no more to send.
    bool lost() const { return lost_; }

    // Whether there is a terminal to be asked what it is: here, or behind a socket.
    bool isInteractive() const;

private:
    Event markLost() {
        lost_ = true;
        return Event::lost;
    }
    Event receive(std::string_view fromLine, std::string& bytes);
    bool writeRaw(std::string_view bytes);
    bool outputIsApart();

    int input_ = 0;
    int output_ = 1;
    std::optional<bool> outputIsApart_; // none: not known yet
    std::unique_ptr<Telnet> telnet_;    // none: not a telnet line
    bool lost_ = false;
};

} // namespace odoors
