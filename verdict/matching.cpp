#include "verdict/matching.h"

#include <cctype>

static constexpr char any = '\1', decimal = '\2', hexadecimal = '\3';
static constexpr size_t npos = std::string_view::npos;

static size_t count_while(std::string_view text, size_t at, int (*is_one)(int))
{
    while (at < text.size() && is_one(static_cast<unsigned char>(text[at])) != 0)
        ++at;
    return at;
}

/// Where a number that begins there ends; npos when there is none.
static size_t skip_number(std::string_view text, size_t at, char kind)
{
    if (kind == decimal) {
        while (at < text.size() && text[at] == ' ')
            ++at;
        if (at < text.size() && text[at] == '-')
            ++at;
    }
    const size_t end = count_while(text, at, kind == decimal ? isdigit : isxdigit);
    return end > at ? end : npos;
}

static size_t match_from(const char *pattern, std::string_view text, size_t at, bool whole)
{
    for (; *pattern != '\0'; ++pattern) {
        if (*pattern == any) {
            for (size_t end = at; end <= text.size(); ++end)
                if (const size_t taken = match_from(pattern + 1, text, end, whole); taken != npos)
                    return taken;
            return npos;
        }
        if (*pattern == decimal || *pattern == hexadecimal) {
            at = skip_number(text, at, *pattern);
            if (at == npos)
                return npos;
        } else if (at < text.size() && text[at] == *pattern) {
            ++at;
        } else {
            return npos;
        }
    }
    return whole && at != text.size() ? npos : at;
}

size_t match(const line_pattern &pattern, std::string_view text)
{
    return match_from(pattern.text, text, 0, pattern.form == shape::line);
}
