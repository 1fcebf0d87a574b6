/// The unit that a sensor measures in.
#pragma once

#include "ipmi/sdr.h"

/// In words, as "degrees C" or "megabit per second" (IPMI 2.0, Sensor Unit Type Codes). False = none is named.
bool unit_of(const sdr_record &record, char (&text)[64]);
