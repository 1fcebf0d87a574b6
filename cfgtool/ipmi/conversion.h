/// Between engineering units and the one-byte readings that the controller stores (IPMI 2.0, Sensor Reading Conversion
/// Formula). The linearization functions are not applied.
#pragma once

#include "ipmi/sdr.h"

/// The raw reading of a real value by the factors of a full sensor record; not yet a byte, perhaps no byte at all. A
/// positive result is rounded half up. Kept: a negative one is left as it is and so cut towards zero later.
double sensor_real_to_raw(const sdr_record &record, double value);

/// Kept: an unsigned format has no lower bound. False sets g_error_code to 0x4000000A.
bool raw_in_range(const sdr_record &record, double raw);
constexpr uint32_t error_raw_range = 0x4000000A;

/// The low eight bits of the reading cut towards zero; 0 for what is no number or no 32-bit integer.
uint8_t raw_byte(double raw);

/// The real value of a raw reading. False = the factors of the record make no number of it.
bool sensor_raw_to_real(const sdr_record &record, uint8_t raw, double &value);
