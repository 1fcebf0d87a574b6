#include "ipmi/conversion.h"

#include "ipmi/transport.h"

// The analog data format, bits 7 and 6 of body byte 15
static constexpr uint8_t format_unsigned = 0, format_ones_complement = 1, format_none = 3;

static uint8_t data_format(const sdr_record &record) { return record.at(15) >> 6; }

/// A 10-bit two's-complement number: the low byte, and bits 7 and 6 of the high one.
static int factor(uint8_t low, uint8_t high)
{
    const int value = low | (high & 0xC0) << 2;
    return value < 512 ? value : value - 1024;
}

/// 10 raised to a 4-bit two's-complement exponent: the values of pow(10, k), the same on every machine.
static double power_of_ten(uint8_t exponent)
{
    static constexpr double powers[16] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e-8, 1e-7, 1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 1e-1};
    return powers[exponent & 0x0F];
}

static bool is_int32(double value) { return value > -2147483649.0 && value < 2147483648.0; }

double sensor_real_to_raw(const sdr_record &record, double value)
{
    const int m = factor(record.at(19), record.at(20)), b = factor(record.at(21), record.at(22));
    const uint8_t exponents = record.at(24);  // K2 in the upper half, K1 in the lower
    if (data_format(record) == format_none || m == 0)
        return 0;
    const double y = value / power_of_ten(exponents >> 4);
    const double raw = (y - b * power_of_ten(exponents & 0x0F)) / m;
    if (!is_int32(raw))
        return raw;
    const double whole = int32_t(raw);
    return raw - whole >= 0.5 ? whole + 1 : raw;
}

bool raw_in_range(const sdr_record &record, double raw)
{
    const bool refused = data_format(record) == format_unsigned ? raw > 255.0 : raw < -128.0 || raw > 127.0;
    if (refused)
        g_error_code = error_raw_range;
    return !refused;
}

uint8_t raw_byte(double raw) { return is_int32(raw) ? uint8_t(int32_t(raw)) : uint8_t(0); }

/// Dividing by a power of ten keeps a decimal fraction exact to the last digit; multiplying by its inverse does not.
static double scaled(double value, uint8_t exponent)
{
    static constexpr double powers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
    return exponent < 8 ? value * powers[exponent] : value / powers[16 - exponent];
}

static int number_of(uint8_t raw, uint8_t format)
{
    if (format == format_unsigned || raw < 0x80)
        return raw;
    return format == format_ones_complement ? raw - 0xFF : raw - 0x100;
}

bool sensor_raw_to_real(const sdr_record &record, uint8_t raw, double &value)
{
    const int m = factor(record.at(19), record.at(20)), b = factor(record.at(21), record.at(22));
    const uint8_t exponents = record.at(24);
    const uint8_t format = data_format(record);
    if (format == format_none || m == 0)
        return false;
    value = scaled(m * number_of(raw, format) + scaled(b, exponents & 0x0F), exponents >> 4);
    return true;
}
