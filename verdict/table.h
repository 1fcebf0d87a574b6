/// The tool's own words.
#pragma once

#include "verdict/verdict.h"

#include <span>

std::span<const line_pattern> all_line_patterns();

/// The command that the words after the tool's name are of, as the tool takes them when no command is switched off: a
/// name may be cut short where it is the only one. Null = none, or not so simple.
const command *find_command(char *const *words);
