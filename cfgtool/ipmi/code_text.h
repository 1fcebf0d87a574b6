/// Codes in words.
#pragma once

#include <cstdint>

/// One pair of a code table; a table ends with a null text.
struct value_text {
    uint32_t value;
    const char *text;
};

/// A completion code in words: the generic ones first (IPMI 2.0, Completion Codes), then those that only this command
/// has. An unknown code gives "Unknown (0x..)" in a buffer that the next unknown code overwrites.
const char *completion_text(uint8_t completion, uint8_t netfn, uint8_t command);

/// The text of the first row whose value equals the low 16 bits of `value`. An unknown value gives "Unknown (0x..)" in
/// a buffer of this routine's own, overwritten by the next unknown value.
const char *val_to_str(uint32_t value, const value_text *table);
