/// How a command tells of a fault.
#pragma once

#include "tests/faults/rules.h"

/// Whether the fault of this run, which was reached, is told as the commands' rules have it.
bool tells(const judged &one);

/// Whether a success is shown or recorded behind the call that failed, and the command's rules do not have it so.
bool tells_success(const judged &one, std::string_view failed_call);
