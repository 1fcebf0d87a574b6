/// Which way the controller's network traffic takes.
#pragma once

#include "ui/invocation.h"

/// -v 1|2|3: dedicated, shared with the host, adaptive.
command_handler eth0_mode;
/// -v port1 ... port4: the port of the host's network card that carries the shared traffic.
command_handler eth0_sideband;
/// -v off, or -v ID.
command_handler eth0_vlan;
/// -v enabled|disabled: the port shared with the host.
command_handler eth1_state;
