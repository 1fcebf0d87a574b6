#include "system/hold_signals.h"

#include <cstdio>

hold_signals::hold_signals()
{
    // Not those of a fault, which is there whether they are held or not, nor those that stop and continue.
    static constexpr int others[] = {SIGILL, SIGTRAP, SIGABRT, SIGBUS,  SIGFPE,  SIGSEGV,
                                     SIGSYS, SIGCHLD, SIGCONT, SIGTSTP, SIGTTIN, SIGTTOU};
    sigset_t ending;
    sigfillset(&ending);
    for (const int number : others)
        sigdelset(&ending, number);
    sigprocmask(SIG_BLOCK, &ending, &before);
}

hold_signals::~hold_signals()
{
    fflush(stdout);  // a signal that has waited ends the tool at once, and what was said must not be lost
    sigprocmask(SIG_SETMASK, &before, nullptr);
}
