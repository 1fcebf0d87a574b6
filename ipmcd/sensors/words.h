/// Words for the numbers that IPMI 2.0 gives to types of sensors, their units, and entities.
#pragma once

#include <span>
#include <string>

namespace ipmcd
{

struct code_word {
    unsigned code;
    const char *word;
};

std::span<const code_word> sensor_types();
/// The usual ones, and `unit_percent`.
std::span<const code_word> sensor_units();
std::span<const code_word> entities();

/// The word, or the number in hexadecimal when it has none.
std::string word_of(std::span<const code_word> table, unsigned code);

}  // namespace ipmcd
