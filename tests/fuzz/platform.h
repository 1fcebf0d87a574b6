/// What the fuzzer makes up, and the platform of the tool in this process that plays it: answers of a controller,
/// results of calls. Memory, texts, files, configuration and events are those of the Linux platform library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

struct fuzz_input {
    const uint8_t *next;
    size_t left;

    /// The next byte; 0 at the end.
    uint8_t u8();
    bool flag() { return (u8() & 1) != 0; }
    /// As many bytes, or what is left.
    std::string bytes(size_t count);
    /// A text without zero bytes, its length first.
    std::string text();
    /// Up to the next line feed, which goes with it.
    std::string line();
};

/// What is left of the input in hand. Every message of the controller is taken from it; at its end there is silence.
extern fuzz_input input;

/// What calls that may fail return, one character for each: '0' is 0, '1' 1, '/' -1, '&' -10. 0 when they are used up.
extern std::string call_results;

/// Begins a run. What the tool prints goes nowhere.
void begin(const uint8_t *data, size_t size);

/// Ends the fuzzer when what every caller may count on does not hold.
void check(bool holds);
