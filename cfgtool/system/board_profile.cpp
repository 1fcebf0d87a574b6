#include "system/board_profile.h"

#include "platform/platform.h"
#include "ui/arguments.h"
#include "ui/console.h"

board_profile board;

/// The value of a key behind position `section`; null when there is none or it is empty.
static const char *find_value(void *file, long section, const char *key)
{
    char *value = nullptr;
    int found = 0;
    KeySearch(file, section, key, "=", &value, &found);
    return found == 1 && value != nullptr && *value != '\0' ? value : nullptr;
}

/// The position of a section at or behind `start`, 0 when there is none.
static long find_section(void *file, long start, const char *section)
{
    char *value = nullptr;
    int found = 0;
    const long position = KeySearch(file, start, section, "=", &value, &found);
    return found == 1 ? position : 0;
}

static int32_t number_or(const char *value, int32_t missing)
{
    return value != nullptr ? leading_number(value) : missing;
}

static void read_mac_properties(void *file, long section)
{
    const char *count = find_value(file, section, "MAC_Num");
    board.mac_count = number_or(count, 10);
    if (count == nullptr)
        say("\r\nGet MAC_Num fail ");  // Kept: a blank behind it
    if (const int on_board = get_mac_num(); on_board > 0)
        board.mac_count = on_board;

    const char *name = find_value(file, section, "MAC_Name");
    vos_strncpy(board.mac_name, sizeof board.mac_name, name != nullptr ? name : "NIC", sizeof board.mac_name - 1);
    if (name == nullptr)
        say("\r\nGet MAC_Name fail 2");
}

void read_board_profile()
{
    void *file = CfgFileOpenReadOnly("/data/cli.conf");
    if (file == nullptr) {
        say("open cli.conf file fails.");
        return;
    }
    // Each section is searched from where the one before was found, so they are expected in this order.
    long section = find_section(file, 0, "[FRU_PROPERTITY]");  // Kept: spelled so, here and below
    if (section != 0)
        board.fru_count = number_or(find_value(file, section, "Fru_Num"), 1);
    section = find_section(file, section, "[FAN_PROPERTITY]");
    if (section != 0)
        board.min_fan_level = number_or(find_value(file, section, "FAN_MinLevel"), 30);
    section = find_section(file, section, "[MAC_PROPERTITY]");
    if (section != 0)
        read_mac_properties(file, section);
    CfgFileClose(file);
}
