/// Numbers among the arguments of a command.
#pragma once

#include <cstdint>

/// A number: hexadecimal when the text has three characters or more and begins with "0x" or "0X", decimal otherwise,
/// read as strtol does where long has 32 bits: leading blanks and a sign, 0 for an empty text, 2^31-1 for anything
/// larger. The whole text must be used; trailing characters and negative numbers give -1.
int32_t parse_number(const char *text);

/// Its unsigned twin, as strtoul where long has 32 bits ("-1" is 2^32-1). An error gives 0xFFFFFFFF.
uint32_t parse_unsigned(const char *text);
constexpr uint32_t not_a_number = 0xFFFFFFFF;

/// The decimal number a text begins with, 0 when it begins with none; never an error. As atoi where long has 32 bits.
int32_t leading_number(const char *text);

/// Where a text begins once the blanks are passed over that strtol passes over.
const char *skip_blanks(const char *text);
