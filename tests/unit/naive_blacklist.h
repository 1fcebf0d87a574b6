/// A second reading of a blacklist, with the whole text in memory: for comparison.
#pragma once

#include "cli/registry.h"

#include <algorithm>
#include <string>
#include <vector>

namespace naive_blacklist
{
using rows = std::vector<const command_entry *>;

inline bool holds(const std::string &line, const char *name) { return line.find(name) != line.npos; }

inline void add_first_named(const std::string &line, const command_entry *table, rows &found)
{
    while (table->name != nullptr && !holds(line, table->name))
        ++table;
    if (table->name != nullptr)
        found.push_back(table);
}

inline void add_named_in_target(const std::string &line, rows &found)
{
    if (!holds(line, "-d"))
        add_first_named(line, targets, found);
    else if (holds(line, "fru0"))
        add_first_named(line, fru0_dataitems, found);
    else if (holds(line, "led"))
        add_first_named(line, led_dataitems, found);
    else if (holds(line, "eth0"))
        add_first_named(line, eth0_dataitems, found);
    else if (holds(line, "sensor"))
        add_first_named(line, sensor_dataitems, found);
    else if (holds(line, "smbios"))
        add_first_named(line, smbios_dataitems, found);
    else if (holds(line, "trap"))
        add_first_named(line, trap_dataitems, found);
    else if (holds(line, "service"))
        add_first_named(line, service_dataitems, found);
    else if (holds(line, "user"))
        add_first_named(line, user_dataitems, found);
}

/// The rows that a text disables, some perhaps twice.
inline rows rows_disabled_by(const std::string &text)
{
    static const std::string line_ends("\r\n\0", 3);
    rows found;
    bool after_dataitem_line = false;
    for (size_t start = 0, end; start < text.size(); start = end + 1) {
        end = std::min(text.find_first_of(line_ends, start), text.size());
        const std::string line = text.substr(start, end - start), option = line.size() > 9 ? line.substr(8, 2) : "";
        const bool is_named = holds(line, "cfgtool");
        if (is_named && option == "-d")
            add_first_named(line, top_level_dataitems, found);
        if ((is_named || after_dataitem_line) && option == "-t")
            add_named_in_target(line, found);
        after_dataitem_line = is_named && option == "-d";
    }
    return found;
}
}  // namespace naive_blacklist
