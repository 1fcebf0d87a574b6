#include "verdict/json.h"

#include <cstdint>

static bool continues(std::string_view text, size_t at)
{
    return at < text.size() && (uint8_t(text[at]) & 0xC0) == 0x80;
}

/// The length of the UTF-8 character at the beginning of the text; 0 = there is none.
static size_t character_length(std::string_view text)
{
    const auto first = uint8_t(text[0]);
    const auto second = text.size() > 1 ? uint8_t(text[1]) : uint8_t(0);
    if (first < 0x80)
        return 1;
    if (first < 0xC2 || first > 0xF4 || !continues(text, 1))
        return 0;
    if (first < 0xE0)
        return 2;
    if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) || !continues(text, 2))
        return 0;  // too long a form, or half of a pair
    if (first < 0xF0)
        return 3;
    if ((first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F) || !continues(text, 3))
        return 0;
    return 4;
}

/// How many characters at the beginning of the text are ASCII and stand for themselves.
static size_t plain_length(std::string_view text)
{
    const auto is_plain = [](char c) { return uint8_t(c) >= 0x20 && uint8_t(c) <= 0x7F && c != '"' && c != '\\'; };
    size_t length = 0;
    while (length < text.size() && is_plain(text[length]))
        ++length;
    return length;
}

void print_json(FILE *out, std::string_view text)
{
    fputc('"', out);
    for (;;) {
        const size_t plain = plain_length(text);
        fwrite(text.data(), 1, plain, out);
        text.remove_prefix(plain);
        if (text.empty())
            break;
        const size_t length = character_length(text);
        if (length == 0)
            fputs("\\ufffd", out);
        else if (uint8_t(text[0]) < 0x20)
            fprintf(out, "\\u%04x", unsigned(text[0]));
        else if (text[0] == '"' || text[0] == '\\')
            fprintf(out, "\\%c", text[0]);
        else
            fwrite(text.data(), 1, length, out);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    fputc('"', out);
}
