/// One adduser at a time chooses a slot: a record lock on a file that is there only meanwhile.
#pragma once

#include "system/hold_signals.h"

#include <optional>

class add_user_lock
{
public:
    add_user_lock() = default;
    ~add_user_lock();
    add_user_lock(const add_user_lock &) = delete;
    add_user_lock &operator=(const add_user_lock &) = delete;

    /// Waits for its turn after other runs, but for nobody else: a file that is read-locked is replaced. From then on
    /// signals that would end the tool wait, or the file would stay. False = not taken, and g_error_code is 0x50000002
    /// (no file, or one that cannot be replaced) or 0x50000003 (no lock).
    bool take();
    /// Removes the file, then gives the lock back. Signals wait on until this object goes.
    void release();

private:
    int file = -1;
    std::optional<hold_signals> held;
};
