/// LAN configuration parameters (IPMI 2.0): the commands, for the parameters of all families, and the addresses of the
/// controller's two ports: the management port, channel 1, and the port it shares with the host, channel 2.
#include "ipmcd/families/lan.h"
#include "ipmcd/controller.h"
#include "ipmcd/text.h"

#include <algorithm>
#include <arpa/inet.h>

namespace ipmcd
{

std::span<const lan_parameter> lan_lan_parameters();
std::span<const lan_parameter> nic_lan_parameters();
std::span<const lan_parameter> traps_lan_parameters();

namespace
{

/// All families that have LAN parameters, by name.
struct lan_table {
    const char *family;
    std::span<const lan_parameter> (*rows)();
};
constexpr lan_table tables[] = {
    {"lan", lan_lan_parameters},
    {"nic", nic_lan_parameters},
    {"traps", traps_lan_parameters},
};

constexpr uint8_t parameter_revision = 0x11;
constexpr uint8_t revision_only = 0x80;
constexpr uint8_t present_channel = 0x0E;  // "the one this request came by": requests on the socket count as channel 1
constexpr completion parameter_unknown{0x80}, already_in_progress{0x81}, read_only{0x82}, write_only{0x83};

using ipv4 = std::array<uint8_t, 4>;
using mac = std::array<uint8_t, 6>;
/// In network order. On the wire of these parameters the last byte goes first.
struct ipv6 : std::array<uint8_t, 16> {
};

enum source : uint8_t { static_ = 1, dhcp = 2 };
constexpr const char *source_words[] = {"unspecified", "static", "dhcp"};

constexpr uint16_t vlan_id_bits = 0x0FFF, vlan_enabled = 0x8000;
constexpr uint16_t largest_vlan_id = 4094;
constexpr uint8_t longest_prefix = 128;

struct port {
    uint8_t set_in_progress = 0;
    uint8_t source = static_;
    ipv4 address{};
    ipv4 mask{255, 255, 255, 0};
    ipv4 gateway{};
    mac hardware_address{};
    uint16_t vlan = 0;
    uint8_t source6 = static_;
    ipv6 address6{};
    uint8_t prefix_length = 64;
    ipv6 gateway6{};
};

using ports = std::array<port, 2>;

/// Addresses from the networks kept for documentation.
ports factory_ports()
{
    ports made;
    made[0].address = {192, 0, 2, 10};
    made[0].gateway = {192, 0, 2, 1};
    made[0].hardware_address = {0x02, 0, 0, 0, 0, 1};
    made[1].address = {198, 51, 100, 10};
    made[1].gateway = {198, 51, 100, 1};
    made[1].hardware_address = {0x02, 0, 0, 0, 0, 2};
    return made;
}

class lan final : public family
{
public:
    explicit lan(controller &owner) : board(owner) {}

    const char *name() const override { return "lan"; }
    std::span<const command> commands() const override;
    void reset() override { state = factory_ports(); }
    void restart() override;
    json to_json() const override;
    void from_json(const json &json) override;

    completion set_progress(uint8_t channel, byte_reader &value);
    template <auto field, auto check>
    completion set_field(uint8_t channel, byte_reader &value);
    template <auto field>
    completion get_field(uint8_t channel, uint8_t set, byte_writer &value);
    completion get_authentication_types(uint8_t channel, uint8_t set, byte_writer &value);

private:
    static const command table[];

    completion set_parameter(byte_reader &request, byte_writer &answer);
    completion get_parameter(byte_reader &request, byte_writer &answer);

    controller &board;
    ports state = factory_ports();
};

// The commands -------------------------------------------------------------------------------------------------------

struct found_parameter {
    const char *family = nullptr;
    const lan_parameter *row = nullptr;
};

bool is_on(const lan_parameter &row, uint8_t channel) { return (uint8_t(row.channels) & 1 << channel) != 0; }

found_parameter find_parameter(uint8_t channel, uint8_t selector)
{
    for (const lan_table &table : tables)
        for (const lan_parameter &row : table.rows())
            if (row.selector == selector && is_on(row, channel))
                return {table.family, &row};
    return {};
}

/// The channel in the low bits of a byte; 0 = there is no such channel.
uint8_t channel_in(uint8_t byte)
{
    const uint8_t channel = byte & 0x0F;
    if (channel == present_channel)
        return management_channel;
    return channel == management_channel || channel == shared_channel ? channel : 0;
}

/// Of the maker's selectors the enterprise number goes ahead of the value.
completion take_enterprise(byte_reader &data)
{
    if (data.left() < oem_iana.size())
        return completion::length_invalid;
    const auto given = data.bytes(oem_iana.size());
    return std::equal(given.begin(), given.end(), oem_iana.begin()) ? completion::ok : completion::invalid_field;
}

completion lan::set_parameter(byte_reader &request, byte_writer &)
{
    const uint8_t channel_byte = request.u8();
    const uint8_t channel = channel_in(channel_byte);
    if (channel == 0 || (channel_byte & 0xF0) != 0)
        return completion::invalid_field;
    const auto [owner, row] = find_parameter(channel, request.u8());
    if (!row)
        return parameter_unknown;
    if (row->selector >= first_oem_selector)
        if (const completion refused = take_enterprise(request); refused != completion::ok)
            return refused;
    if (!row->set)
        return read_only;
    if (request.left() < row->length.smallest || request.left() > row->length.largest)
        return completion::length_invalid;
    return row->set(board.member(owner), channel, request);
}

completion lan::get_parameter(byte_reader &request, byte_writer &answer)
{
    const uint8_t channel_byte = request.u8();
    const uint8_t channel = channel_in(channel_byte);
    if (channel == 0 || (channel_byte & 0x70) != 0)
        return completion::invalid_field;
    const auto [owner, row] = find_parameter(channel, request.u8());
    if (!row)
        return parameter_unknown;
    answer.u8(parameter_revision);
    if ((channel_byte & revision_only) != 0)
        return completion::ok;
    if (!row->get)
        return write_only;
    if (row->selector >= first_oem_selector)
        answer.bytes(oem_iana);
    return row->get(board.member(owner), channel, request.u8(), answer);
}

// The ports' own parameters ------------------------------------------------------------------------------------------

/// Tells others that somebody is writing; it keeps nobody from it, and what is written holds at once.
completion lan::set_progress(uint8_t channel, byte_reader &value)
{
    const uint8_t wanted = value.u8();
    if (wanted > 1)
        return completion::invalid_field;  // "commit write" belongs to a roll-back that this controller has not
    uint8_t &present = state[channel - 1U].set_in_progress;
    if (wanted == 1 && present == 1)
        return already_in_progress;
    present = wanted;
    return completion::ok;
}

void read(byte_reader &from, uint8_t &to) { to = from.u8(); }
void read(byte_reader &from, uint16_t &to) { to = from.u16le(); }
template <size_t size>
void read(byte_reader &from, std::array<uint8_t, size> &to)
{
    std::ranges::copy(from.bytes(size), to.begin());
}
void read(byte_reader &from, ipv6 &to) { std::ranges::copy(from.bytes(to.size()), to.rbegin()); }

void write(byte_writer &to, uint8_t value) { to.u8(value); }
void write(byte_writer &to, uint16_t value) { to.u16le(value); }
template <size_t size>
void write(byte_writer &to, const std::array<uint8_t, size> &value)
{
    to.bytes(value);
}
void write(byte_writer &to, const ipv6 &value)
{
    for (auto byte = value.rbegin(); byte != value.rend(); ++byte)
        to.u8(*byte);
}

template <auto field, auto check>
completion lan::set_field(uint8_t channel, byte_reader &value)
{
    auto wanted = state[channel - 1U].*field;
    read(value, wanted);
    const completion code = check(wanted);
    if (code == completion::ok)
        state[channel - 1U].*field = wanted;
    return code;
}

template <auto field>
completion lan::get_field(uint8_t channel, uint8_t, byte_writer &value)
{
    write(value, state[channel - 1U].*field);
    return completion::ok;
}

completion lan::get_authentication_types(uint8_t, uint8_t, byte_writer &value)
{
    value.u8(0);  // no sessions: this controller has no network of its own
    return completion::ok;
}

completion valid_if(bool valid) { return valid ? completion::ok : completion::invalid_field; }

completion check_source(uint8_t value) { return valid_if(value == static_ || value == dhcp); }

/// 0.0.0.0 says that there is none. Loopback, multicast and what is beyond belong to no port.
completion check_ipv4(const ipv4 &value)
{
    return valid_if(value == ipv4{} || (value[0] != 0 && value[0] != 127 && value[0] < 224));
}

completion check_mask(const ipv4 &value)
{
    const uint32_t mask = uint32_t{value[0]} << 24 | uint32_t{value[1]} << 16 | uint32_t{value[2]} << 8 | value[3];
    const uint32_t host_part = ~mask;
    return valid_if((host_part & (host_part + 1)) == 0);  // ones without a gap
}

completion check_vlan(uint16_t value)
{
    if ((value & ~(vlan_enabled | vlan_id_bits)) != 0)
        return completion::invalid_field;
    const uint16_t id = value & vlan_id_bits;
    const bool usable = id >= 1 && id <= largest_vlan_id;
    return usable || (value & vlan_enabled) == 0 ? completion::ok : completion::out_of_range;
}

completion check_prefix(uint8_t value) { return value <= longest_prefix ? completion::ok : completion::out_of_range; }

/// "::" says that there is none. Multicast belongs to no port.
completion check_ipv6(const ipv6 &value) { return valid_if(value[0] != 0xFF); }

void lan::restart()
{
    for (port &one : state)
        one.set_in_progress = 0;
}

// Words and JSON -----------------------------------------------------------------------------------------------------

std::string words(const ipv4 &value) { return text("%u.%u.%u.%u", value[0], value[1], value[2], value[3]); }

std::string words(const ipv6 &value)
{
    std::array<char, INET6_ADDRSTRLEN> made{};
    return inet_ntop(AF_INET6, value.data(), made.data(), made.size());
}

template <typename address>
void read_address(json_fields &fields, const char *key, int kind, address &value)
{
    std::string given = words(value);
    fields.text(key, given, INET6_ADDRSTRLEN);
    if (inet_pton(kind, given.c_str(), value.data()) != 1)
        fields.refuse(key, kind == AF_INET ? "an IPv4 address is needed here" : "an IPv6 address is needed here");
}

json port_to_json(const port &one)
{
    return {{"set_in_progress", one.set_in_progress == 1},
            {"source", source_words[one.source]},
            {"address", words(one.address)},
            {"mask", words(one.mask)},
            {"gateway", words(one.gateway)},
            {"hardware_address", hex(one.hardware_address)},
            {"vlan_enabled", (one.vlan & vlan_enabled) != 0},
            {"vlan_id", one.vlan & vlan_id_bits},
            {"ipv6_source", source_words[one.source6]},
            {"ipv6_address", words(one.address6)},
            {"ipv6_prefix_length", one.prefix_length},
            {"ipv6_gateway", words(one.gateway6)}};
}

void read_vlan(json_fields &fields, uint16_t &vlan)
{
    bool enabled = (vlan & vlan_enabled) != 0;
    uint16_t id = vlan & vlan_id_bits;
    fields.boolean("vlan_enabled", enabled);
    fields.number("vlan_id", id, 0, vlan_id_bits);
    vlan = uint16_t(id | (enabled ? vlan_enabled : 0));
    if (check_vlan(vlan) != completion::ok)
        fields.refuse("vlan_id", "a number from 1 to 4094 is needed here while the VLAN is enabled");
}

/// What a request could not have set, a state cannot either.
void check_addresses(const json_fields &fields, const port &one)
{
    const auto refuse_unless = [&](completion code, const char *key, const char *why) {
        if (code != completion::ok)
            fields.refuse(key, why);
    };
    static constexpr char no_port_has_it[] = "an address that a port can have is needed here";
    refuse_unless(check_source(one.source), "source", "\"static\" or \"dhcp\" is needed here");
    refuse_unless(check_source(one.source6), "ipv6_source", "\"static\" or \"dhcp\" is needed here");
    refuse_unless(check_ipv4(one.address), "address", no_port_has_it);
    refuse_unless(check_mask(one.mask), "mask", "a mask of ones without a gap is needed here");
    refuse_unless(check_ipv4(one.gateway), "gateway", no_port_has_it);
    refuse_unless(check_ipv6(one.address6), "ipv6_address", no_port_has_it);
    refuse_unless(check_ipv6(one.gateway6), "ipv6_gateway", no_port_has_it);
}

void port_from_json(const json &json, const std::string &where, port &one)
{
    json_fields fields(json, where);
    bool in_progress = one.set_in_progress == 1;
    fields.boolean("set_in_progress", in_progress);
    one.set_in_progress = in_progress;
    fields.choice("source", one.source, source_words);
    read_address(fields, "address", AF_INET, one.address);
    read_address(fields, "mask", AF_INET, one.mask);
    read_address(fields, "gateway", AF_INET, one.gateway);
    fields.bytes("hardware_address", one.hardware_address);
    read_vlan(fields, one.vlan);
    fields.choice("ipv6_source", one.source6, source_words);
    read_address(fields, "ipv6_address", AF_INET6, one.address6);
    fields.number("ipv6_prefix_length", one.prefix_length, 0, longest_prefix);
    read_address(fields, "ipv6_gateway", AF_INET6, one.gateway6);
    fields.done();
    check_addresses(fields, one);
}

json lan::to_json() const { return {{"1", port_to_json(state[0])}, {"2", port_to_json(state[1])}}; }

void lan::from_json(const json &json)
{
    ports wanted = state;
    json_fields fields(json, "/lan");
    if (const auto *part = fields.find("1"))
        port_from_json(*part, "/lan/1", wanted[0]);
    if (const auto *part = fields.find("2"))
        port_from_json(*part, "/lan/2", wanted[1]);
    fields.done();
    state = wanted;
}

std::string words_of_progress(byte_reader &value)
{
    const uint8_t progress = value.u8();
    static constexpr const char *known[] = {"set complete", "set in progress", "commit write"};
    return progress < std::size(known) ? known[progress] : text("%u", progress);
}

template <typename type>
std::string words_of_address(byte_reader &value)
{
    type address{};
    read(value, address);
    return words(address);
}

std::string words_of_source(byte_reader &value)
{
    const uint8_t source = value.u8();
    return source == static_ || source == dhcp ? source_words[source] : text("%u", source);
}

std::string words_of_vlan(byte_reader &value)
{
    const uint16_t vlan = value.u16le();
    return text("%u, %s", vlan & vlan_id_bits, (vlan & vlan_enabled) != 0 ? "on" : "off");
}

std::string words_of_prefix(byte_reader &value) { return text("/%u", value.u8()); }

/// "channel 1, IP address"; leaves the reader behind the selector.
std::string words_of_parameter(byte_reader &data, const lan_parameter *&row)
{
    const uint8_t channel_byte = data.u8();
    const uint8_t selector = data.u8();
    row = find_parameter(channel_in(channel_byte), selector).row;
    return text("channel %u, ", channel_byte & 0x0F) + (row ? row->name : text("parameter 0x%02X", selector));
}

std::string words_of_set(byte_reader &data)
{
    const lan_parameter *row = nullptr;
    std::string which = words_of_parameter(data, row);
    if (!row || (row->selector >= first_oem_selector && take_enterprise(data) != completion::ok))
        return which;
    const bool fits = data.left() >= row->length.smallest && data.left() <= row->length.largest;
    return row->words && fits ? which + " " + row->words(data) : which;
}

/// Whatever the channel: of one that does not exist the value is no less secret.
size_t open_part_of_set(std::span<const uint8_t> data)
{
    constexpr size_t value_at = 2;
    for (const lan_table &table : tables)
        for (const lan_parameter &row : table.rows())
            if (row.secret && data.size() > value_at && data[value_at - 1] == row.selector)
                return value_at;
    return data.size();
}

std::string words_of_get(byte_reader &data)
{
    const lan_parameter *row = nullptr;
    return words_of_parameter(data, row);
}

constexpr lan_parameter own_parameters[] = {
    {.selector = 0x00,
     .name = "Set In Progress:",
     .length = {1, 1},
     .set = lan_set<&lan::set_progress>,
     .get = lan_get<&lan::get_field<&port::set_in_progress>>,
     .words = words_of_progress},
    {.selector = 0x01, .name = "authentication types", .get = lan_get<&lan::get_authentication_types>},
    {.selector = 0x03,
     .name = "IP address",
     .length = {4, 4},
     .set = lan_set<&lan::set_field<&port::address, check_ipv4>>,
     .get = lan_get<&lan::get_field<&port::address>>,
     .words = words_of_address<ipv4>},
    {.selector = 0x04,
     .name = "IP address source",
     .length = {1, 1},
     .set = lan_set<&lan::set_field<&port::source, check_source>>,
     .get = lan_get<&lan::get_field<&port::source>>,
     .words = words_of_source},
    {.selector = 0x05, .name = "MAC address", .get = lan_get<&lan::get_field<&port::hardware_address>>},
    {.selector = 0x06,
     .name = "subnet mask",
     .length = {4, 4},
     .set = lan_set<&lan::set_field<&port::mask, check_mask>>,
     .get = lan_get<&lan::get_field<&port::mask>>,
     .words = words_of_address<ipv4>},
    {.selector = 0x0C,
     .name = "default gateway",
     .length = {4, 4},
     .set = lan_set<&lan::set_field<&port::gateway, check_ipv4>>,
     .get = lan_get<&lan::get_field<&port::gateway>>,
     .words = words_of_address<ipv4>},
    {.selector = 0x14,
     .name = "VLAN",
     .length = {2, 2},
     .set = lan_set<&lan::set_field<&port::vlan, check_vlan>>,
     .get = lan_get<&lan::get_field<&port::vlan>>,
     .words = words_of_vlan},
    {.selector = 0xCC,
     .name = "IPv6 address",
     .length = {16, 16},
     .set = lan_set<&lan::set_field<&port::address6, check_ipv6>>,
     .get = lan_get<&lan::get_field<&port::address6>>,
     .words = words_of_address<ipv6>},
    {.selector = 0xCD,
     .name = "IPv6 prefix length",
     .length = {1, 1},
     .set = lan_set<&lan::set_field<&port::prefix_length, check_prefix>>,
     .get = lan_get<&lan::get_field<&port::prefix_length>>,
     .words = words_of_prefix},
    {.selector = 0xCE,
     .name = "IPv6 gateway",
     .length = {16, 16},
     .set = lan_set<&lan::set_field<&port::gateway6, check_ipv6>>,
     .get = lan_get<&lan::get_field<&port::gateway6>>,
     .words = words_of_address<ipv6>},
    {.selector = 0xD0,
     .name = "IPv6 address source",
     .length = {1, 1},
     .set = lan_set<&lan::set_field<&port::source6, check_source>>,
     .get = lan_get<&lan::get_field<&port::source6>>,
     .words = words_of_source},
};

const command lan::table[] = {
    {.netfn = netfn::transport,
     .number = 0x01,
     .name = "Set LAN Configuration Parameters",
     .length = {2, 64},
     .run = call<&lan::set_parameter>,
     .request_words = words_of_set,
     .open = open_part_of_set},
    {.netfn = netfn::transport,
     .number = 0x02,
     .name = "Get LAN Configuration Parameters",
     .length = {4, 4},  // set and block selector come last
     .run = call<&lan::get_parameter>,
     .request_words = words_of_get},
};

std::span<const command> lan::commands() const { return table; }

}  // namespace

std::span<const lan_parameter> lan_lan_parameters() { return own_parameters; }

std::unique_ptr<family> make_lan(controller &owner) { return std::make_unique<lan>(owner); }

}  // namespace ipmcd
