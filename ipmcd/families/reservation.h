/// A reservation (IPMI 2.0, Reserve SEL, Reserve SDR Repository): whoever asked last has it, until it is cancelled.
#pragma once

#include <cstdint>

namespace ipmcd
{

class reservation
{
public:
    /// A new one, never 0 and never the one before; the old one is void.
    uint16_t take()
    {
        last = last == UINT16_MAX ? uint16_t{1} : uint16_t(last + 1);
        return present = last;
    }
    void cancel() { present = 0; }
    bool is(uint16_t id) const { return present != 0 && id == present; }

private:
    uint16_t present = 0;  // 0 = nobody has one
    uint16_t last = 0;
};

}  // namespace ipmcd
