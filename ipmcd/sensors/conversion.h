/// Between the raw reading of a sensor, one byte, and a value in its unit.
#pragma once

#include <cstdint>
#include <optional>

namespace ipmcd
{

/// What the byte of a reading means. The numbers are those of the record's sensor units.
enum class data_format : uint8_t { is_unsigned, ones_complement, twos_complement, none };

/// IPMI 2.0, Full Sensor Record: value = (M * raw + B * 10^B exponent) * 10^result exponent. All sensors are linear.
struct conversion {
    data_format format = data_format::is_unsigned;
    int16_t m = 1;  // not 0
    int16_t b = 0;
    int8_t b_exponent = 0;
    int8_t result_exponent = 0;

    /// The number that the byte stands for.
    int number(uint8_t raw) const;
    double value(uint8_t raw) const;
    /// The raw reading whose value is nearest; none for a value outside of what the byte can say.
    std::optional<uint8_t> raw(double value) const;
    struct range {
        double smallest, largest;
    };
    range value_range() const;
};

}  // namespace ipmcd
