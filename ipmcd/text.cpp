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

std::string quoted(const std::string &from_outside)
{
    std::string made = "\"";
    for (const char c : from_outside) {
        if (c < 0x20 || c > 0x7E)
            made += text("\\x%02X", uint8_t(c));
        else if (c == '"' || c == '\\')
            made.append({'\\', c});
        else
            made += c;
    }
    return made + '"';
}

/// Also those of the second kind, U+0080 to U+009F, in UTF-8 C2 80 to C2 9F.
void report(std::string_view what)
{
    std::string line;
    for (size_t at = 0; at < what.size(); at++) {
        const auto byte = uint8_t(what[at]);
        const auto next = uint8_t(at + 1 < what.size() ? what[at + 1] : 0);
        if (byte < 0x20 || byte == 0x7F)
            line += text("\\x%02X", byte);
        else if (byte == 0xC2 && next >= 0x80 && next <= 0x9F)
            line += text("\\x%02X\\x%02X", byte, uint8_t(what[++at]));
        else
            line += what[at];
    }
    fprintf(stderr, "ipmcd: %s\n", line.c_str());
}

std::string hex(std::span<const uint8_t> bytes)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string made;
    made.reserve(bytes.size() * 3);
    for (const uint8_t byte : bytes) {
        if (!made.empty())
            made += ' ';
        made += digits[byte >> 4];
        made += digits[byte & 0x0F];
    }
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
