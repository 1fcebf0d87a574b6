/// What the tool's lower rooms would show to an operator of cfgtool. Here every request that fails is a complaint with
/// the name of what it was to read, and that is enough.
#include "ui/console.h"

void say(const char *, ...) {}
void say_raw(const char *, ...) {}
