#pragma once

#include <memory>
#include <string>
#include <string_view>

struct telnet_t;

namespace odoors {

// The telnet protocol on the caller's line. Commands and negotiation never reach the session. At
// the start it offers what makes a telnet program send every key at once, unechoed, and all 256
// bytes unchanged; it declines whatever else the other end proposes.
class Telnet {
public:
    Telnet();
    Telnet(const Telnet&) = delete;
    Telnet& operator=(const Telnet&) = delete;

    // Decodes bytes from the line, which may be cut anywhere, and appends what was typed to keys.
    void receive(std::string_view fromLine, std::string& keys);

    // Encodes the text for the line.
    void send(std::string_view text);

    // Removes and returns the bytes to be sent over the line: offers, answers and texts.
    std::string drainOutgoing();

    // What the protocol has produced and has not been fetched.
    struct Pending {
        std::string keys;
        std::string outgoing;
    };

private:
    Pending pending_;
    std::unique_ptr<telnet_t, void (*)(telnet_t*)> protocol_;
};

} // namespace odoors
