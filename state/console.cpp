/// What the tool's lower rooms would show to an operator of cfgtool. Here every request that fails is a complaint with
/// the name of what it was to read, and that is enough.
#include "ui/console.h"

int fail(const char *, ...) { return 0; }
int fail_because(uint32_t, const char *, ...) { return 0; }
int refuse_because(uint32_t, const char *, ...) { return 0; }
void say(const char *, ...) {}
void say_raw(const char *, ...) {}
void say_values(const char *, va_list) {}
