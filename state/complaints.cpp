#include "state/complaints.h"

#include "state/text.h"
#include "ui/console.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

static bool complained;

/// Names of the controller's own go in here: nothing of them reaches the terminal but what it can show.
[[gnu::format(printf, 1, 0)]] static void print_line(const char *format, va_list values)
{
    char line[256], shown[4 * sizeof line];
    vsnprintf(line, sizeof line, format, values);
    printable(line, shown);
    fprintf(stderr, "cfgtool-state: %s\n", shown);
}

void complain(const char *format, ...)
{
    complained = true;
    va_list values;
    va_start(values, format);
    print_line(format, values);
    va_end(values);
}

void remark(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print_line(format, values);
    va_end(values);
}

void give_up(const char *why)
{
    remark("%s", why);
    exit(1);
}

bool has_complained() { return complained; }
