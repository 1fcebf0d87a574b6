#include "cli/hold_signals.h"

#include <cstdio>
#include <initializer_list>

hold_signals::hold_signals()
{
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal_number : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGALRM, SIGUSR1, SIGUSR2})
        sigaddset(&ending, signal_number);
    sigprocmask(SIG_BLOCK, &ending, &before);
}

hold_signals::~hold_signals()
{
    fflush(stdout);  // a signal that has waited ends the tool at once, and what was said must not be lost
    sigprocmask(SIG_SETMASK, &before, nullptr);
}
