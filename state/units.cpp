#include "state/units.h"

#include <cstdio>
#include <cstring>

/// Words one behind the other, for numbers that leave hardly any out: a table of pointers would take more room.
static const char *word_at(const char *words, unsigned number)
{
    while (number-- > 0 && *words != '\0')
        words += strlen(words) + 1;
    return words;
}

// clang-format off
static constexpr char units[] =
    "unspecified\0degrees C\0degrees F\0degrees K\0volts\0amps\0watts\0joules\0coulombs\0VA\0"
    "nits\0lumen\0lux\0candela\0kPa\0PSI\0newton\0CFM\0RPM\0hertz\0"
    "microsecond\0millisecond\0second\0minute\0hour\0day\0week\0mil\0inches\0feet\0"
    "cu in\0cu feet\0mm\0cm\0m\0cu cm\0cu m\0liters\0fluid ounce\0radians\0"
    "steradians\0revolutions\0cycles\0gravities\0ounce\0pound\0ft-lb\0oz-in\0gauss\0gilberts\0"
    "henry\0millihenry\0farad\0microfarad\0ohms\0siemens\0mole\0becquerel\0PPM\0reserved\0"
    "decibels\0dBA\0dBC\0gray\0sievert\0color temp deg K\0bit\0kilobit\0megabit\0gigabit\0"
    "byte\0kilobyte\0megabyte\0gigabyte\0word\0dword\0qword\0line\0hit\0miss\0"
    "retry\0reset\0overrun\0underrun\0collision\0packets\0messages\0characters\0error\0correctable error\0"
    "uncorrectable error\0fatal error\0grams\0";
static constexpr char rates[] =  // from 1 on
    "microsecond\0millisecond\0second\0minute\0hour\0day\0";
// clang-format on

/// A number above the last one is shown as it is.
static const char *name_of(uint8_t unit, char (&made)[16])
{
    const char *const word = word_at(units, unit);
    snprintf(made, sizeof made, "unit %u", unit);
    return *word != '\0' ? word : made;
}

bool unit_of(const sdr_record &record, char (&text)[64])
{
    static constexpr unsigned divided = 1, multiplied = 2;
    const uint8_t kind = record.at(15), base = record.at(16), modifier = record.at(17);
    const bool is_percentage = (kind & 0x01) != 0;
    const unsigned relation = kind >> 1 & 0x03, rate = kind >> 3 & 0x07;
    char made[16], other[16];
    const char *const second = name_of(modifier, other);
    int length = snprintf(text, sizeof text, "%s", is_percentage ? "percent" : name_of(base, made));
    if (relation == divided || relation == multiplied)
        length += snprintf(text + length, sizeof text - unsigned(length), relation == divided ? "/%s" : "*%s", second);
    if (rate >= 1 && rate <= 6)
        snprintf(text + length, sizeof text - unsigned(length), " per %s", word_at(rates, rate - 1));
    return is_percentage || base != 0;
}
