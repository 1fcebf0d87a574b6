#include "ipmi/lan_parameters.h"

#include "ipmi/transport.h"

ipmi_request set_lan_parameter(uint8_t channel, uint8_t selector)
{
    return ipmi_request(netfn_transport, 0x01).u8(channel).u8(selector);
}

ipmi_request set_oem_lan_parameter(uint8_t channel, uint8_t selector)
{
    return set_lan_parameter(channel, selector).oem();
}

int lan_set_in_progress(uint8_t value)
{
    static constexpr uint8_t set_in_progress = 0x00;
    if (value > 1)
        return 0;
    // Kept: the one channel, for the other port too.
    const ipmi_answer got = exchange(set_lan_parameter(lan_channel, set_in_progress).u8(value));
    if (got.ok())
        return 1;
    g_error_code = got.error_code(value);  // Kept: the value, where all others show the selector
    return 0;
}
