#include "ipmcd/sensors/words.h"

#include "ipmcd/sensors/sensor.h"
#include "ipmcd/text.h"

namespace ipmcd
{

std::span<const code_word> sensor_types()
{
    static constexpr code_word table[] = {
        {0x01, "temperature"},
        {0x02, "voltage"},
        {0x03, "current"},
        {0x04, "fan"},
        {0x05, "physical security"},
        {0x06, "platform security"},
        {0x07, "processor"},
        {0x08, "power supply"},
        {0x09, "power unit"},
        {0x0A, "cooling device"},
        {0x0B, "other units"},
        {0x0C, "memory"},
        {0x0D, "drive slot"},
        {0x0E, "POST memory resize"},
        {0x0F, "system firmware"},
        {0x10, "event logging disabled"},
        {0x11, "watchdog 1"},
        {0x12, "system event"},
        {0x13, "critical interrupt"},
        {0x14, "button"},
        {0x15, "module"},
        {0x16, "microcontroller"},
        {0x17, "add-in card"},
        {0x18, "chassis"},
        {0x19, "chip set"},
        {0x1A, "other FRU"},
        {0x1B, "cable"},
        {0x1C, "terminator"},
        {0x1D, "system boot"},
        {0x1E, "boot error"},
        {0x1F, "OS boot"},
        {0x20, "OS stop"},
        {0x21, "slot"},
        {0x22, "ACPI power state"},
        {0x23, "watchdog 2"},
        {0x24, "platform alert"},
        {0x25, "entity presence"},
        {0x26, "monitor ASIC"},
        {0x27, "LAN"},
        {0x28, "management health"},
        {0x29, "battery"},
        {0x2A, "session audit"},
        {0x2B, "version change"},
        {0x2C, "FRU state"},
    };
    return table;
}

std::span<const code_word> sensor_units()
{
    static constexpr code_word table[] = {
        {0, "unspecified"},
        {1, "degrees C"},
        {2, "degrees F"},
        {3, "degrees K"},
        {4, "volts"},
        {5, "amps"},
        {6, "watts"},
        {7, "joules"},
        {9, "VA"},
        {17, "CFM"},
        {18, "RPM"},
        {19, "hertz"},
        {20, "us"},
        {21, "ms"},
        {22, "s"},
        {23, "minutes"},
        {24, "hours"},
        {60, "dB"},
        {67, "kbit"},
        {68, "Mbit"},
        {69, "Gbit"},
        {70, "bytes"},
        {unit_percent, "percent"},
    };
    return table;
}

std::span<const code_word> entities()
{
    static constexpr code_word table[] = {
        {0, "unspecified"},       {1, "other"},
        {3, "processor"},         {4, "disk"},
        {6, "management module"}, {7, "system board"},
        {8, "memory module"},     {10, "power supply"},
        {11, "add-in card"},      {12, "front panel"},
        {13, "back panel"},       {15, "drive backplane"},
        {16, "expansion board"},  {19, "power unit"},
        {20, "power module"},     {23, "chassis"},
        {26, "drive bay"},        {29, "fan"},
        {30, "cooling unit"},     {31, "cable"},
        {32, "memory device"},    {34, "BIOS"},
        {35, "operating system"}, {39, "environment"},
        {40, "battery"},          {46, "controller firmware"},
        {48, "PCI bus"},          {55, "air inlet"},
    };
    return table;
}

std::string word_of(std::span<const code_word> table, unsigned code)
{
    for (const code_word &row : table)
        if (row.code == code)
            return row.word;
    return text("0x%02X", code);
}

}  // namespace ipmcd
