/// Programs run from here: never through a shell, and with nothing but what they are given.
#pragma once

#include <spawn.h>

/// What programs get for an environment that shall not depend on the caller's. The list ends in null.
extern char *const plain_environment[];

/// Runs a program and waits for it, however often a signal comes.
///   set_up   descriptors and folder it starts with; null = the caller's
///   returns  its exit status, 128 + the number of the signal that ended it, or -1: it could not be run
int run_program(const char *path, char *const argv[], char *const environment[],
                const posix_spawn_file_actions_t *set_up);
