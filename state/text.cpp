#include "state/text.h"

#include <cstdint>
#include <cstdio>

bool printable(const char *text, char *to, size_t size)
{
    static constexpr size_t longest = sizeof "\\x00" - 1;
    bool unchanged = true;
    for (; *text != '\0' && size > longest; ++text) {
        const bool is_plain = *text >= 0x20 && *text <= 0x7E;
        const int length = snprintf(to, size, is_plain ? "%c" : "\\x%02X", uint8_t(*text));
        unchanged = unchanged && is_plain;
        to += length;
        size -= size_t(length);
    }
    *to = '\0';
    return unchanged;
}
