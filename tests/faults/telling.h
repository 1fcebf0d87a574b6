/// How a command tells of a fault.
#pragma once

#include "tests/faults/rules.h"

/// Whether the fault of this run, which was reached, is told as the commands' rules have it.
bool tells(const judged &one);
