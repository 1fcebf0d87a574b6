/// Starting afresh: the controller itself, and its System Event Log.
#pragma once

#include "ui/invocation.h"

/// No words: cold-resets the management controller.
command_handler reset;
/// -v clear: empties the System Event Log. At top level and under fru0.
command_handler sel;
