/// Operation-log records: who changed what, from where.
#pragma once

#include <cstddef>
#include <cstdint>

/// Log classes: user accounts and the controller itself, and everything else.
constexpr uint32_t log_class_account = 1, log_class_change = 2;

/// Writes one record through the platform, with the caller's name and origin.
///   module   word naming the area, "Fan", "Network", ...
///   record   an English sentence, with "EvtCode:0x" and eight upper-case hexadecimal digits at its end
///   returns  what the platform returns, 0 = written; nobody is told of a failure
int save_sys_log(uint32_t log_class, const char *module, const char *record);

/// The same for a record with values in it, 511 characters at the most.
[[gnu::format(printf, 3, 4)]] void log_record(uint32_t log_class, const char *module, const char *format, ...);
/// And for the class that most records have.
[[gnu::format(printf, 2, 3)]] void log_change(const char *module, const char *format, ...);

/// The user: LOGNAME, or "unknown". The origin: the address of the SSH client, or REMOTEHOST, or "console". Both are
/// cut to their buffer.
///   returns  1 = both filled, 0 = a null buffer or no room
int get_username_ip(char *user, size_t user_size, char *origin, size_t origin_size);
