/// LAN configuration parameters and the bracket around their writes (IPMI 2.0, Set LAN Configuration Parameters).
#pragma once

#include "ipmi/bracket.h"
#include "ipmi/request.h"

#include <cstdint>

constexpr uint8_t lan_channel = 1, shared_lan_channel = 2;

/// What error codes show of an OEM request where a LAN request has its selector: the second byte of the enterprise
/// number.
constexpr uint8_t oem_selector = uint8_t(OEM_IANA >> 8);

/// Set LAN Configuration Parameters; the parameter's data follow.
ipmi_request set_lan_parameter(uint8_t channel, uint8_t selector);
/// The same for a selector of the controller maker's, whose data begin with the enterprise number.
ipmi_request set_oem_lan_parameter(uint8_t channel, uint8_t selector);

/// Opens (1) or closes (0) the bracket around writes of LAN parameters, always on channel 1.
///   returns  1 = done; 0 = not, and g_error_code says why, with the value in place of the selector (left alone for a
///            value above 1)
int lan_set_in_progress(uint8_t value);

struct lan_bracket : bracket {
    lan_bracket() : bracket(lan_set_in_progress) {}
};
