#include "cli/options.h"

#include "cli/registry.h"
#include "platform/platform.h"
#include "ui/console.h"
#include "ui/status.h"

#include <cstdio>
#include <cstring>
#include <unistd.h>

// Listings ----------------------------------------------------------------------------------------------------------

static constexpr char targets_heading[] = "    -t <target>";
static constexpr char dataitems_heading[] = "    -d <dataitem>";
static constexpr char dataitems_heading_apart[] = "\r\n    -d <dataitem>";

/// One line of 80 columns at the most: the name at column 7, the help text at column 30.
static void list_row(const command_entry &row)
{
    constexpr size_t width = 80, name_column = 7, help_column = 30;
    char line[width + sizeof "\r\n"];
    memset(line, ' ', width);
    memcpy(line + name_column, row.name, strnlen(row.name, width - name_column));
    const size_t help_length = strnlen(row.help, width - help_column);
    memcpy(line + help_column, row.help, help_length);
    memcpy(line + help_column + help_length, "\r\n", sizeof "\r\n");
    usage_text(line);
}

/// The rows of the mask, all by default; of those only what is enabled.
static void list_rows(const command_entry *table, uint32_t mask = UINT32_MAX)
{
    for (unsigned row = 0; table[row].name != nullptr; ++row)
        if ((mask & 1U << row) != 0 && table[row].state() == command_entry::enabled)
            list_row(table[row]);
}

static void print_usage(uint8_t targets_seen, const char *target)
{
    if (targets_seen == 0) {
        usage_error("Useage: cfgtool [-t target] -d dataitem [-v value]");  // Kept: spelled so
        usage_error(targets_heading);
        list_rows(targets);
        usage_error(dataitems_heading_apart);
        list_rows(top_level_dataitems);
        return;
    }
    // Kept: disabled targets count here.
    const row_matches found = target != nullptr ? find_rows(targets, target, disabled_rows::counted) : row_matches{};
    if (found.count == 1) {
        usage_error(dataitems_heading_apart);
        list_rows(target_dataitems[found.first]);
        return;
    }
    usage_error(targets_heading);
    list_rows(targets, found.count == 0 ? UINT32_MAX : found.mask);
}

// Dispatch ----------------------------------------------------------------------------------------------------------

/// Exactly one enabled target is meant; otherwise says what could be.
static bool validate_target(const char *target)
{
    const row_matches found = find_rows(targets, target);
    if (found.count == 1)
        return true;
    if (found.count == 0)
        refuse("input parameter[-t] error");  // Kept: a small "i" here, a capital below
    usage_error(targets_heading);
    list_rows(targets, found.count == 0 ? UINT32_MAX : found.mask);
    return false;
}

/// The target meant by a text that has passed the validator: the first that fits.
static unsigned target_of(const char *target)
{
    return find_rows(targets, target, disabled_rows::counted).first;  // Kept: disabled or not
}

static const command_entry *dataitems_of(const char *target) { return target_dataitems[target_of(target)]; }

static void run_dataitem(const command_entry *table, const char *target, const char *dataitem, uint8_t count,
                         char **arguments)
{
    const row_matches found = find_rows(table, dataitem);
    if (found.count == 0) {
        refuse("Input parameter[-d] error");
        usage_error(dataitems_heading);
        list_rows(table);
    } else if (found.count > 1) {
        usage_error(dataitems_heading_apart);
        list_rows(table, found.mask);
    } else {
        const command_entry &row = table[found.first];
        if (has_status())
            write_status({"command", target != nullptr ? targets[target_of(target)].name : "", row.name});
        vos_strncpy(current_command, sizeof current_command, dataitem, sizeof current_command - 1);
        row.handler({row.level(), count, arguments, target});
    }
}

void dispatch(uint8_t targets_seen, const char *target, const char *dataitem, uint8_t count, char **arguments)
{
    if (targets_seen != 0) {
        if (validate_target(target))
            run_dataitem(dataitems_of(target), target, dataitem, count, arguments);
    } else if (dataitem == nullptr) {
        refuse("\r\ninput parameter<-d> error");
        usage_error(dataitems_heading);
        list_rows(top_level_dataitems);
    } else {
        run_dataitem(top_level_dataitems, nullptr, dataitem, count, arguments);
    }
}

// Options -----------------------------------------------------------------------------------------------------------

/// Exactly -t, -d, -h or -T. A joined form such as "-tfru0" is none of them, although getopt would take it.
static bool is_option(const char *word)
{
    return word[0] == '-' && word[1] != '\0' && strchr("tdhT", word[1]) != nullptr && word[2] == '\0';
}

void run_command_line(int argc, char **argv)
{
    if (argc <= 1 || !is_option(argv[1])) {
        print_usage(0, nullptr);
        return;
    }
    uint8_t targets_seen = 0;
    const char *target = nullptr;  // argv outlives the run, so it is not copied
    for (int option; (option = getopt(argc, argv, "t:d:hT:")) != -1;) {
        switch (option) {
        case 't':
            ++targets_seen;
            target = optarg;
            if (!validate_target(target))
                return;
            break;
        case 'd':  // all that follows is the command's own
            dispatch(targets_seen, target, optarg, uint8_t(argc - optind), argv + optind);
            return;
        case 'h':
            print_usage(targets_seen, nullptr);
            return;
        default:  // -T, which has no function of its own, and whatever getopt has complained about
            print_usage(targets_seen, target);
            return;
        }
    }
    if (targets_seen != 0) {
        usage_error(dataitems_heading_apart);
        list_rows(dataitems_of(target));
    }
}
