/// Fan mode and fan level.
#pragma once

#include "ui/invocation.h"

/// -v MODE [TIMEOUT]: 0 = automatic, 1 = manual for TIMEOUT seconds (30 when not given).
command_handler fanmode;
/// -v PERCENT: the manual fan level, from the board's minimum to 100.
command_handler fanlevel;
