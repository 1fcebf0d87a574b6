/// SNMP traps: where they go, and which are sent. All of it is LAN parameters of the controller maker's.
#include "state/areas.h"
#include "state/complaints.h"

static constexpr uint8_t destination_count = 4;

static void read_address(node &destination, uint8_t id)
{
    static constexpr size_t header = 2;  // the destination's number, the type of the address
    static constexpr uint8_t ipv4 = 4, ipv6 = 16;
    const char *const what = path("traps.destinations[%u].address", id);
    const reply got = ask_lan_parameter(0xD1, header + ipv4, what, id);
    if (got.has_none())
        destination.put_null("address");
    if (!got.ok())
        return;
    const uint8_t type = got.value(1);
    if (type > 1)
        complain("%s: an address of type %u has no meaning", what, type);
    else if (type == 0)
        put_address(destination, "address", got.value().subspan(header, ipv4));
    else if (has_bytes(got, header + ipv6, what))
        put_address(destination, "address", got.value().subspan(header, ipv6));
}

static void read_port(node &destination, uint8_t id)
{
    const reply got = ask_lan_parameter(0xC0, 3, path("traps.destinations[%u].port", id), id);
    if (got.ok())
        destination.put("port", got.read().skip(1).u16le());  // past the destination's number
    else if (got.has_none())
        destination.put_null("port");
}

static void read_destinations(node &area)
{
    node &all = area.list("destinations");
    const reply switches = ask_lan_parameter(0xC1, 4, "traps.destinations.enabled");
    for (uint8_t id = 1; id <= destination_count; ++id) {
        node &destination = all.object(nullptr);
        destination.put("id", id);
        read_address(destination, id);
        read_port(destination, id);
        if (switches.ok())  // past the mask of those that there are, a bit for the first destination and so on
            destination.put("enabled", (switches.read().skip(2).u16le() & 1 << (id - 1)) != 0);
        else if (switches.has_none())
            destination.put_null("enabled");
    }
}

/// A parameter with one value, the number of a word.
static void read_choice(node &area, const char *key, uint8_t selector, uint8_t at, std::span<const char *const> words)
{
    const char *const what = path("traps.%s", key);
    const reply got = ask_lan_parameter(selector, uint8_t(at + 1), what);
    if (got.ok())
        put_word(area, key, got.value(at), words, what);
    else if (got.has_none())
        area.put_null(key);
}

bool read_traps(report &to, node &area)
{
    static constexpr const char *versions[] = {nullptr, "V1", "V2C", "V3"};
    static constexpr const char *severities[] = {"all", "minor", "major", "critical"};
    read_destinations(area);
    if (const reply got = ask_lan_parameter(0xC2, 1, "traps.enabled"); got.ok())
        area.put("enabled", got.value(0) != 0);
    else if (got.has_none())
        area.put_null("enabled");
    read_choice(area, "version", 0xC3, 0, versions);
    read_choice(area, "severity", 0xC4, 1, severities);
    for (const char *what : {"traps.auth_priv_protocol", "traps.community", "traps.mode", "traps.user"})
        to.cannot_read(what);
    return false;
}
