/// The error codes of the tool's sentences.
#pragma once

#include <cstdint>

/// What a code is made of. A reason of the tool's own has a text only, and so has 0.
struct error_parts {
    bool has_request;     // netfn, command and selector are known
    bool has_completion;  // and the completion code
    uint8_t netfn, command, selector, completion;
    const char *text;
};
/// The text of an unknown completion code stands in a buffer that the next one overwrites.
error_parts take_apart(uint32_t code);
