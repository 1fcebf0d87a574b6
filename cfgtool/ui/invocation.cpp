#include "ui/invocation.h"

#include <cstring>

char current_command[128];

bool invocation::has_values(unsigned values) const { return count == 1 + values && strcmp(arguments[0], "-v") == 0; }
