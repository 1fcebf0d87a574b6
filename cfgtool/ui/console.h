/// What the operator sees: every line ends in "\r\n".
#pragma once

/// Prints one line (or several, parted by "\r\n" inside the text) and ends it.
[[gnu::format(printf, 1, 2)]] void say(const char *format, ...);
/// Prints a text as it stands, for the few with another line end or none.
[[gnu::format(printf, 1, 2)]] void say_raw(const char *format, ...);
/// The same, at once: prompts and progress that the operator is to see while the tool goes on or waits.
[[gnu::format(printf, 1, 2)]] void say_now(const char *format, ...);
/// As say(); returns 0, a handler's "failure", so that a refusal is one line.
[[gnu::format(printf, 1, 2)]] int refuse(const char *format, ...);
