/// The command line: options, usage and listings, and the call of one handler.
#pragma once

#include <cstdint>

/// Parses the command line and runs at most one command.
void run_command_line(int argc, char **argv);

/// The command itself: `dataitem` with its arguments. `targets_seen` is 0 for a top-level dataitem.
void dispatch(uint8_t targets_seen, const char *target, const char *dataitem, uint8_t count, char **arguments);
