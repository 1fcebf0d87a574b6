/// What the fuzzer makes up: answers of a controller, and whatever else a target asks it for.
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
    /// A text without zero bytes, its length first.
    std::string text();
};

/// What is left of the input in hand. Every message of the controller is taken from it; at its end there is silence.
extern fuzz_input input;

/// Begins a run. What the tool prints goes nowhere.
void begin(const uint8_t *data, size_t size);
