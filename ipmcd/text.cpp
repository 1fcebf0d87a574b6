#include "ipmcd/text.h"

#include <charconv>
#include <cstdarg>
#include <cstdio>

namespace ipmcd
{

std::string text(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = vsnprintf(nullptr, 0, format, arguments);
    std::string made(length > 0 ? size_t(length) : 0, '\0');
    vsnprintf(made.data(), made.size() + 1, format, again);
    va_end(again);
    va_end(arguments);
    return made;
}

std::string hex(std::span<const uint8_t> bytes)
{
    std::string made;
    for (const uint8_t byte : bytes)
        made += text(made.empty() ? "%02X" : " %02X", byte);
    return made;
}

std::vector<uint8_t> parse_hex(std::string_view text)
{
    std::vector<uint8_t> bytes;
    for (size_t at = 0; at < text.size(); at += 3) {
        const char *const pair = text.data() + at;
        uint8_t byte = 0;
        const bool is_pair = text.size() - at >= 2 && std::from_chars(pair, pair + 2, byte, 16).ptr == pair + 2;
        const bool goes_on = text.size() - at > 3 && text[at + 2] == ' ';
        if (!is_pair || (!goes_on && text.size() - at != 2))
            return {};
        bytes.push_back(byte);
    }
    return bytes;
}

}  // namespace ipmcd
