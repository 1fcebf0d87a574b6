#include "cli/blacklist.h"

#include "cli/registry.h"
#include "system/files.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

// Line by line ------------------------------------------------------------------------------------------------------

/// Disables the first row whose name occurs in the line, be it a part of another word.
static void disable_row_named_in(const char *line, command_entry *table)
{
    for (command_entry *row = table; row->name != nullptr; ++row) {
        if (strstr(line, row->name) != nullptr) {
            row->disable();
            return;
        }
    }
}

/// The table of the first of these words in the line, null when it holds none. Kept: maintenance is not among them.
static command_entry *dataitems_named_in(const char *line)
{
    struct word_table {
        const char *word;
        command_entry *dataitems;
    };
    static constexpr word_table tables[] = {
        {"fru0", fru0_dataitems},       {"led", led_dataitems},       {"eth0", eth0_dataitems},
        {"sensor", sensor_dataitems},   {"smbios", smbios_dataitems}, {"trap", trap_dataitems},
        {"service", service_dataitems}, {"user", user_dataitems},
    };
    for (const word_table &table : tables)
        if (strstr(line, table.word) != nullptr)
            return table.dataitems;
    return nullptr;
}

static void disable_in_target(const char *line)
{
    if (strstr(line, "-d") == nullptr)
        disable_row_named_in(line, targets);
    else if (command_entry *dataitems = dataitems_named_in(line))
        disable_row_named_in(line, dataitems);
}

/// The option letter at column 9, behind a "-" at column 8: 'd', 't', or 0 for any other line.
static char option_of(const char *line)
{
    if (strnlen(line, 10) < 10 || line[8] != '-')
        return '\0';
    return line[9] == 'd' || line[9] == 't' ? line[9] : '\0';
}

void apply_blacklist(char *text, unsigned long length)
{
    std::replace_if(
        text, text + length, [](char c) { return c == '\r' || c == '\n'; }, '\0');

    bool behind_dataitem_line = false;
    for (const char *line = text; line < text + length; line += strlen(line) + 1) {
        const bool named = strstr(line, "cfgtool") != nullptr;
        const char option = option_of(line);  // Kept: a line that names the tool and neither option is passed over
        // Kept: directly behind a "-d" line a target line need not name the tool. An empty line uses this up.
        if (option == 't' && (named || behind_dataitem_line))
            disable_in_target(line);
        behind_dataitem_line = option == 'd' && named;
        if (behind_dataitem_line)
            disable_row_named_in(line, top_level_dataitems);
    }
}

// The file ----------------------------------------------------------------------------------------------------------

void read_blacklist()
{
    static constexpr char path[] = "/data/blacklist";
    const long length = get_file_length(path);
    if (length < 0)
        return;
    auto *text = static_cast<char *>(malloc(size_t(length) + 1));
    if (text == nullptr)
        return;
    if (const int file = open_regular(path); file >= 0) {
        const size_t filled = read_up_to(file, text, size_t(length));
        close(file);
        text[filled] = '\0';
        apply_blacklist(text, filled);
    }
    free(text);
}
