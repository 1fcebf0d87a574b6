/// A command as it was typed, and the type of the routine that runs it.
#pragma once

#include <cstdint>

struct invocation {
    uint8_t level;       // the privilege that the command requires
    uint8_t count;       // of the arguments, reduced to 8 bits
    char **arguments;    // what follows the dataitem, normally "-v" first; ends with a null pointer
    const char *target;  // what was typed after -t, perhaps only a prefix of the target's name; null at top level

    /// Exactly "-v" and `values` arguments after it.
    bool has_values(unsigned values) const;
    /// The argument after "-v" that has this number, from 0; it must be there.
    const char *value(unsigned number) const { return arguments[1 + number]; }
};

/// Runs one command.
///   returns  1 = success, 0 = failure
using command_handler = int(const invocation &typed);

/// The dataitem of the running command, as typed; the privilege gate may append to it. Kept as a record, read by
/// nobody.
extern char current_command[128];
