/// LAN configuration parameters and the bracket around their writes (IPMI 2.0, Set LAN Configuration Parameters).
#pragma once

#include "ipmi/request.h"
#include "system/hold_signals.h"

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

/// The bracket, closed once: by hand where it shows whether that is before or after a text, else at the end. While it
/// is there, signals that would end the tool wait.
class lan_bracket
{
public:
    lan_bracket() : is_open(lan_set_in_progress(1) == 1), must_close(is_open) {}
    ~lan_bracket()
    {
        if (must_close)
            close();
    }
    lan_bracket(const lan_bracket &) = delete;
    lan_bracket &operator=(const lan_bracket &) = delete;

    /// False: opening it failed. It is then not closed at the end either.
    bool opened() const { return is_open; }
    /// True = closed.
    bool close()
    {
        must_close = false;
        return lan_set_in_progress(0) == 1;
    }
    /// Does not close it.
    void leave_open() { must_close = false; }

private:
    const hold_signals until_closed;
    const bool is_open;
    bool must_close;
};
