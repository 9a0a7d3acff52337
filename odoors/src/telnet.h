#ifndef ODOORS_TELNET_H
#define ODOORS_TELNET_H

#include <memory>
#include <string>
#include <string_view>

struct telnet_t;

namespace odoors {

// The telnet protocol on the caller's line: what his program and ours say to each other goes under
// it, byte for byte. Commands and negotiation never reach the session. Offered at once is what
// makes a telnet program send every key by itself, unechoed, and all 256 bytes as they are;
// whatever else the other end proposes is declined.
class Telnet {
public:
    Telnet();
    Telnet(const Telnet&) = delete;
    Telnet& operator=(const Telnet&) = delete;
    ~Telnet();

    // Adds what the caller typed to keys, out of bytes from the line that may be cut anywhere.
    void receive(std::string_view fromLine, std::string& keys);

    // Has the text sent over the line.
    void send(std::string_view text);

    // The bytes that are to go over the line: offers, answers and texts. Nothing is left.
    std::string drainOutgoing();

    // What the protocol has produced and nobody has fetched yet.
    struct Pending {
        std::string keys;
        std::string outgoing;
    };

private:
    Pending pending_;
    std::unique_ptr<telnet_t, void (*)(telnet_t*)> protocol_;
};

} // namespace odoors

#endif
