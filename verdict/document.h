/// The one JSON document of a run.
#pragma once

#include "verdict/status.h"

#include <cstdio>

struct finished_run {
    char *const *words;  // the command line, without the tool
    verdict result;
    int signal;  // that ended the tool, 0 for none
};

void print_document(FILE *out, const finished_run &run, const status_reader &said);
