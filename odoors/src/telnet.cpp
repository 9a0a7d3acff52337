#include "telnet.h"

#include <array>
#include <new>
#include <utility>

#include <libtelnet.h>

namespace odoors {

namespace {

constexpr std::array<telnet_telopt_t, 4> options{{{TELNET_TELOPT_ECHO, TELNET_WILL, TELNET_DONT},
                                                  {TELNET_TELOPT_SGA, TELNET_WILL, TELNET_DO},
                                                  {TELNET_TELOPT_BINARY, TELNET_WILL, TELNET_DO},
                                                  {-1, 0, 0}}};

void onEvent(telnet_t*, telnet_event_t* event, void* user) {
    Telnet::Pending& pending = *static_cast<Telnet::Pending*>(user);
    if (event->type == TELNET_EV_DATA) {
        pending.keys.append(event->data.buffer, event->data.size);
    } else if (event->type == TELNET_EV_SEND) {
        pending.outgoing.append(event->data.buffer, event->data.size);
    }
}

} // namespace

Telnet::Telnet() : protocol_(telnet_init(options.data(), onEvent, 0, &pending_), telnet_free) {
    if (!protocol_) {
        throw std::bad_alloc();
    }
    telnet_t* protocol = protocol_.get();
    telnet_negotiate(protocol, TELNET_WILL, TELNET_TELOPT_ECHO);
    telnet_negotiate(protocol, TELNET_WILL, TELNET_TELOPT_SGA);
    telnet_negotiate(protocol, TELNET_DO, TELNET_TELOPT_SGA);
    telnet_negotiate(protocol, TELNET_WILL, TELNET_TELOPT_BINARY);
    telnet_negotiate(protocol, TELNET_DO, TELNET_TELOPT_BINARY);
}

void Telnet::receive(std::string_view fromLine, std::string& keys) {
    telnet_recv(protocol_.get(), fromLine.data(), fromLine.size());
    keys += std::exchange(pending_.keys, {});
}

void Telnet::send(std::string_view text) { telnet_send(protocol_.get(), text.data(), text.size()); }

std::string Telnet::drainOutgoing() { return std::exchange(pending_.outgoing, {}); }

} // namespace odoors
