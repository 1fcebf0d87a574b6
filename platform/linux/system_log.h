/// The system's log, which is the one record that nobody but root can change: it is sent to a socket whose reader
/// learns from the kernel who the sender is.
#pragma once

#include <cstddef>

/// A line in the making. Whoever adds to it stays within its size: escaped texts have limits.
struct log_line {
    char bytes[4096];
    size_t used = 0;

    void add(char byte) { bytes[used++] = byte; }
    void add(const char *text, size_t count);
    void add(const char *text);
    /// Adds a text with every byte that is not printable ASCII, and every backslash, as \xNN. A text that takes more
    /// than `limit` bytes ends in "\...".
    void add_escaped(const char *text, size_t limit);
};

/// What ends a text or a line that was cut off.
constexpr char cut_mark[] = "\\...";

/// The head of a datagram: facility authpriv, severity notice or warning.
constexpr char notice_head[] = "<85>zentro: ", warning_head[] = "<84>zentro: ";

/// Sends one message to /dev/log, or to the socket that ZENTRO_SYSLOG names (empty = nowhere). A full queue is given a
/// second. True: the queue holds it.
bool send_to_system_log(const char *message, size_t length);

/// Reports to the system's log why a file is not used: "zentro: NAME: REASON". Leaves errno as it is.
void log_warning(const char *name, const char *reason);
