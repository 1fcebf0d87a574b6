/// A request to the controller's IPMI service, built byte by byte in wire order.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>

// Network functions (IPMI 2.0, Network Function Codes; PICMG 3.0; the last one is the controller maker's)
constexpr uint8_t netfn_chassis = 0x00, netfn_sensor_event = 0x04, netfn_app = 0x06, netfn_storage = 0x0A,
                  netfn_transport = 0x0C, netfn_picmg = 0x2C, netfn_oem = 0x30;

/// The request record: an IPMB frame. Bytes 0, 2, 3, 4 and the closing checksum are the transport's; byte 1 is the
/// network function shifted left by 2, byte 5 the command, the data begin at byte 6.
struct ipmi_msg {
    uint8_t byte[254];
};

class ipmi_request
{
public:
    static constexpr uint8_t header_length = 6;
    static constexpr unsigned max_data = sizeof(ipmi_msg) - header_length - 1;  // the checksum is the last byte

    ipmi_request(uint8_t netfn, uint8_t command);
    ipmi_request(const ipmi_request &) = default;
    ipmi_request &operator=(const ipmi_request &) = default;
    ~ipmi_request();  // wipes the record: it may hold a password

    ipmi_request &u8(uint8_t value)
    {
        if (length < sizeof record - 1)
            record.byte[length++] = value;
        else
            too_long = true;
        return *this;
    }
    ipmi_request &u16le(uint16_t value) { return u8(uint8_t(value)).u8(uint8_t(value >> 8)); }
    ipmi_request &u32le(uint32_t value) { return u16le(uint16_t(value)).u16le(uint16_t(value >> 16)); }
    /// Most significant byte first, as IPv4 addresses are sent.
    ipmi_request &u32be(uint32_t value) { return u16be(uint16_t(value >> 16)).u16be(uint16_t(value)); }
    ipmi_request &u16be(uint16_t value) { return u8(uint8_t(value >> 8)).u8(uint8_t(value)); }
    ipmi_request &bytes(std::span<const uint8_t> values)
    {
        for (const uint8_t value : values)
            u8(value);
        return *this;
    }
    /// A field of `width` bytes: as many characters of the text as fit, zeros behind them.
    ipmi_request &padded(const char *text, unsigned width)
    {
        for (; width > 0; --width)
            u8(*text != '\0' ? uint8_t(*text++) : uint8_t(0));
        return *this;
    }
    /// The controller maker's enterprise number, low byte first: how the data of every OEM request begin.
    ipmi_request &oem();

    uint8_t netfn() const { return record.byte[1] >> 2; }
    uint8_t command() const { return record.byte[5]; }
    /// False once more than `max_data` bytes were put in: such a request is never sent.
    bool fits() const { return !too_long; }

    ipmi_msg record;                 // as far as `length`
    uint8_t length = header_length;  // of the frame up to and including the last data byte

private:
    bool too_long = false;
};
