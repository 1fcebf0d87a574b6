/// LAN configuration parameters (IPMI 2.0, Set and Get LAN Configuration Parameters): a table of selectors to which
/// every family may add. It writes a function `std::span<const lan_parameter> NAME_lan_parameters()` in its own file
/// and has it listed in families/lan.cpp.
///
/// That channel and selector exist, that a selector of the controller maker's comes with the enterprise number, and the
/// length of the value are checked before a row is asked.
#pragma once

#include "ipmcd/family.h"

#include <span>

namespace ipmcd
{

constexpr uint8_t management_channel = 1, shared_channel = 2;
/// Selectors from here on are the maker's: the value follows the enterprise number, in requests and answers.
constexpr uint8_t first_oem_selector = 0xC0;

/// `channel` is 1 or 2. The value is all that is left to read.
using lan_setter = completion (*)(family &self, uint8_t channel, byte_reader &value);
/// `set` is the set selector of the request: which destination, for parameters that have several.
using lan_getter = completion (*)(family &self, uint8_t channel, uint8_t set, byte_writer &value);

enum class on_channels : uint8_t { management = 1 << management_channel, shared = 1 << shared_channel, both = 6 };

struct lan_parameter {
    uint8_t selector = 0;
    const char *name = nullptr;
    on_channels channels = on_channels::both;
    length_range length{};       // of the value, when it is set
    lan_setter set = nullptr;    // none: read-only
    lan_getter get = nullptr;    // none: write-only
    data_words words = nullptr;  // of the value, for the trace
    bool secret = false;         // the trace masks the value
};

/// Make setter and getter out of member functions of a family: lan_set<&lan::set_address>.
template <typename method>
struct lan_method_owner;
template <typename owner, typename... argument>
struct lan_method_owner<completion (owner::*)(argument...)> {
    using type = owner;
};
template <auto method>
completion lan_set(family &self, uint8_t channel, byte_reader &value)
{
    return (static_cast<typename lan_method_owner<decltype(method)>::type &>(self).*method)(channel, value);
}
template <auto method>
completion lan_get(family &self, uint8_t channel, uint8_t set, byte_writer &value)
{
    return (static_cast<typename lan_method_owner<decltype(method)>::type &>(self).*method)(channel, set, value);
}

}  // namespace ipmcd
