#include "ui/console.h"

#include <cstdarg>
#include <cstdio>

[[gnu::format(printf, 1, 0)]] static void print_line(const char *format, va_list values)
{
    vprintf(format, values);
    fputs("\r\n", stdout);
}

void say(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print_line(format, values);
    va_end(values);
}

void say_raw(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    vprintf(format, values);
    va_end(values);
}

void say_now(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    vprintf(format, values);
    va_end(values);
    fflush(stdout);
}

int refuse(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print_line(format, values);
    va_end(values);
    return 0;
}
