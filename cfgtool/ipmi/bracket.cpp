#include "ipmi/bracket.h"

bracket::bracket(set_progress &by) : progress(by), is_open(by(1) == 1), must_close(is_open) {}

bracket::~bracket()
{
    if (must_close)
        close();
}

bool bracket::close()
{
    must_close = false;
    return progress(0) == 1;
}
