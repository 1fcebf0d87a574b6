/// The controller's clock: the time of the System Event Log and its offset from UTC.
#pragma once

#include "ui/invocation.h"

/// -v YYYY-MM-DD HH:MM:SS [ZONE], ZONE in whole hours, -12 to 13.
command_handler ipmctime;
/// -v [+|-]H:MM
command_handler timezone_command;
