#include "cli/blacklist.h"

#include "cli/registry.h"
#include "system/files.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <unistd.h>

static constexpr char tool_name[] = "cfgtool", dataitem_option[] = "-d";

// A line ------------------------------------------------------------------------------------------------------------

/// The first row whose name occurs in the line, be it a part of another word. Null = none.
static command_entry *row_named_in(const char *line, command_entry *table)
{
    for (command_entry *row = table; row->name != nullptr; ++row)
        if (strstr(line, row->name) != nullptr)
            return row;
    return nullptr;
}

static void disable_row_named_in(const char *line, command_entry *table)
{
    if (command_entry *row = row_named_in(line, table))
        row->disable();
}

/// The table of dataitems is that of the first of these words in the line. Kept: maintenance is not among them.
struct word_table {
    const char *word;
    command_entry *dataitems;
};
static constexpr word_table word_tables[] = {
    {"fru0", fru0_dataitems},       {"led", led_dataitems},       {"eth0", eth0_dataitems},
    {"sensor", sensor_dataitems},   {"smbios", smbios_dataitems}, {"trap", trap_dataitems},
    {"service", service_dataitems}, {"user", user_dataitems},
};

static void disable_dataitem(const char *line)
{
    for (const word_table &table : word_tables)
        if (strstr(line, table.word) != nullptr)
            return disable_row_named_in(line, table.dataitems);
}

static void disable_in_target(const char *line)
{
    if (strstr(line, dataitem_option) == nullptr)
        disable_row_named_in(line, targets);
    else
        disable_dataitem(line);
}

static constexpr size_t option_end = 10;

/// The character at column 9 after a "-" at column 8, 0 where there is none. 'd' and 't' are options.
static char option_of(const char *line, size_t length)
{
    return length >= option_end && line[8] == '-' ? line[9] : '\0';
}

/// Applies one line. Kept: one that names the tool and has neither option is passed over. A target line directly after
/// a "-d" line need not name the tool; an empty line between them ends that.
///   returns  whether it is a "-d" line
static bool apply_line(const char *line, size_t length, bool after_dataitem_line)
{
    const char option = option_of(line, length);
    if (option != 'd' && option != 't')
        return false;
    const bool named = strstr(line, tool_name) != nullptr;
    if (option == 't' && (named || after_dataitem_line))
        disable_in_target(line);
    if (option == 't' || !named)
        return false;
    disable_row_named_in(line, top_level_dataitems);
    return true;
}

// A line longer than the buffer -------------------------------------------------------------------------------------

/// The beginning of a line made short: with the rest of the line behind it, it disables the same. Kept are the columns
/// up to the option, the names that decide, and the end, where another name may have begun.
class condensed_line
{
public:
    condensed_line(const char *line, size_t size) : whole(line)
    {
        memcpy(text, line, option_end);
        const char option = option_of(line, size);
        keep(tool_name);
        if (option == 'd')
            keep_row(top_level_dataitems);
        if (option == 't')
            keep_names_of_target();
        add(line + size - longest_name, longest_name);
    }

    static constexpr size_t longest_name = command_entry::longest_name, most_names = 3 + 2 * std::size(word_tables);
    char text[option_end + (most_names + 1) * (1 + longest_name)];
    size_t length = option_end;

private:
    const char *whole;

    void add(const char *part, size_t size)
    {
        text[length++] = '\1';  // is in no name
        memcpy(text + length, part, size);
        length += size;
    }
    bool keep(const char *name)
    {
        if (strstr(whole, name) == nullptr)
            return false;
        add(name, strlen(name));
        return true;
    }
    void keep_row(command_entry *table)
    {
        if (const command_entry *row = row_named_in(whole, table))
            add(row->name, strlen(row->name));
    }
    /// Tables after that of the first word no longer matter, nor do targets once there is a "-d".
    void keep_names_of_target()
    {
        if (!keep(dataitem_option))
            keep_row(targets);
        for (const word_table &table : word_tables) {
            keep_row(table.dataitems);
            if (keep(table.word))
                return;
        }
    }
};

// The file ----------------------------------------------------------------------------------------------------------

/// Moves the beginning of a line to the front of the buffer. The number of characters it has there.
template <size_t size>
static size_t keep_beginning(char (&buffer)[size], const char *line, size_t length)
{
    static_assert(size - 1 > sizeof condensed_line::text, "there must be room for more of the line");
    if (length < size - 1) {
        memmove(buffer, line, length);
        return length;
    }
    const condensed_line shorter(line, length);
    memcpy(buffer, shorter.text, shorter.length);
    return shorter.length;
}

void apply_blacklist(int file, unsigned long length)
{
    static char buffer[16384 + 1];
    size_t kept = 0;  // of a line that has not ended
    bool after_dataitem_line = false;
    for (bool is_last = false; !is_last;) {
        const size_t wanted = std::min<size_t>(sizeof buffer - 1 - kept, length);
        const size_t got = read_up_to(file, buffer + kept, wanted);
        length -= got;
        is_last = got < wanted || length == 0;
        char *line = buffer, *const end = buffer + kept + got;
        *end = '\0';  // which ends a line as well, as zeros of the file do
        while (line < end) {
            char *const line_end = line + strcspn(line, "\r\n");
            if (line_end == end && !is_last)
                break;
            *line_end = '\0';
            after_dataitem_line = apply_line(line, size_t(line_end - line), after_dataitem_line);
            line = line_end + 1;
        }
        if (!is_last)
            kept = keep_beginning(buffer, line, size_t(end - line));
    }
}

void read_blacklist()
{
    static constexpr char path[] = "/data/blacklist";
    const long length = get_file_length(path);
    if (length < 0)
        return;
    if (const int file = open_regular(path); file >= 0) {
        apply_blacklist(file, static_cast<unsigned long>(length));
        close(file);
    }
}
