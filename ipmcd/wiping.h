/// Passwords that a control command or a request brought do not stay in memory.
#pragma once

namespace ipmcd
{

/// Overwrites what calls that have returned left on the stack.
void wipe_stack();

/// What the program gives back to the heap is overwritten: `delete` does so by itself in whatever links wiped_heap.cpp,
/// the event library after this. To be called before anything of that library.
void wipe_heap_of_events();

}  // namespace ipmcd
