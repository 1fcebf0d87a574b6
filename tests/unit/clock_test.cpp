/// Time zones where the C library reads binary numbers, as those of C23 do.
#include "tests/unit/conversation.h"

#include <cctype>
#include <cstdlib>
#include <cstring>

extern "C" {
long long __real_strtoll(const char *text, char **end, int base);

/// As C23 has it: base 0 takes "0b1" for 1.
long long __wrap_strtoll(const char *text, char **end, int base)
{
    const char *digits = text;
    while (isspace(static_cast<unsigned char>(*digits)))
        ++digits;
    const bool is_negative = *digits == '-';
    if (is_negative || *digits == '+')
        ++digits;
    const bool is_binary = digits[0] == '0' && (digits[1] | 0x20) == 'b' && (digits[2] == '0' || digits[2] == '1');
    if (base != 0 || !is_binary)
        return __real_strtoll(text, end, base);
    const long long size = __real_strtoll(digits + 2, end, 2);
    return is_negative ? -size : size;
}
}

using time_zone = conversation;

TEST_F(time_zone, the_library_of_this_test_reads_binary_numbers)
{
    char text[] = " -0B110!", *end;
    EXPECT_EQ(strtoll(text, &end, 0), -6);
    EXPECT_STREQ(end, "!");
}

TEST_F(time_zone, is_never_binary)
{
    for (const char *zone : {"0b1", "0B1", "+0b1", "-0b1", " 0b1", "0b0", "0b1101"}) {
        const std::string shown = run(top_level_dataitems, "ipmctime", {"-v", "2020-01-01", "10:00:00", zone}, 0);
        EXPECT_TRUE(shown.starts_with("Usage: cfgtool -d ipmctime ")) << zone;
    }
}
