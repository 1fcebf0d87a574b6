/// Completion codes, as IPMI 2.0 numbers them.
#pragma once

#include <cstdint>
#include <string>

namespace ipmcd
{

/// Codes 0x80 to 0xBE belong to single commands; a handler names them itself: completion(0x81).
enum class completion : uint8_t {
    ok = 0x00,
    node_busy = 0xC0,
    invalid_command = 0xC1,
    invalid_for_lun = 0xC2,
    timeout = 0xC3,
    out_of_space = 0xC4,
    reservation_cancelled = 0xC5,
    data_truncated = 0xC6,
    length_invalid = 0xC7,
    field_length_exceeded = 0xC8,
    out_of_range = 0xC9,
    cannot_return_bytes = 0xCA,
    not_present = 0xCB,
    invalid_field = 0xCC,
    illegal_for_record = 0xCD,
    no_response_possible = 0xCE,
    duplicated_request = 0xCF,
    sdr_in_update = 0xD0,
    firmware_in_update = 0xD1,
    initializing = 0xD2,
    destination_unavailable = 0xD3,
    insufficient_privilege = 0xD4,
    not_in_this_state = 0xD5,
    sub_function_disabled = 0xD6,
    is_trap_user = 0xD7,  // the maker's own: SNMP traps go out in this user's name
    unspecified = 0xFF,
};

/// A completion code in words, for the trace.
std::string completion_words(completion code);

}  // namespace ipmcd
