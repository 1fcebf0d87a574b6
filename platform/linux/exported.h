/// platform.h for the files that implement it: what it declares, and nothing else, leaves the library.
#pragma once

#pragma GCC visibility push(default)
#include "platform/platform.h"
#pragma GCC visibility pop
