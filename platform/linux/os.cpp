/// The OS abstraction: memory, texts, sleeps, checks. Files are in file_calls.cpp, programs in processes.cpp.
#include "platform/linux/exported.h"

#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <sys/random.h>
#include <time.h>
#include <unistd.h>

int vos_memset(void *to, size_t to_size, int value, size_t count)
{
    if (to == nullptr || count > to_size)
        return -1;
    memset(to, value, count);
    asm volatile("" : : "r"(to) : "memory");  // somebody might look: the fill has to take place
    return 0;
}

int vos_memcpy(void *to, size_t to_size, const void *from, size_t count)
{
    if (to == nullptr || from == nullptr || count > to_size)
        return -1;
    memmove(to, from, count);
    return 0;
}

/// What does not fit is left out; that is a failure, though the text is terminated.
int vos_strncpy(char *to, size_t to_size, const char *from, size_t count)
{
    if (to == nullptr || to_size == 0)
        return -1;
    if (from == nullptr) {
        *to = '\0';
        return -1;
    }
    const size_t wanted = strnlen(from, count);
    const size_t fits = wanted < to_size ? wanted : to_size - 1;
    memmove(to, from, fits);
    to[fits] = '\0';
    return fits == wanted ? 0 : -1;
}

int vos_strncat(char *to, size_t to_size, const char *from, size_t count)
{
    if (to == nullptr || to_size == 0)
        return -1;
    const size_t used = strnlen(to, to_size);
    if (used == to_size) {
        to[to_size - 1] = '\0';
        return -1;
    }
    return vos_strncpy(to + used, to_size - used, from, count);
}

int vos_snprintf(char *to, size_t to_size, const char *format, ...)
{
    va_list values;
    va_start(values, format);
    const int length = vsnprintf(to, to_size, format, values);
    va_end(values);
    return length;
}

/// The whole time, whatever signals come.
static void sleep_for(time_t seconds, long nanoseconds)
{
    timespec left{seconds, nanoseconds};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

void vos_task_delay(unsigned milliseconds) { sleep_for(milliseconds / 1000, long(milliseconds % 1000) * 1000000); }

void vos_task_delay_us(unsigned microseconds)
{
    sleep_for(microseconds / 1000000, long(microseconds % 1000000) * 1000);
}

/// Any characters but ':' and '\', the first neither '#' nor a blank. Control characters are refused too: they would
/// break up the lines of records and lists. Whether a name is empty or too long is judged by who stores it.
int vos_check_username(const char *name)
{
    if (name == nullptr || *name == '#' || *name == ' ')
        return -1;
    for (; *name != '\0'; ++name) {
        const auto byte = static_cast<unsigned char>(*name);
        if (byte == ':' || byte == '\\' || byte < 0x20 || byte == 0x7F)
            return -1;
    }
    return 0;
}

int vos_check_incorrect_char(const char *text, const char *characters)
{
    return text != nullptr && characters != nullptr && strpbrk(text, characters) != nullptr ? 1 : 0;
}

/// From the kernel; before its pool is filled, early in start-up, from the clock rather than wait.
unsigned vos_rand()
{
    unsigned value = 0;
    if (getrandom(&value, sizeof value, GRND_NONBLOCK) == ssize_t(sizeof value))
        return value;
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (unsigned(now.tv_nsec) ^ unsigned(getpid()) << 16) * 2654435761U;
}
