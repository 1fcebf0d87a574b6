/// Lines against the patterns of the tool's sentences.
#pragma once

#include "verdict/verdict.h"

#include <string_view>

/// How much of the text the pattern takes, from its beginning: all of it when it is to be a whole line. npos = it is
/// another text.
size_t match(const line_pattern &pattern, std::string_view text);
