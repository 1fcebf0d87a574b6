/// The management port: its addresses (IPMI 2.0, LAN Configuration Parameters; those of IPv6 are the controller
/// maker's) and which way its traffic takes.
#include "ipmi/get_requests.h"
#include "state/areas.h"

#include <algorithm>
#include <cstdio>

using value_bytes = std::span<const uint8_t>;

static void put_ipv4(node &to, const char *key, value_bytes value, const char *)
{
    put_address(to, key, value.first<4>());
}

/// The last byte comes first.
static void put_ipv6(node &to, const char *key, value_bytes value, const char *)
{
    uint8_t address[16];
    std::reverse_copy(value.begin(), value.begin() + sizeof address, address);
    put_address(to, key, address);
}

static void put_byte(node &to, const char *key, value_bytes value, const char *) { to.put(key, value[0]); }

static void put_source(node &to, const char *key, value_bytes value, const char *what)
{
    static constexpr const char *words[] = {"unspecified", "static", "dhcp", "bios", "other"};
    put_word(to, key, value[0] & 0x0FU, words, what);
}

static void put_mac(node &to, const char *key, value_bytes value, const char *)
{
    char text[18];
    snprintf(text, sizeof text, "%02x:%02x:%02x:%02x:%02x:%02x", value[0], value[1], value[2], value[3], value[4],
             value[5]);
    to.put(key, text);
}

static void put_vlan(node &to, const char *key, value_bytes value, const char *)
{
    static constexpr unsigned enabled = 0x8000, id_bits = 0x0FFF;
    const unsigned vlan = ipmi_reader(value).u16le();
    if ((vlan & enabled) != 0)
        to.put(key, vlan & id_bits);
    else
        to.put_null(key);
}

static void put_mode(node &to, const char *key, value_bytes value, const char *what)
{
    static constexpr const char *words[] = {nullptr, "dedicated", "shared", "adaptive"};
    put_word(to, key, value[0], words, what);
}

/// A LAN parameter, and the key that it goes to.
struct parameter {
    uint8_t selector, size;
    const char *key;
    void (*put)(node &to, const char *key, value_bytes value, const char *what);
};

static void read_parameter(node &to, const char *where, const parameter &row)
{
    const char *const what = path("%s.%s", where, row.key);
    const reply got = ask_lan_parameter(row.selector, row.size, what);
    if (got.has_none())
        to.put_null(row.key);
    else if (got.ok())
        row.put(to, row.key, got.value(), what);
}

static constexpr parameter ipv4_parameters[] = {
    {0x03, 4, "address", put_ipv4},
    {0x06, 4, "mask", put_ipv4},
    {0x0C, 4, "gateway", put_ipv4},
    {0x04, 1, "source", put_source},
};
static constexpr parameter port_parameters[] = {
    {0xCE, 16, "gateway6", put_ipv6}, {0xD0, 1, "source6", put_source}, {0x05, 6, "mac", put_mac},
    {0x14, 2, "vlan", put_vlan},      {0xD7, 1, "mode", put_mode},
};

/// The port has one address, or none.
static void read_ipv6(node &port)
{
    static constexpr parameter prefix = {0xCD, 1, "prefix", put_byte};
    static constexpr uint8_t address_selector = 0xCC, address_size = 16;
    const reply got = ask_lan_parameter(address_selector, address_size, "network.eth0.ipv6");
    if (!got.ok() && !got.has_none())
        return;
    node &addresses = port.list("ipv6");
    if (got.has_none() || is_none(got.value().first<address_size>()))
        return;
    node &address = addresses.object(nullptr);
    put_ipv6(address, "address", got.value(), nullptr);
    read_parameter(address, "network.eth0.ipv6", prefix);
}

/// Which port of the host's network card is chosen is not read by any request, only whether there is such a card.
static void read_sideband_port(report &to, node &port)
{
    static constexpr char what[] = "network.eth0.sideband_port";
    const reply got = ask(get_nic_port_count(), {3, 1}, what);  // the enterprise number comes first
    if (got.ok() && got.value(0) == 0)
        port.put_null("sideband_port");
    else
        to.cannot_read(what);
}

bool read_network(report &to, node &area)
{
    node &port = area.object("eth0");
    node &ipv4 = port.object("ipv4");
    for (const parameter &row : ipv4_parameters)
        read_parameter(ipv4, "network.eth0.ipv4", row);
    read_ipv6(port);
    for (const parameter &row : port_parameters)
        read_parameter(port, "network.eth0", row);
    read_sideband_port(to, port);
    to.cannot_read("network.services");
    return false;
}
