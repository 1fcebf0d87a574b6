/// What changes how the controller judges a sensor: thresholds, hysteresis, and a value to report instead of the
/// measured one. Each finds the sensor by the name in its SDR.
#pragma once

#include "ui/invocation.h"

struct threshold {
    const char *dataitem;   // as typed
    const char *words;      // as shown
    const char *log_words;  // as logged
    const char *name;       // in diagnostics
    uint8_t slot;           // which byte of the request carries the value; its mask bit is 1 << slot
    uint32_t event;         // the code of the success record
};
inline constexpr threshold lower_noncritical = {
    "lowernoncritical", "lower noncritical", "lower non-critical", "Lower Non-Critical", 0, 0x20600270};
inline constexpr threshold lower_critical = {"lowercritical", "lower critical", "lower critical", "Lower Critical", 1,
                                             0x20600280};
inline constexpr threshold lower_nonrecoverable = {
    "lowernonrecoverable", "lower nonrecoverable", "lower non-recoverable", "Lower Non-Recoverable", 2, 0x20600290};
inline constexpr threshold upper_noncritical = {
    "uppernoncritical", "upper noncritical", "upper non-critical", "Upper Non-Critical", 3, 0x206002A0};
inline constexpr threshold upper_critical = {"uppercritical", "upper critical", "upper critical", "Upper Critical", 4,
                                             0x206002B0};
inline constexpr threshold upper_nonrecoverable = {
    "uppernonrecoverable", "upper nonrecoverable", "upper non-recoverable", "Upper Non-Recoverable", 5, 0x206002C0};

/// -v SENSOR VALUE, in the sensor's units.
int set_threshold(const threshold &which, const invocation &typed);
/// The registry's row binds the member: threshold_command<lower_critical>.
template <const threshold &which>
int threshold_command(const invocation &typed)
{
    static_assert(which.slot < 6, "the thresholds have six mask bits");
    return set_threshold(which, typed);
}

/// -v SENSOR COUNT: a raw count of 0 to 255.
command_handler negativehysteresis, positivehysteresis;
/// -v SENSOR VALUE, or -v SENSOR stop.
command_handler sensor_test;
