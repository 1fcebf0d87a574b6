/// What the operator sees. The verb in front of a sentence is its meaning, which also goes to the status descriptor
/// (ui/status.h). An error code that a sentence shows as "0x%X" goes there with it.
#pragma once

#include <cstdarg>
#include <cstdint>

// These print one line, or several with "\r\n" between them, and end it with "\r\n".

/// What was asked for is done. Returns 1, a handler's success.
[[gnu::format(printf, 1, 2)]] int done(const char *format, ...);
/// It was tried, and failed. Returns 0, a handler's failure, as all that follow.
[[gnu::format(printf, 1, 2)]] int fail(const char *format, ...);
/// Nothing was tried, and this is why. Asking who the caller is, or what the controller has, does not count as trying.
[[gnu::format(printf, 1, 2)]] int refuse(const char *format, ...);
/// Nothing was tried: the arguments are wrong.
[[gnu::format(printf, 1, 2)]] int usage_error(const char *format, ...);
/// Anything else.
[[gnu::format(printf, 1, 2)]] void say(const char *format, ...);
[[gnu::format(printf, 1, 0)]] void say_values(const char *format, va_list values);

/// The same where the sentence does not show its error code; 0 = there is none.
[[gnu::format(printf, 2, 3)]] int fail_because(uint32_t code, const char *format, ...);
[[gnu::format(printf, 2, 3)]] int refuse_because(uint32_t code, const char *format, ...);

// These print the text as it is, for the few with another line end or none.

[[gnu::format(printf, 2, 3)]] int fail_raw(uint32_t code, const char *format, ...);
[[gnu::format(printf, 1, 2)]] void say_raw(const char *format, ...);
/// Shows it immediately: progress that the operator is to see while the tool goes on.
[[gnu::format(printf, 1, 2)]] void say_now(const char *format, ...);
/// As say_now() does for itself.
void show_now();
/// A part of a listing; not a format.
void usage_text(const char *text);

// These print nothing: outcomes without a sentence.

int done_silently();
int fail_silently(uint32_t code = 0);
int refuse_silently(uint32_t code = 0);

// Prompts, shown before the tool waits for the answer: a question, and what asks for a hidden word.

void ask_question(const char *prompt);
void ask_hidden(const char *prompt);
