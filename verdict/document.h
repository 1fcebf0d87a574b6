/// The one JSON document of a run.
#pragma once

#include "verdict/reading.h"

#include <cstdio>

struct finished_run {
    char *const *words;    // the command line, without the tool
    const command *which;  // null: not known
    verdict result;
    int signal;  // that ended the tool, 0 for none
};

void print_document(FILE *out, const finished_run &run, const reading &said);
