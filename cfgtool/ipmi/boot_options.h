/// The host's boot options, as several commands write them (IPMI 2.0, Set and Get System Boot Options).
#pragma once

#include "ipmi/bracket.h"
#include "ipmi/request.h"

#include <cstdint>

/// Set System Boot Options; the parameter's data follow.
ipmi_request set_boot_option(uint8_t parameter);
constexpr uint8_t boot_option_set_in_progress = 0, boot_option_flags = 5;
constexpr uint8_t boot_option_shutdown_timeout = 0x62, boot_option_bios_protect = 0x63;  // the controller maker's

/// Opens (1) or closes (0) the bracket around writes of boot options. A bracket that is open already is no failure.
///   returns  1 = done; 0 = not, and g_error_code says why (left alone for a value above 1)
int set_boot_option_progress(uint8_t value);
struct boot_option_bracket : bracket {
    boot_option_bracket() : bracket(set_boot_option_progress) {}
};

/// Closes it by hand, with the last word on the command: a failure is one, though nothing is printed.
///   returns  1 = closed; 0 = not, and g_error_code says why
int close_and_decide(boot_option_bracket &bracket);

/// The boot flags, parameter 5.
struct boot_flags {
    uint8_t byte[5];

    static constexpr uint8_t valid = 0x80;             // byte 1
    static constexpr uint8_t clear_cmos = 0x80;        // byte 2
    static constexpr uint8_t device_mask = 0x0F << 2;  // byte 2, the boot device selector
    uint8_t &byte1() { return byte[0]; }
    uint8_t &byte2() { return byte[1]; }
};

/// Reads the boot flags. Fewer than five bytes in the answer leave the rest 0.
///   returns  1 = read; 0 = not, and g_error_code says why
int get_boot_flags(boot_flags &flags);
ipmi_request set_boot_flags(const boot_flags &flags);
