#include "ui/arguments.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>

static int base_of(const char *text)
{
    return text[0] == '0' && (text[1] == 'x' || text[1] == 'X') && text[2] != '\0' ? 16 : 10;
}

static int32_t saturated(long long value) { return int32_t(std::clamp<long long>(value, INT32_MIN, INT32_MAX)); }

int32_t parse_number(const char *text)
{
    char *end;
    const int32_t value = saturated(strtoll(text, &end, base_of(text)));
    return *end != '\0' || value < 0 ? -1 : value;
}

const char *skip_blanks(const char *text)
{
    while (isspace(static_cast<unsigned char>(*text)))
        ++text;
    return text;
}

uint32_t parse_unsigned(const char *text)
{
    char *end;
    errno = 0;
    const unsigned long long value = strtoull(text, &end, base_of(text));
    const unsigned long long size = *skip_blanks(text) == '-' ? 0 - value : value;
    if (*end != '\0' || errno == ERANGE || size > UINT32_MAX)
        return not_a_number;
    return uint32_t(value);
}

int32_t leading_number(const char *text) { return saturated(strtoll(text, nullptr, 10)); }
