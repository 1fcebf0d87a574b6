/// A board with a record of every kind, for tests that look at each byte.
#pragma once

#include "ipmcd/sensors/board_file.h"

namespace ipmcd
{

inline const json small_board_file = json::parse(R"({
    "board": "small",
    "records": [
        {"record": "full", "name": "CPU Temp", "number": "0x11", "type": "temperature", "at": "processor 1",
         "unit": "degrees C", "reading": 42,
         "thresholds": {"lower_critical": 5, "upper_non_critical": 80, "upper_critical": 90},
         "settable": ["upper_non_critical", "upper_critical"], "hysteresis": {"positive": 3, "negative": 1}},
        {"record": "full", "name": "Slope", "number": 18, "type": "voltage", "unit": "volts", "reading": -1.4,
         "format": "ones_complement", "M": -6, "B": 40, "B_exponent": -1, "result_exponent": -1,
         "thresholds": {"upper_critical": 60}, "readable": []},
        {"record": "full", "name": "Lamp", "number": 19, "type": "0xC3", "reading_type": 3, "states": 3, "reading": 1},
        {"record": "compact", "name": "PSU", "number": "0x21", "type": "power supply", "at": "power supply 2",
         "states": "0x400F", "reading": "0x4001", "assertions": 1},
        {"record": "event only", "name": "Button", "number": "0x31", "type": "button", "at": "front panel 1"},
        {"record": "generic locator", "name": "Chip", "address": "0x98", "device_type": "0x20"},
        {"record": "FRU locator", "name": "Board", "fru": 3, "at": "system board 1"},
        {"record": "controller locator", "name": "BMC", "capabilities": "0x87", "at": "management module 1"},
        {"record": "association", "at": "power unit 1", "contains": ["power supply 1", "power supply 2"]},
        {"record": "other", "type": "0xC0", "body": "D9 7E 00 41"}
    ]
})");

}  // namespace ipmcd
