/// Runs the tool with our standard input, error and terminal, and hands on what it prints.
#pragma once

#include "verdict/reading.h"

/// How the tool ended.
struct ending {
    int error;   // it could not be started: why, as errno has it; 0 = it ran
    int status;  // as waitpid has it
};

/// A signal that is sent to us meanwhile, as by a service manager, is handed on to the tool; one from the terminal's
/// keys goes to both, and is for the tool.
///   program  a path, or a name to be looked for where programs are
///   words    the first is the tool's own name
///   copy_to  the descriptor that the tool's text goes to, as it comes; that it cannot be written changes nothing
ending run_tool(const char *program, char *const *words, int copy_to, reading &said);
