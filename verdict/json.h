/// The few shapes of JSON that the document has.
#pragma once

#include <cstdio>
#include <string_view>

/// A JSON string. Bytes that are not UTF-8 become the replacement character, one each.
void print_json(FILE *out, std::string_view text);
