#include "ipmi/code_text.h"

#include "ipmi/request.h"

#include <cstdio>

static constexpr value_text generic_codes[] = {
    {0x00, "Command completed normally"},
    {0xC0, "Node busy"},
    {0xC1, "Invalid command"},
    {0xC2, "Invalid command on LUN"},
    {0xC3, "Timeout"},
    {0xC4, "Out of space"},
    {0xC5, "Reservation cancelled or invalid"},
    {0xC6, "Request data truncated"},
    {0xC7, "Request data length invalid"},
    {0xC8, "Request data field length limit exceeded"},
    {0xC9, "Parameter out of range"},
    {0xCA, "Cannot return number of requested data bytes"},
    {0xCB, "Requested sensor, data, or record not found"},
    {0xCC, "Invalid data field in request"},
    {0xCD, "Command illegal for specified sensor or record type"},
    {0xCE, "Command response could not be provided"},
    {0xCF, "Cannot execute duplicated request"},
    {0xD0, "SDR Repository in update mode"},
    {0xD1, "Device firmeware in update mode"},  // Kept: spelled so
    {0xD2, "BMC initialization in progress"},
    {0xD3, "Destination unavailable"},
    {0xD4, "Insufficient privilege level"},
    {0xD5, "Command not supported in present state"},
    {0xD6, "Parameter is illegal because command b-functionhas been disabled or is unavailable"},  // Kept: spelled so
    {0xFF, "Unspecified error"},
    {},
};

static constexpr value_text reset_watchdog_codes[] = {{0x80, "Attempt to start un-initialized watchdog"}, {}};

static constexpr char not_supported[] = "parameter not supported";
static constexpr char set_not_complete[] =
    "attempt to set the'set in progress'value when not in the'set complete'state";  // Kept: no blanks at the quotes
static constexpr char read_only[] = "attempt to write read-only parameter";

static constexpr value_text set_boot_options_codes[] = {
    {0x80, not_supported},
    {0x81, set_not_complete},
    {0x82, read_only},
    {},
};
static constexpr value_text set_lan_codes[] = {
    {0x80, not_supported},
    {0x81, set_not_complete},
    {0x82, read_only},
    {0x83, "attempt to read write-only parameter"},
    {},
};
static constexpr value_text get_parameter_codes[] = {{0x80, not_supported}, {}};
static constexpr value_text read_fru_codes[] = {{0x81, "FRU device busy"}, {}};
static constexpr value_text get_sel_info_codes[] = {{0x81, "cannot execute command, SEL erase in progress"}, {}};
static constexpr value_text get_device_sdr_codes[] = {{0x80, "record changed"}, {}};

struct command_codes {
    uint8_t netfn, command;
    const value_text *codes;
};
static constexpr command_codes specific_codes[] = {
    {netfn_app, 0x22, reset_watchdog_codes},           // Reset Watchdog Timer
    {netfn_chassis, 0x08, set_boot_options_codes},     // Set System Boot Options
    {netfn_chassis, 0x09, get_parameter_codes},        // Get System Boot Options
    {netfn_storage, 0x11, read_fru_codes},             // Read FRU Data
    {netfn_storage, 0x40, get_sel_info_codes},         // Get SEL Info
    {netfn_transport, 0x01, set_lan_codes},            // Set LAN Configuration Parameters
    {netfn_transport, 0x02, get_parameter_codes},      // Get LAN Configuration Parameters
    {netfn_sensor_event, 0x21, get_device_sdr_codes},  // Get Device SDR
};

static constexpr char unknown_format[] = "Unknown (0x%x)";

static const char *find_text(uint32_t value, const value_text *table)
{
    while (table->text != nullptr && table->value != value)
        ++table;
    return table->text;
}

static const char *specific_text(uint8_t completion, uint8_t netfn, uint8_t command)
{
    for (const command_codes &row : specific_codes)
        if (row.netfn == netfn && row.command == command)
            return find_text(completion, row.codes);
    return nullptr;
}

const char *completion_text(uint8_t completion, uint8_t netfn, uint8_t command)
{
    static char unknown[32];
    if (const char *text = find_text(completion, generic_codes))
        return text;
    if (const char *text = specific_text(completion, netfn, command))
        return text;
    snprintf(unknown, sizeof unknown, unknown_format, unsigned(completion));
    return unknown;
}

const char *val_to_str(uint32_t value, const value_text *table)
{
    static char unknown[32];
    const uint32_t low_half = value & 0xFFFF;
    if (const char *text = find_text(low_half, table))
        return text;
    snprintf(unknown, sizeof unknown, unknown_format, unsigned(low_half));
    return unknown;
}
