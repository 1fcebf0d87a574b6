#include "ipmcd/wiping.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <event2/event.h>
#include <malloc.h>
#include <new>

static void wipe_and_free(void *block)
{
    if (block != nullptr)
        explicit_bzero(block, malloc_usable_size(block));
    free(block);
}

static void *resize(void *block, size_t size)
{
    void *const made = malloc(size);
    if (made == nullptr || block == nullptr)
        return made;
    memcpy(made, block, std::min(size, malloc_usable_size(block)));
    wipe_and_free(block);
    return made;
}

void ipmcd::wipe_heap_of_events() { event_set_mem_functions(malloc, resize, wipe_and_free); }

void *operator new(size_t size)
{
    if (void *const made = malloc(size != 0 ? size : 1))
        return made;
    throw std::bad_alloc();
}
void operator delete(void *block) noexcept { wipe_and_free(block); }
void operator delete(void *block, size_t) noexcept { wipe_and_free(block); }
