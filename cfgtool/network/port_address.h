/// The controller's own network addresses, on two ports: ipaddr, ipaddr6, gateway and gateway6 of each.
#pragma once

#include "ui/invocation.h"

#include <cstdint>

struct lan_port {
    const char *target;  // as in the usage texts
    uint8_t channel;     // of the requests; the bracket around them is always channel 1's
    const char *log_word;
};
inline constexpr lan_port eth0 = {"eth0", 1, "Mgmt Eth"};    // the management port
inline constexpr lan_port eth1 = {"eth1", 2, "shared Eth"};  // the port shared with the host

/// A command_handler with the port in front. The registry's row binds it: on_port<ipaddr, eth0>.
using port_command = int(const lan_port &port, const invocation &typed);

/// -v ADDRESS MASK, or -v dhcp|static.
port_command ipaddr;
/// -v ADDRESS/PREFIX, or -v dhcp|static.
port_command ipaddr6;
/// -v ADDRESS, in any form that inet_aton takes.
port_command gateway;
/// -v ADDRESS. A text that is no IPv6 address counts as the all-zero one.
port_command gateway6;

template <port_command &command, const lan_port &port>
int on_port(const invocation &typed)
{
    return command(port, typed);
}
