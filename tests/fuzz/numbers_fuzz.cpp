/// Numbers as they are typed, beside a reading of the same text digit by digit.
#include "tests/fuzz/platform.h"
#include "ui/arguments.h"

#include <algorithm>
#include <cctype>
#include <climits>

/// What strtol finds where no number is too large, or at least none below 2^70.
struct reading {
    bool negative = false;
    __int128 size = 0;
    size_t end = 0;  // behind the last digit; 0 when there is none
};

static int digit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const auto letter = char(c | 0x20);
    return letter >= 'a' && letter <= 'z' ? letter - 'a' + 10 : 36;
}

static bool has_prefix(const std::string &text, size_t at)
{
    return at + 1 < text.size() && text[at] == '0' && (text[at + 1] | 0x20) == 'x';
}

static reading read(const std::string &text, int base)
{
    static constexpr __int128 enough = __int128(1) << 70;
    reading made;
    size_t at = 0;
    while (at < text.size() && isspace(static_cast<unsigned char>(text[at])))
        ++at;
    if (at < text.size() && (text[at] == '-' || text[at] == '+'))
        made.negative = text[at++] == '-';
    if (base == 16 && has_prefix(text, at) && at + 2 < text.size() && digit(text[at + 2]) < 16)
        at += 2;
    for (; at < text.size() && digit(text[at]) < base; ++at) {
        made.size = std::min(enough, made.size * base + digit(text[at]));
        made.end = at + 1;
    }
    return made;
}

static __int128 value_of(const reading &made) { return made.negative ? -made.size : made.size; }

static int32_t saturated(const reading &made)
{
    return int32_t(std::clamp<__int128>(value_of(made), INT32_MIN, INT32_MAX));
}

static int32_t expected_number(const reading &made, size_t length)
{
    const int32_t value = saturated(made);
    return made.end == length && value >= 0 ? value : -1;
}

static uint32_t expected_unsigned(const reading &made, size_t length)
{
    return made.end == length && made.size <= UINT32_MAX ? uint32_t(value_of(made)) : not_a_number;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    const std::string text = input.bytes(size).c_str();
    const int base = text.size() > 2 && has_prefix(text, 0) ? 16 : 10;
    check(parse_number(text.c_str()) == expected_number(read(text, base), text.size()));
    check(parse_unsigned(text.c_str()) == expected_unsigned(read(text, base), text.size()));
    check(leading_number(text.c_str()) == saturated(read(text, 10)));
    return 0;
}
