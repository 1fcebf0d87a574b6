/// The controller's clock: controller::shared<board_clock>(). It runs beside the machine's, which goes on while no
/// ipmcd runs, as a battery-backed one would.
#pragma once

#include "ipmcd/scheduler.h"

#include <cstdint>

namespace ipmcd
{

struct board_clock {
    int64_t ahead_s = 0;  // of the machine's clock

    /// Seconds since 1970-01-01 00:00 UTC, as event records carry them.
    uint32_t time(const scheduler &machine) const
    {
        return uint32_t(std::chrono::duration_cast<std::chrono::seconds>(machine.now()).count() + ahead_s);
    }
    void set_time(const scheduler &machine, uint32_t wanted)
    {
        ahead_s = 0;
        ahead_s = int64_t{wanted} - time(machine);
    }
};

}  // namespace ipmcd
