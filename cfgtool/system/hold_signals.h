/// What must not be left half-way waits for no signal.
#pragma once

#include <csignal>

/// While one of these lives, signals that would end the tool wait. Those that came meanwhile take effect at its end.
class hold_signals
{
public:
    hold_signals();
    ~hold_signals();
    hold_signals(const hold_signals &) = delete;
    hold_signals &operator=(const hold_signals &) = delete;

private:
    sigset_t before;
};
