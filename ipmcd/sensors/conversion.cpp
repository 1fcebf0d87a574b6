#include "ipmcd/sensors/conversion.h"

#include <algorithm>
#include <cmath>

namespace ipmcd
{

/// Powers of ten with a negative exponent have no exact double; dividing by the positive one keeps 1.2 what it looks.
static double scaled(double number, int exponent)
{
    return exponent < 0 ? number / std::pow(10, -exponent) : number * std::pow(10, exponent);
}

int conversion::number(uint8_t raw) const
{
    if (raw < 0x80 || format == data_format::is_unsigned)
        return raw;
    return format == data_format::ones_complement ? raw - 0xFF : raw - 0x100;
}

double conversion::value(uint8_t raw) const { return scaled(m * number(raw) + scaled(b, b_exponent), result_exponent); }

static constexpr uint8_t smallest_byte(data_format format) { return format == data_format::is_unsigned ? 0x00 : 0x80; }
static constexpr uint8_t largest_byte(data_format format) { return format == data_format::is_unsigned ? 0xFF : 0x7F; }

std::optional<uint8_t> conversion::raw(double value) const
{
    const double nearest = std::round((scaled(value, -result_exponent) - scaled(b, b_exponent)) / m);
    if (nearest < number(smallest_byte(format)) || nearest > number(largest_byte(format)))
        return std::nullopt;
    const int found = int(nearest);
    return uint8_t(found < 0 && format == data_format::ones_complement ? found - 1 : found);
}

conversion::range conversion::value_range() const
{
    const double one = value(smallest_byte(format)), other = value(largest_byte(format));
    return {std::min(one, other), std::max(one, other)};
}

}  // namespace ipmcd
