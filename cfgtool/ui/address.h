/// Which typed addresses are taken. The rules lie on top of inet_aton and inet_pton, and their gaps are part of them: a
/// text that is accepted today stays accepted.
#pragma once

#include <cstdint>

/// A plain dotted quad by its characters: digits in four groups, none of the first three empty or longer than three.
/// Kept: the last group's length is not looked at, and no group's value.
///   length   of the text
///   returns  1 = a dotted quad; 0 = not, for some reasons with a line that says where it gave up
int IPCheck(const char *text, unsigned length);

/// A subnet mask in host order: ones, then zeros, and at least one 1.
///   returns  0 = valid, 1 = not
int mask_check(uint32_t mask);

/// An IPv4 address in host order, in any form that inet_aton takes, all-ones excepted. False = none.
bool parse_ipv4(const char *text, uint32_t &address);

/// How an interface address with its mask is judged.
enum class interface_address {
    accepted,
    unreadable,   // one of the two texts is no address, or is 255.255.255.255
    unreasonable  // both are, but no interface can have them
};
/// Fills both values, in host order, unless a text is unreadable.
interface_address check_interface_address(const char *address_text, const char *mask_text, uint32_t &address,
                                          uint32_t &mask);
