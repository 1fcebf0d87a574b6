/// Values in engineering units as raw readings.
#include "ipmi/conversion.h"

#include "ipmi/transport.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

enum class format : uint8_t { unsigned_number, ones_complement, twos_complement, none };

/// The factors as people write them: raw = (value / 10^k2 - b * 10^k1) / m.
struct factors {
    format data_format = format::unsigned_number;
    int m = 1, b = 0, k1 = 0, k2 = 0;
};

/// A full sensor record with these factors and nothing else.
class full_record
{
public:
    explicit full_record(const factors &is)
    {
        body[15] = uint8_t(int(is.data_format) << 6 | 0x3F);  // the bits beside each field are set: they do not count
        body[19] = uint8_t(is.m);
        body[20] = uint8_t((is.m & 0x300) >> 2 | 0x3F);
        body[21] = uint8_t(is.b);
        body[22] = uint8_t((is.b & 0x300) >> 2 | 0x3F);
        body[24] = uint8_t((is.k2 & 0x0F) << 4 | (is.k1 & 0x0F));
    }
    sdr_record record() { return {1, sdr_full, uint8_t(body.size() - 1), nullptr, body.data()}; }

private:
    std::array<uint8_t, 49> body{};
};

static double raw_of(const factors &is, double value) { return sensor_real_to_raw(full_record(is).record(), value); }

/// Whether the value is sent, and as which byte: -1 = refused.
static int sent_for(const factors &is, double value)
{
    g_error_code = 0;
    const double raw = raw_of(is, value);
    const bool fits = raw_in_range(full_record(is).record(), raw);
    EXPECT_EQ(g_error_code, fits ? 0U : 0x4000000AU);
    return fits ? raw_byte(raw) : -1;
}

static constexpr factors plain;
static constexpr factors plain_signed{.data_format = format::twos_complement};

TEST(conversion, rounds_a_positive_reading_half_up)
{
    EXPECT_EQ(sent_for(plain, 85.5), 86);
    EXPECT_EQ(sent_for(plain, 85.4), 85);
    EXPECT_EQ(sent_for(plain, 85.49999999999999), 85);
    EXPECT_EQ(sent_for(plain, 0.5), 1);
    EXPECT_EQ(sent_for(plain, 0.4), 0);
    EXPECT_EQ(sent_for(plain, 254.6), 255);
    EXPECT_EQ(sent_for(plain, 255.0), 255);
}

TEST(conversion, judges_the_range_before_a_fraction_is_cut_off)
{
    EXPECT_EQ(sent_for(plain, 255.4), -1);
    EXPECT_EQ(sent_for(plain, 255.6), -1);
    EXPECT_EQ(sent_for(plain_signed, 127.0), 127);
    EXPECT_EQ(sent_for(plain_signed, 127.3), -1);
    EXPECT_EQ(sent_for(plain_signed, 127.5), -1);
    EXPECT_EQ(sent_for(plain_signed, -128.0), 0x80);
    EXPECT_EQ(sent_for(plain_signed, -128.1), -1);
}

TEST(conversion, cuts_a_negative_reading_towards_zero)
{
    EXPECT_EQ(sent_for(plain_signed, -3.7), 0xFD);
    EXPECT_EQ(sent_for(plain_signed, -3.5), 0xFD);
    EXPECT_EQ(sent_for(plain_signed, -0.9), 0x00);
    EXPECT_EQ(raw_of(plain_signed, -3.7), -3.7);
}

TEST(conversion, unsigned_readings_have_no_lower_bound)
{
    EXPECT_EQ(sent_for(plain, -1), 0xFF);
    EXPECT_EQ(sent_for(plain, -300), 0xD4);  // FED4h
    EXPECT_EQ(sent_for(plain, -1e12), 0);    // no 32-bit integer
}

TEST(conversion, bounds_of_the_other_formats)
{
    for (const format other : {format::ones_complement, format::twos_complement}) {
        EXPECT_EQ(sent_for({.data_format = other}, 127), 127);
        EXPECT_EQ(sent_for({.data_format = other}, 128), -1);
        EXPECT_EQ(sent_for({.data_format = other}, -129), -1);
    }
    EXPECT_EQ(sent_for({.data_format = format::none}, 1e9), 0);
}

TEST(conversion, no_reading_and_no_slope_give_zero)
{
    EXPECT_EQ(raw_of({.data_format = format::none, .m = 2}, 50), 0);
    for (const double value : {0.0, 1.0, -1.0, 1e300})
        EXPECT_EQ(raw_of({.m = 0, .b = 100}, value), 0);
}

TEST(conversion, signs_of_the_factors)
{
    EXPECT_EQ(sent_for({.m = -1, .b = 100}, 40), 60);       // (40 - 100) / -1
    EXPECT_EQ(sent_for({.m = 511, .b = 511}, 1022), 1);     // the largest
    EXPECT_EQ(sent_for({.m = -512, .b = -512}, -1024), 1);  // (-1024 + 512) / -512
    EXPECT_EQ(sent_for({.m = 256}, 25600), 100);            // bit 8 stands in the second byte
}

TEST(conversion, exponents)
{
    EXPECT_EQ(sent_for({.k2 = -1}, 8.5), 85);
    EXPECT_EQ(sent_for({.b = 5, .k2 = -1}, 8.5), 80);                   // times ten before B goes
    EXPECT_EQ(sent_for({.b = 5, .k1 = 1}, 85), 35);                     // 85 - 50
    EXPECT_EQ(sent_for({.m = 2, .b = 1, .k1 = 1, .k2 = 2}, 5000), 20);  // (50 - 10) / 2
    EXPECT_EQ(sent_for({.k2 = 7}, 3e7), 3);
    EXPECT_EQ(sent_for({.k2 = -8}, 3e-8), 3);
}

TEST(conversion, divides_by_a_power_of_ten_where_multiplying_would_round_otherwise)
{
    EXPECT_EQ(sent_for({.k2 = -1}, 0.15), 1);  // 0.15 / 0.1 is a hair below 1.5
}

TEST(conversion, what_is_no_number_is_sent_as_zero)
{
    EXPECT_EQ(sent_for(plain, std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(sent_for(plain_signed, std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(sent_for(plain, -std::numeric_limits<double>::infinity()), 0);
    EXPECT_EQ(sent_for(plain, std::numeric_limits<double>::infinity()), -1);
    EXPECT_EQ(raw_byte(2147483647.0), 0xFF);
    EXPECT_EQ(raw_byte(2147483648.0), 0x00);
    EXPECT_EQ(raw_byte(-2147483648.9), 0x00);  // is -2^31 when cut, whose low 8 bits are 0
    EXPECT_EQ(raw_byte(-2147483649.0), 0x00);
}

TEST(conversion, a_record_cut_short_has_zeros_for_factors)
{
    uint8_t body[16] = {};
    body[15] = 0x80;
    const sdr_record record{1, sdr_full, 16, nullptr, body};
    EXPECT_EQ(sensor_real_to_raw(record, 50), 0);  // M is 0
    EXPECT_FALSE(raw_in_range(record, 128));
    EXPECT_TRUE(raw_in_range({1, sdr_full, 15, nullptr, body}, 128));  // no format byte: unsigned
}

// Back to real values ------------------------------------------------------------------------------------------------

/// The value that a raw reading stands for; NaN = the factors make no number of it.
static double value_of(const factors &is, uint8_t raw)
{
    double value = 0;
    return sensor_raw_to_real(full_record(is).record(), raw, value) ? value : std::numeric_limits<double>::quiet_NaN();
}

TEST(conversion, of_a_raw_reading)
{
    EXPECT_EQ(value_of(plain, 255), 255);
    EXPECT_EQ(value_of({.m = 6, .k2 = -2}, 201), 12.06);
    EXPECT_EQ(value_of({.m = 5, .b = -40, .k2 = -1}, 157), 74.5);  // (785 - 40) / 10
    EXPECT_EQ(value_of({.m = -1, .b = 100}, 60), 40);
    EXPECT_EQ(value_of({.m = 2, .b = 1, .k1 = 1, .k2 = 2}, 20), 5000);
    EXPECT_EQ(value_of({.b = 5, .k1 = -1}, 3), 3.5);
    EXPECT_EQ(value_of({.k2 = -8}, 3), 3e-8);
    EXPECT_EQ(value_of({.k2 = 7}, 3), 3e7);
}

TEST(conversion, of_a_raw_reading_with_a_sign)
{
    EXPECT_EQ(value_of(plain_signed, 0x7F), 127);
    EXPECT_EQ(value_of(plain_signed, 0xFD), -3);
    EXPECT_EQ(value_of(plain_signed, 0x80), -128);
    EXPECT_EQ(value_of({.data_format = format::ones_complement}, 0xFD), -2);
    EXPECT_EQ(value_of({.data_format = format::ones_complement}, 0x80), -127);
    EXPECT_EQ(value_of(plain, 0xFD), 253);
}

TEST(conversion, factors_that_make_no_number)
{
    EXPECT_TRUE(std::isnan(value_of({.data_format = format::none}, 1)));
    EXPECT_TRUE(std::isnan(value_of({.m = 0, .b = 100}, 1)));
}

TEST(conversion, there_and_back_again)
{
    for (const format signs : {format::unsigned_number, format::twos_complement})
        for (int k1 = -8; k1 <= 7; ++k1)
            for (int k2 = -8; k2 <= 7; ++k2)
                for (const int m : {-512, -3, 1, 7, 511})
                    for (int raw = 0; raw < 256; raw += 5) {
                        const factors is{signs, m, 3, k1, k2};
                        const int number = signs == format::twos_complement && raw > 127 ? raw - 256 : raw;
                        // B of this size takes digits away from the raw reading, but never the whole ones.
                        ASSERT_NEAR(raw_of(is, value_of(is, uint8_t(raw))), number, 1e-6)
                            << m << ' ' << k1 << ' ' << k2;
                    }
}

/// The rule once more, with the library's functions and factors that were never packed into bits.
static double by_the_book(const factors &is, double value)
{
    if (is.data_format == format::none || is.m == 0)
        return 0;
    const double y = value / std::pow(10.0, is.k2);
    const double raw = (y - is.b * std::pow(10.0, is.k1)) / is.m;
    return raw - std::trunc(raw) >= 0.5 ? std::ceil(raw) : raw;
}

TEST(conversion, sweep_of_all_exponents_and_many_factors)
{
    unsigned compared = 0;
    for (int k1 = -8; k1 <= 7; ++k1)
        for (int k2 = -8; k2 <= 7; ++k2)
            for (const int m : {-512, -3, -1, 0, 1, 2, 7, 100, 511})
                for (const int b : {-512, -1, 0, 1, 333, 511})
                    for (const double value : {-1000.0, -3.7, -0.5, 0.0, 0.15, 0.5, 12.0, 85.5, 127.25, 1e4}) {
                        const factors is{format::twos_complement, m, b, k1, k2};
                        const double book = by_the_book(is, value);
                        if (std::abs(book) >= 2147483647.0)
                            continue;  // refused whatever its last bits
                        ASSERT_EQ(raw_of(is, value), book) << m << ' ' << b << ' ' << k1 << ' ' << k2 << ' ' << value;
                        ++compared;
                    }
    EXPECT_GT(compared, 100000U);
}
