/// What /data/cli.conf says about the board. Read once at start-up.
#pragma once

#include <cstdint>

struct board_profile {
    int32_t fru_count = 1;      // [FRU_PROPERTITY] Fru_Num
    int32_t min_fan_level = 0;  // [FAN_PROPERTITY] FAN_MinLevel, percent; 0 = no minimum
    int32_t mac_count = 0;      // [MAC_PROPERTITY] MAC_Num, or what the board itself reports
    char mac_name[128] = "";    // [MAC_PROPERTITY] MAC_Name, the interface name
};
extern board_profile board;

/// Fills `board`. A missing file or value leaves or sets a default; what is missing in [MAC_PROPERTITY] is told.
void read_board_profile();
