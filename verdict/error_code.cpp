#include "verdict/error_code.h"

#include "ipmi/code_text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

bool find_error_code(std::string_view sentence, code_shape form, uint32_t &code)
{
    static constexpr std::string_view decimal_mark = "g_error_code=", hexadecimal_mark = "0x";
    if (form == code_shape::none)
        return false;
    const std::string_view mark = form == code_shape::decimal ? decimal_mark : hexadecimal_mark;
    const size_t at = sentence.rfind(mark);  // a word that was typed may stand before it
    if (at == std::string_view::npos)
        return false;
    char digits[16]{};
    sentence.remove_prefix(at + mark.size());
    memcpy(digits, sentence.data(), std::min(sentence.size(), sizeof digits - 1));
    code =
        form == code_shape::decimal ? uint32_t(strtoll(digits, nullptr, 10)) : uint32_t(strtoull(digits, nullptr, 16));
    return true;
}

struct own_reason {
    uint32_t code;
    const char *text;
};
static constexpr own_reason own_reasons[] = {
    {0x00000000, "no reason is known"},
    {0x40000000, "the request could not be sent"},
    {0x40000001, "no answer came, or one of a wrong length"},
    {0x40000002, "only answers to other requests came"},
    {0x40000003, "sensor not found"},
    {0x40000004, "sensor data record of length 0"},
    {0x40000008, "the sensor has no full sensor record"},
    {0x40000009, "the value is not a number"},
    {0x4000000A, "the sensor cannot represent the value"},
    {0x50000000, "out of memory"},
    {0x50000002, "the lock file of adduser cannot be opened"},
    {0x50000003, "the lock of adduser cannot be taken"},
};

error_parts take_apart(uint32_t code)
{
    static constexpr uint32_t first_own = 0x40000000;  // network functions have six bits
    for (const own_reason &reason : own_reasons)
        if (reason.code == code)
            return {false, false, 0, 0, 0, 0, reason.text};
    if (code >= first_own)
        return {false, false, 0, 0, 0, 0, "unknown"};
    error_parts parts{code > UINT8_MAX, true,   uint8_t(code >> 24), uint8_t(code >> 16), uint8_t(code >> 8),
                      uint8_t(code),    nullptr};
    parts.text = completion_text(parts.completion, parts.netfn, parts.command);
    return parts;
}
