#ifndef ODOORS_CONNECTION_H
#define ODOORS_CONNECTION_H

#include <string>
#include <string_view>

#include "clock.h"

namespace odoors {

// The way to the caller: a descriptor to read from and one to write to. Neither is ever changed;
// they may be pipes, terminals or files, may be shared and may be nonblocking.
class Connection {
public:
    Connection() = default;
    Connection(int input, int output) : input_(input), output_(output) {}

    enum class Event { bytes, nothing, lost };

    // Waits at most that long until the caller has sent something and adds what is there to bytes.
    // A signal ends the wait early, with nothing.
    Event read(std::string& bytes, Milliseconds patience);

    // Sends all of it, in one write when the system takes it so; false when the caller is gone.
    bool write(std::string_view bytes);

    // Sends what the caller can take without a wait; whether he got it does not matter.
    void writeAtParting(std::string_view bytes) const;

    // Whether the caller is gone or has no more to send.
    bool lost() const { return lost_; }

    // Whether there is a terminal at both ends, which can be asked what it is.
    bool isTerminal() const;

private:
    Event lose();

    int input_ = 0;
    int output_ = 1;
    bool lost_ = false;
};

} // namespace odoors

#endif
