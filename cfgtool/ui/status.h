/// What a run says to programs: lines on the descriptor that CFGTOOL_STATUS_FD names. docs/status.md has the format.
/// Without that variable this costs no system call.
#pragma once

#include <cstdint>
#include <initializer_list>

enum class meaning : uint8_t { information, done, failed, refused, usage, confirm, hidden };

/// Takes the descriptor, if there is one. To be called once, before anything runs a program.
void open_status();

extern int status_descriptor;  // 0 = none
inline bool has_status() { return status_descriptor != 0; }

// These write nothing without a descriptor, and never wait.

/// A line of these fields, the first of which is its kind.
void write_status(std::initializer_list<const char *> fields);
/// A sentence or prompt, and how its line ends. A code of 0 is none.
void write_status(meaning what, uint32_t code, const char *text, const char *ending);
