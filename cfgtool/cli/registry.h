/// The commands: one table of top-level dataitems, one of targets, and a dataitem table per target.
///
/// To add a command: write its handler in the folder of its area, declare it in that file's header, and add a row here
/// (registry.cpp) where the listings shall show it. To add a target: a row in `targets` and its table at the same
/// position of `target_dataitems`.
#pragma once

#include "ui/invocation.h"

#include <cstdint>

struct command_entry {
    const char *name;          // null ends the table
    const char *help;          // a line of the listing
    uint32_t flags;            // byte 0 required privilege level, byte 1 state, bytes 2 and 3 zero
    command_handler *handler;  // null in the target table

    static constexpr uint8_t enabled = 1, disabled = 2;
    static constexpr unsigned longest_name = 32;

    uint8_t level() const { return uint8_t(flags); }
    uint8_t state() const { return uint8_t(flags >> 8); }
    void disable() { flags = (flags & ~0xFF00U) | disabled << 8; }
};

extern command_entry top_level_dataitems[];
extern command_entry targets[];
extern command_entry *const target_dataitems[];  // by position in `targets`

extern command_entry fru0_dataitems[], led_dataitems[], eth0_dataitems[], sensor_dataitems[], trap_dataitems[],
    service_dataitems[], user_dataitems[], maintenance_dataitems[];
/// Kept: two tables that no target leads to, so that no command line reaches them.
extern command_entry eth1_dataitems[], smbios_dataitems[];

/// The rows of a table that a typed text may mean.
struct row_matches {
    uint32_t mask;   // bit n = row n
    unsigned count;  // of rows
    unsigned first;  // the lowest row, valid when count is not 0
};
enum class disabled_rows { skipped, counted };

/// The row whose name is the text, else every row whose name begins with it (an empty text begins them all).
row_matches find_rows(const command_entry *table, const char *text, disabled_rows rule = disabled_rows::skipped);
