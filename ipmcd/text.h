/// Small texts for traces and messages.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ipmcd
{

/// What printf would print.
[[gnu::format(printf, 1, 2)]] std::string text(const char *format, ...);

/// A text from outside in double quotes: "ad\x1Bmin". What is not printable ASCII, a double quote and a backslash show
/// escaped, so that the text can neither change a terminal nor end early.
std::string quoted(const std::string &from_outside);
/// Prints "ipmcd: WHAT" to stderr. Control characters, which a file name may have, show escaped.
void report(std::string_view what);

/// "00 3C FF"; empty for no bytes.
std::string hex(std::span<const uint8_t> bytes);
/// What `hex` wrote, in large or small digits; nothing for any other text.
std::vector<uint8_t> parse_hex(std::string_view text);

}  // namespace ipmcd
