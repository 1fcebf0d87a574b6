/// The host, FRU 0: power, reset, and how long a graceful power-off may take. Each is registered at top level and under
/// fru0 and does the same in both places.
#pragma once

#include "ui/invocation.h"

/// -v 0|1|2: power off gracefully, on, off by force.
command_handler powerstate;
/// -v 0|2: cold reset, graceful reboot.
command_handler frucontrol;
/// -v SECONDS: 0, or 10 to 6540.
command_handler shutdowntimeout;
