/// The bracket around writes of parameters, "set in progress" (IPMI 2.0), that LAN parameters and boot options have.
#pragma once

#include "system/hold_signals.h"

#include <cstdint>

/// Opened at its beginning and closed once: by hand where it shows whether that is before or after a text, else at its
/// end. While it lives, signals that would end the tool wait.
class bracket
{
public:
    /// Opens (1) or closes (0) it; returns 1 = done.
    using set_progress = int(uint8_t value);

    explicit bracket(set_progress &by);
    ~bracket();
    bracket(const bracket &) = delete;
    bracket &operator=(const bracket &) = delete;

    /// False: opening it failed. It is then not closed at the end either.
    bool opened() const { return is_open; }
    /// True = closed.
    bool close();
    /// Does not close it.
    void leave_open() { must_close = false; }

private:
    const hold_signals until_closed;
    set_progress &progress;
    const bool is_open;
    bool must_close;
};
