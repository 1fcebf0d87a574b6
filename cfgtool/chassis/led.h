/// The LEDs of FRU 0.
#pragma once

#include "ui/invocation.h"

/// -v LEDNAME OPTION [VALUE...]: off, on, blink, lamptest or localcontrol. Nothing of it is logged.
command_handler ledstate;
