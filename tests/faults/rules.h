/// What holds after every run, whatever went wrong in it.
#pragma once

#include "tests/faults/platform.h"

#include <string>

/// A run with a fault, beside the same run without one.
struct judged {
    const conversation &said;
    const fault_at &at;
    const record &usual, &run;
    const std::string &root;  // of the controller's folders
};

/// In words: the first rule that does not hold, or null.
const char *broken_rule(const judged &one);

/// What a run shows from a step on.
std::string shown_from(const record &run, size_t place);
