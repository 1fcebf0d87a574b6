/// What went wrong, a line each on standard error.
#pragma once

/// Something was not answered: the exit status says so too.
[[gnu::format(printf, 1, 2)]] void complain(const char *format, ...);
/// Something that the reader should know, though it was answered.
[[gnu::format(printf, 1, 2)]] void remark(const char *format, ...);
/// Ends the run where nothing can be shown.
[[noreturn]] void give_up(const char *why);

/// Whether there was a complaint.
bool has_complained();
