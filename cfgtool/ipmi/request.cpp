#include "ipmi/request.h"

#include "platform/platform.h"

ipmi_request::ipmi_request(uint8_t netfn, uint8_t command)
{
    memset(record.byte, 0, header_length);
    record.byte[1] = uint8_t(netfn << 2);
    record.byte[5] = command;
}

ipmi_request::~ipmi_request() { vos_memset(&record, sizeof record, 0, length); }

ipmi_request &ipmi_request::oem()
{
    static_assert(OEM_IANA >= 0 && OEM_IANA <= 0xFFFFFF, "an enterprise number has three bytes here");
    return u16le(uint16_t(OEM_IANA)).u8(uint8_t(OEM_IANA >> 16));
}
