/// The areas of the document, a reader each. A reader asks for all that its area has and puts it there.
#pragma once

#include "state/ask.h"
#include "state/document.h"

#include <span>

/// The document in the making.
struct report {
    node all{node::kind::object};
    node unreadable{node::kind::list};

    /// A setting that no request reads. Nobody is to take its absence for a default.
    void cannot_read(const char *what) { unreadable.put(nullptr, what); }
};

/// Returns whether an area that was left empty is so: false = nothing of it was answered.
using area_reader = bool(report &to, node &area);
area_reader read_device, read_power, read_boot, read_fans, read_leds, read_clock, read_network, read_users,
    read_sensors, read_traps, read_event_log;

/// What Get Device ID answers. It is asked for once in a run.
const reply &device_id();

/// Asks for a LAN parameter of the management channel. The answer begins with its value, which has at least `size`
/// bytes.
reply ask_lan_parameter(uint8_t selector, uint8_t size, const char *what, uint8_t set = 0);

/// All zeros say that there is no address.
bool is_none(std::span<const uint8_t> address);
/// Puts an address, IPv4 or IPv6 by its length, in network order; null for none.
void put_address(node &to, const char *key, std::span<const uint8_t> address);

/// Puts the word of a number; nothing, but a complaint about `what`, for a number that has none.
void put_word(node &to, const char *key, unsigned number, std::span<const char *const> words, const char *what);

/// Puts a name of the controller's own. `what` is where, for a remark on a name that cannot be shown as it is.
void put_name(node &to, const char *name, const char *what);
