#include "ui/console.h"

#include "ui/status.h"

#include <cstdio>
#include <cstring>

// To programs -------------------------------------------------------------------------------------------------------

static bool is_conversion_modifier(char c) { return c == '-' || c == '.' || (c >= '0' && c <= '9'); }

/// The argument that the sentence shows as an error code, 0x%X; 0 = none. Knows the conversions that sentences have.
static uint32_t code_shown(const char *format, va_list values)
{
    for (const char *at = format; (at = strchr(at, '%')) != nullptr; ++at) {
        const bool is_code = at - format >= 2 && strncmp(at - 2, "0x%X", 4) == 0;
        do
            ++at;
        while (is_conversion_modifier(*at));
        if (*at == 's')
            (void)va_arg(values, const char *);
        if (*at == 'f')
            (void)va_arg(values, double);
        if (*at == 's' || *at == 'f' || *at == '%')
            continue;
        if (const auto number = va_arg(values, uint32_t); is_code)
            return number;
    }
    return 0;
}

[[gnu::format(printf, 3, 0)]] static void tell(meaning what, uint32_t code, const char *format, va_list values,
                                               const char *ending)
{
    static char text[4096];  // more does not fit a line of the status descriptor
    va_list again;
    va_copy(again, values);
    if (code == 0)
        code = code_shown(format, again);
    va_end(again);
    va_copy(again, values);
    vsnprintf(text, sizeof text, format, again);
    va_end(again);
    write_status(what, code, text, ending);
}

// Sentences ---------------------------------------------------------------------------------------------------------

static constexpr char line_end[] = "\r\n", no_end[] = "";

/// To programs first: the screen may keep the tool waiting.
[[gnu::format(printf, 3, 0)]] static void print(meaning what, uint32_t code, const char *format, va_list values,
                                                const char *ending = line_end)
{
    if (has_status())
        tell(what, code, format, values, ending);
    vprintf(format, values);
    if (*ending != '\0')
        fputs(ending, stdout);
}

int done(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print(meaning::done, 0, format, values);
    va_end(values);
    return 1;
}

int fail(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print(meaning::failed, 0, format, values);
    va_end(values);
    return 0;
}

int fail_because(uint32_t code, const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print(meaning::failed, code, format, values);
    va_end(values);
    return 0;
}

int fail_raw(uint32_t code, const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print(meaning::failed, code, format, values, no_end);
    va_end(values);
    return 0;
}

int refuse(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print(meaning::refused, 0, format, values);
    va_end(values);
    return 0;
}

int refuse_because(uint32_t code, const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print(meaning::refused, code, format, values);
    va_end(values);
    return 0;
}

int usage_error(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print(meaning::usage, 0, format, values);
    va_end(values);
    return 0;
}

void say_values(const char *format, va_list values) { print(meaning::information, 0, format, values); }

void say(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    say_values(format, values);
    va_end(values);
}

void say_raw(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print(meaning::information, 0, format, values, no_end);
    va_end(values);
}

void say_now(const char *format, ...)
{
    va_list values;
    va_start(values, format);
    print(meaning::information, 0, format, values, no_end);
    va_end(values);
    show_now();
}

void show_now() { fflush(stdout); }

void usage_text(const char *text)
{
    write_status(meaning::usage, 0, text, "");
    fputs(text, stdout);
}

// Without a sentence ------------------------------------------------------------------------------------------------

static int end_silently(meaning what, uint32_t code)
{
    write_status(what, code, "", "");
    return what == meaning::done;
}

int done_silently() { return end_silently(meaning::done, 0); }
int fail_silently(uint32_t code) { return end_silently(meaning::failed, code); }
int refuse_silently(uint32_t code) { return end_silently(meaning::refused, code); }

// Prompts -----------------------------------------------------------------------------------------------------------

/// To the operator first: whoever is told may answer at once.
static void ask(meaning what, const char *prompt)
{
    fputs(prompt, stdout);
    fflush(stdout);
    write_status(what, 0, prompt, "");
}

void ask_question(const char *prompt) { ask(meaning::confirm, prompt); }
void ask_hidden(const char *prompt) { ask(meaning::hidden, prompt); }
