/// The requests that cfgtool-state may send, byte by byte. Whatever else it sends is a mistake: it never changes
/// anything.
#pragma once

#include <cstdint>
#include <set>
#include <vector>

namespace allowed
{

using bytes = std::vector<uint8_t>;  // network function, command, data

/// All that depends on nothing.
inline std::set<bytes> make_list()
{
    std::set<bytes> all = {
        {0x06, 0x01},                          // Get Device ID
        {0x00, 0x01},                          // Get Chassis Status
        {0x00, 0x09, 0x05, 0x00, 0x00},        // Get System Boot Options: flags
        {0x00, 0x09, 0x62, 0x00, 0x00},        // shutdown time-out
        {0x00, 0x09, 0x63, 0x00, 0x00},        // BIOS write protection
        {0x30, 0x91, 0xD9, 0x7E, 0x00, 0x02},  // Get Fan Mode
        {0x2C, 0x16, 0x00, 0x00},              // Get Fan Level
        {0x2C, 0x05, 0x00, 0x00},              // Get FRU LED Properties
        {0x0A, 0x48},                          // Get SEL Time
        {0x0A, 0x5C},                          // Get SEL Time UTC Offset
        {0x0A, 0x40},                          // Get SEL Info
        {0x30, 0x16, 0xD9, 0x7E, 0x00},        // Get NIC Port Count
        {0x0C, 0x02, 0x01, 0xC1, 0x00, 0x00},  // Get LAN Configuration Parameters: trap destinations
        {0x0C, 0x02, 0x01, 0xC2, 0x00, 0x00},  // traps
        {0x0C, 0x02, 0x01, 0xC3, 0x00, 0x00},  // trap version
        {0x0C, 0x02, 0x01, 0xC4, 0x00, 0x00},  // trap severity
    };
    for (const uint8_t selector : bytes{0x03, 0x04, 0x05, 0x06, 0x0C, 0x14, 0xCC, 0xCD, 0xCE, 0xD0, 0xD7})
        all.insert({0x0C, 0x02, 0x01, selector, 0x00, 0x00});
    for (uint8_t destination = 1; destination <= 4; ++destination) {
        all.insert({0x0C, 0x02, 0x01, 0xC0, destination, 0x00});
        all.insert({0x0C, 0x02, 0x01, 0xD1, destination, 0x00});
    }
    for (uint8_t user = 2; user <= 17; ++user) {
        all.insert({0x06, 0x46, user});        // Get User Name
        all.insert({0x06, 0x44, 0x01, user});  // Get User Access
    }
    for (unsigned led = 0; led <= 0xFB; ++led)
        all.insert({0x2C, 0x08, 0x00, 0x00, uint8_t(led)});  // Get FRU LED State
    for (unsigned sensor = 0; sensor <= 0xFF; ++sensor) {
        all.insert({0x04, 0x2D, uint8_t(sensor)});        // Get Sensor Reading
        all.insert({0x04, 0x27, uint8_t(sensor)});        // Get Sensor Thresholds
        all.insert({0x04, 0x25, uint8_t(sensor), 0xFF});  // Get Sensor Hysteresis
    }
    return all;
}

/// Looks at the requests of one run, in their order.
class watch
{
public:
    /// `completion` is what comes back for the one before; anything where nothing did.
    void answered(uint8_t completion) { refused = refused || (was_whole_record && completion != 0); }

    bool permits(const bytes &request)
    {
        static const std::set<bytes> list = make_list();
        was_whole_record = false;
        if (list.contains(request))
            return true;
        const bool of_repository = request.size() >= 2 && request[0] == 0x0A, of_device = request[0] == 0x04;
        const bool reads = (of_repository && request[1] == 0x23) || (of_device && request[1] == 0x21);
        const bool reserves = (of_repository || of_device) && request[1] == 0x22 && request.size() == 2;
        if (reserves)  // Reserve SDR Repository, Reserve Device SDR Repository
            return refused;
        if (!reads || request.size() != 8)
            return false;
        was_whole_record = request[2] == 0 && request[3] == 0 && request[6] == 0 && request[7] == 0xFF;
        return was_whole_record ? !refused : refused;
    }

private:
    bool was_whole_record = false;
    bool refused = false;  // a record in one piece was
};

}  // namespace allowed
