// Linked with the tool where it is to be seen which of its code a run reaches: every block of code that g++ laid out
// (-fsanitize-coverage=trace-pc) calls in, and the byte at its offset in the program is set in a file shared with the
// test. System calls are made directly: the scripted platform stands in front of libc's.
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" const char __executable_start[];
extern "C" void __sanitizer_cov_trace_pc();

static constexpr size_t table_size = size_t(1) << 20;
static unsigned char *table;

[[gnu::constructor]] static void map_table()
{
    const char *path = getenv("REACH_TABLE");
    if (path == nullptr)
        return;
    const long file = syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC);
    void *mapped = mmap(nullptr, table_size, PROT_READ | PROT_WRITE, MAP_SHARED, int(file), 0);
    syscall(SYS_close, file);
    if (mapped != MAP_FAILED)
        table = static_cast<unsigned char *>(mapped);
}

void __sanitizer_cov_trace_pc()
{
    const size_t offset = size_t(static_cast<const char *>(__builtin_return_address(0)) - __executable_start);
    if (table != nullptr && offset < table_size)
        table[offset] = 1;
}
