#include "ui/address.h"

#include "ui/console.h"

#include <arpa/inet.h>
#include <cstring>

static bool is_digit(char c) { return c >= '0' && c <= '9'; }

int IPCheck(const char *text, unsigned length)
{
    static constexpr unsigned longest = 15;  // 255.255.255.255
    if (text == nullptr || length > longest)
        return 0;
    const int end = int(length);
    int digits = 0, dots = 0, at = 0;
    for (; at < end; ++at) {
        if (is_digit(text[at])) {
            ++digits;
            continue;
        }
        if (text[at] != '.' || at == 0 || at == end - 1)
            break;
        if (!is_digit(text[at - 1]) || !is_digit(text[at + 1]))
            return refuse("IPCheck:go here2!");
        ++dots;
        if (digits == 0 || digits > 3)
            return refuse("IPCheck:ucDigitNum=%d,i =%d", digits, at);
        digits = 0;
    }
    return at == end && dots == 3 ? 1 : 0;
}

int mask_check(uint32_t mask)
{
    const uint32_t lowest_one = mask & (0 - mask);
    const bool ones_without_gap = mask + lowest_one == 0;  // the carry runs through all of them and out at the top
    return mask != 0 && ones_without_gap ? 0 : 1;
}

bool parse_ipv4(const char *text, uint32_t &address)
{
    in_addr converted;
    if (inet_aton(text, &converted) == 0)
        return false;
    address = ntohl(converted.s_addr);
    return address != UINT32_MAX;
}

static bool is_reasonable(const char *address_text, uint32_t address, uint32_t mask)
{
    const uint32_t first_octet = address >> 24;
    return IPCheck(address_text, unsigned(strlen(address_text))) == 1 && mask_check(mask) == 0 &&
           (address & ~mask) != 0 &&     // a host part, not all zeros
           (address | mask) + 1 != 0 &&  // and not all ones
           (address | mask) > mask &&    // Kept: the same once more
           (address & mask) != 0 &&      // a network part
           first_octet < 224 && first_octet != 0 && first_octet != 127;
}

interface_address check_interface_address(const char *address_text, const char *mask_text, uint32_t &address,
                                          uint32_t &mask)
{
    if (!parse_ipv4(address_text, address) || !parse_ipv4(mask_text, mask))
        return interface_address::unreadable;
    return is_reasonable(address_text, address, mask) ? interface_address::accepted : interface_address::unreasonable;
}
