/// Adding, deleting and re-passwording users. All three ask for the caller's own password before they change anything,
/// and leave a record of every outcome.
#pragma once

#include "ui/invocation.h"

#include <cstddef>

/// -v NAME: a new user in the first free slot, without access yet.
command_handler adduser;
/// -v NAME: one's own password, or with the privilege for it another's.
command_handler password;
/// -v NAME.
command_handler deluser;

/// How often the shortest repeating unit occurs in the text: 3 for "ababab", 1 for a text that is no repetition, for a
/// single character and for none.
unsigned repeat_count(const char *text, size_t length);
