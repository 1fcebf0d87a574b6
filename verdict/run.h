/// Runs the tool on our screen, reads its status descriptor and answers what it asks.
#pragma once

#include "verdict/status.h"

/// How the run is to go.
struct orders {
    const char *program;       // a path, or a name to be looked for where programs are
    char *const *words;        // the first is the tool's own name
    int screen;                // the descriptor that the tool prints on
    bool answers_yes = false;  // to every question
    int secrets = -1;          // the descriptor with the hidden words, one a line; -1 = none
    unsigned timeout_s = 0;    // 0 = none
};

/// How the tool ended.
struct ending {
    int error;        // it could not be started: why, as errno has it; 0 = it ran
    int status;       // as waitpid has it
    bool timed_out;   // it was told to end, and ended by that
    const char *why;  // what was wrong with a hidden word, null = nothing
};

/// The tool has our standard input where that is a terminal and nothing is ordered to be answered. Otherwise questions
/// are answered as ordered (with no, when nothing is), hidden words come from `secrets`, and where there is none left
/// the tool's input ends. A signal that is sent to us meanwhile, as by a service manager, is handed on to the tool; one
/// from the terminal's keys goes to both and is for the tool.
ending run_tool(const orders &given, status_reader &said);
