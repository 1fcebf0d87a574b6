#include "verdict/error_code.h"

#include "ipmi/code_text.h"

#include <span>

static constexpr char no_reason[] = "no reason is known";

struct reason {
    uint32_t code;
    const char *text;
};
static constexpr reason own_reasons[] = {
    {0x00000000, no_reason},
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
/// What the controller means by codes that IPMI leaves to it.
static constexpr reason rules_of_controller[] = {
    {0x06470084, "against the controller's rules for passwords"},
    {0x0C011084, "against the controller's rules for communities"},
};

static const char *find_text(std::span<const reason> reasons, uint32_t code)
{
    for (const reason &row : reasons)
        if (row.code == code)
            return row.text;
    return nullptr;
}

static const char *completion_text_of(const error_parts &parts, uint32_t code)
{
    if (parts.completion == 0)  // the tool shows it where no answer came
        return no_reason;
    const char *const rule = find_text(rules_of_controller, code);
    return rule != nullptr ? rule : completion_text(parts.completion, parts.netfn, parts.command);
}

error_parts take_apart(uint32_t code)
{
    static constexpr uint32_t first_own = 0x40000000;  // network functions have six bits
    if (const char *const own = find_text(own_reasons, code); own != nullptr)
        return {false, false, 0, 0, 0, 0, own};
    if (code >= first_own)
        return {false, false, 0, 0, 0, 0, "unknown"};
    error_parts parts{code > UINT8_MAX, true,   uint8_t(code >> 24), uint8_t(code >> 16), uint8_t(code >> 8),
                      uint8_t(code),    nullptr};
    parts.text = completion_text_of(parts, code);
    return parts;
}
