#include "ipmcd/wiping.h"

#include <cstddef>
#include <cstring>

namespace ipmcd
{

[[gnu::noinline]] void wipe_stack()
{
    constexpr size_t deepest = 32768;
    char below[deepest];
    explicit_bzero(below, sizeof below);
}

}  // namespace ipmcd
