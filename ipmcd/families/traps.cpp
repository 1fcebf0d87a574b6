/// SNMP traps: where they go, and in what shape. Most of it is LAN parameters of the management channel, the rest the
/// maker's own commands.
#include "ipmcd/controller.h"
#include "ipmcd/families/account_links.h"
#include "ipmcd/families/lan.h"
#include "ipmcd/families/password.h"
#include "ipmcd/text.h"

#include <algorithm>
#include <arpa/inet.h>

namespace ipmcd
{

namespace
{

constexpr completion against_the_rules{0x84};

constexpr uint8_t destination_count = 4;
constexpr uint16_t all_destinations = (1 << destination_count) - 1;
constexpr uint16_t default_port = 162;
constexpr size_t community_size = 18;
constexpr size_t longest_user_name = 16;

constexpr const char *version_words[] = {"V1", "V2C", "V3"};
constexpr const char *severity_words[] = {"all", "minor", "major", "critical"};
constexpr const char *protocol_words[] = {"MD5/DES", "MD5/AES", "SHA/DES", "SHA/AES"};
constexpr const char *mode_words[] = {"event code", "OID"};

/// In network order, and so it travels.
struct trap_address {
    bool is_ipv6 = false;
    std::array<uint8_t, 16> bytes{};

    size_t size() const { return is_ipv6 ? 16 : 4; }
    int family() const { return is_ipv6 ? AF_INET6 : AF_INET; }
};

struct destination {
    bool enabled = false;
    trap_address address;
    uint16_t port = default_port;
};

using destinations = std::array<destination, destination_count>;

struct trap_state {
    bool enabled = false;
    // Each the index of its word.
    uint8_t version = 0;
    uint8_t severity = 0;
    uint8_t protocol = 0;
    uint8_t mode = 0;
    std::string community = "Zentro-trap1";
    destinations to;
};

class traps final : public family
{
public:
    explicit traps(controller &owner) : links(owner.shared<account_links>()) {}

    const char *name() const override { return "traps"; }
    std::span<const command> commands() const override;
    void reset() override;
    json to_json() const override;
    json shown() const override;
    void from_json(const json &json) override;

    // LAN parameters
    completion set_community(uint8_t channel, byte_reader &value);
    completion set_port(uint8_t channel, byte_reader &value);
    completion get_port(uint8_t channel, uint8_t set, byte_writer &value);
    completion set_enabled_destinations(uint8_t channel, byte_reader &value);
    completion get_enabled_destinations(uint8_t channel, uint8_t set, byte_writer &value);
    completion set_enabled(uint8_t channel, byte_reader &value);
    completion get_enabled(uint8_t channel, uint8_t set, byte_writer &value);
    completion set_version(uint8_t channel, byte_reader &value);
    completion get_version(uint8_t channel, uint8_t set, byte_writer &value);
    completion set_severity(uint8_t channel, byte_reader &value);
    completion get_severity(uint8_t channel, uint8_t set, byte_writer &value);
    completion set_address(uint8_t channel, byte_reader &value);
    completion get_address(uint8_t channel, uint8_t set, byte_writer &value);

private:
    static const command table[];

    completion set_user(byte_reader &request, byte_writer &answer);
    completion set_protocol(byte_reader &request, byte_writer &answer);
    completion set_mode(byte_reader &request, byte_writer &answer);

    completion find(uint8_t number, destination *&found);

    trap_state state;
    account_links &links;
};

void traps::reset()
{
    state = {};
    links.trap_user.clear();
}

/// On the wire a choice is the index of its word, counted from `first`.
completion choose(uint8_t wire, uint8_t first, std::span<const char *const> words, uint8_t &index)
{
    if (wire < first || wire - first >= int(words.size()))
        return completion::invalid_field;
    index = uint8_t(wire - first);
    return completion::ok;
}

// Destinations -------------------------------------------------------------------------------------------------------

completion traps::find(uint8_t number, destination *&found)
{
    if (number < 1 || number > destination_count)
        return completion::out_of_range;
    found = &state.to[number - 1U];
    return completion::ok;
}

completion traps::set_port(uint8_t, byte_reader &value)
{
    destination *to = nullptr;
    if (const completion refused = find(value.u8(), to); refused != completion::ok)
        return refused;
    const uint16_t port = value.u16le();
    if (port == 0)
        return completion::out_of_range;
    to->port = port;
    return completion::ok;
}

completion traps::get_port(uint8_t, uint8_t set, byte_writer &value)
{
    destination *to = nullptr;
    if (const completion refused = find(set, to); refused != completion::ok)
        return refused;
    value.u8(set).u16le(to->port);
    return completion::ok;
}

/// A bit for each destination: which to change, and to what.
completion traps::set_enabled_destinations(uint8_t, byte_reader &value)
{
    const uint16_t mask = value.u16le();
    const uint16_t bits = value.u16le();
    if (mask == 0 || (mask & ~all_destinations) != 0 || (bits & ~mask) != 0)
        return completion::invalid_field;
    for (size_t i = 0; i < state.to.size(); i++)
        if ((mask >> i & 1) != 0)
            state.to[i].enabled = (bits >> i & 1) != 0;
    return completion::ok;
}

completion traps::get_enabled_destinations(uint8_t, uint8_t, byte_writer &value)
{
    unsigned bits = 0;
    for (size_t i = 0; i < state.to.size(); i++)
        bits |= unsigned{state.to[i].enabled} << i;
    value.u16le(all_destinations).u16le(uint16_t(bits));
    return completion::ok;
}

/// To multicast groups no trap is sent; the limited broadcast is a good destination, and all zeros say that there is
/// none.
bool is_destination(const trap_address &address)
{
    static constexpr std::array<uint8_t, 4> limited_broadcast{255, 255, 255, 255};
    if (address.is_ipv6)
        return address.bytes[0] != 0xFF;
    return address.bytes[0] < 224 ||
           std::equal(limited_broadcast.begin(), limited_broadcast.end(), address.bytes.begin());
}

completion traps::set_address(uint8_t, byte_reader &value)
{
    destination *to = nullptr;
    if (const completion refused = find(value.u8(), to); refused != completion::ok)
        return refused;
    const uint8_t type = value.u8();
    if (type > 1)
        return completion::invalid_field;
    trap_address address{.is_ipv6 = type == 1};
    if (value.left() != address.size())
        return completion::length_invalid;
    std::ranges::copy(value.bytes(address.size()), address.bytes.begin());
    if (!is_destination(address))
        return completion::invalid_field;
    to->address = address;
    return completion::ok;
}

completion traps::get_address(uint8_t, uint8_t set, byte_writer &value)
{
    destination *to = nullptr;
    if (const completion refused = find(set, to); refused != completion::ok)
        return refused;
    value.u8(set).u8(to->address.is_ipv6).bytes(std::span(to->address.bytes).first(to->address.size()));
    return completion::ok;
}

// What all destinations have in common -------------------------------------------------------------------------------

completion traps::set_community(uint8_t, byte_reader &value)
{
    const auto bytes = value.bytes(community_size);
    const std::string community(bytes.begin(), std::ranges::find(bytes, 0));
    if (!is_good_community(community))
        return against_the_rules;
    state.community = community;
    return completion::ok;
}

completion traps::set_enabled(uint8_t, byte_reader &value)
{
    const uint8_t wanted = value.u8();
    if (wanted > 1)
        return completion::invalid_field;
    state.enabled = wanted == 1;
    return completion::ok;
}

completion traps::get_enabled(uint8_t, uint8_t, byte_writer &value)
{
    value.u8(state.enabled);
    return completion::ok;
}

completion traps::set_version(uint8_t, byte_reader &value)
{
    return choose(value.u8(), 1, version_words, state.version);
}

completion traps::get_version(uint8_t, uint8_t, byte_writer &value)
{
    value.u8(uint8_t(1 + state.version));
    return completion::ok;
}

completion traps::set_severity(uint8_t, byte_reader &value)
{
    if (value.u8() != 0)
        return completion::invalid_field;  // reserved
    return choose(value.u8(), 0, severity_words, state.severity);
}

completion traps::get_severity(uint8_t, uint8_t, byte_writer &value)
{
    value.u8(0).u8(state.severity);
    return completion::ok;
}

/// No name: version 3 traps are sent in nobody's.
completion traps::set_user(byte_reader &request, byte_writer &answer)
{
    const uint8_t length = request.u8();
    if (request.left() != length)
        return completion::length_invalid;
    const auto bytes = request.bytes(length);
    const std::string name(bytes.begin(), bytes.end());
    if (!name.empty() && !links.is_user(name))
        return completion::not_present;
    links.trap_user = name;
    answer.bytes(oem_iana);
    return completion::ok;
}

completion traps::set_protocol(byte_reader &request, byte_writer &answer)
{
    answer.bytes(oem_iana);
    return choose(request.u8(), 1, protocol_words, state.protocol);
}

completion traps::set_mode(byte_reader &request, byte_writer &answer)
{
    answer.bytes(oem_iana);
    return choose(request.u8(), 0, mode_words, state.mode);
}

// Words and JSON -----------------------------------------------------------------------------------------------------

std::string words(const trap_address &address)
{
    std::array<char, INET6_ADDRSTRLEN> made{};
    return inet_ntop(address.family(), address.bytes.data(), made.data(), made.size());
}

json destination_to_json(const destination &to)
{
    return {{"enabled", to.enabled}, {"address", words(to.address)}, {"port", to.port}};
}

void destination_from_json(const json &json, const std::string &where, destination &to)
{
    json_fields fields(json, where);
    fields.boolean("enabled", to.enabled);
    std::string given = words(to.address);
    fields.text("address", given, INET6_ADDRSTRLEN);
    trap_address address{.is_ipv6 = given.find(':') != std::string::npos};
    if (inet_pton(address.family(), given.c_str(), address.bytes.data()) != 1 || !is_destination(address))
        fields.refuse("address", "an IPv4 or IPv6 address to which a trap can go is needed here");
    to.address = address;
    fields.number("port", to.port, 1, UINT16_MAX);
    fields.done();
}

json traps::to_json() const
{
    json all{{"enabled", state.enabled},
             {"version", version_words[state.version]},
             {"severity", severity_words[state.severity]},
             {"mode", mode_words[state.mode]},
             {"user", links.trap_user},
             {"protocol", protocol_words[state.protocol]},
             {"community", state.community}};
    for (size_t i = 0; i < state.to.size(); i++)
        all["destinations"][std::to_string(i + 1)] = destination_to_json(state.to[i]);
    return all;
}

/// The community is the traps' password.
json traps::shown() const
{
    json all = to_json();
    all.erase("community");
    return all;
}

void destinations_from_json(const json &json, destinations &to)
{
    json_fields fields(json, "/traps/destinations");
    for (size_t i = 0; i < to.size(); i++) {
        const std::string number = std::to_string(i + 1);
        if (const auto *part = fields.find(number.c_str()))
            destination_from_json(*part, "/traps/destinations/" + number, to[i]);
    }
    fields.done();
}

void traps::from_json(const json &json)
{
    trap_state wanted = state;
    std::string user = links.trap_user;
    json_fields fields(json, "/traps");
    fields.boolean("enabled", wanted.enabled);
    fields.choice("version", wanted.version, version_words);
    fields.choice("severity", wanted.severity, severity_words);
    fields.choice("mode", wanted.mode, mode_words);
    fields.text("user", user, longest_user_name);
    fields.choice("protocol", wanted.protocol, protocol_words);
    fields.text("community", wanted.community, community_size);
    if (const auto *part = fields.find("destinations"))
        destinations_from_json(*part, wanted.to);
    fields.done();
    if (!is_good_community(wanted.community))
        fields.refuse("community", "8 to 18 characters with a special one and letters of both sizes, or letters and "
                                   "digits, are needed here, and no blank");
    state = wanted;
    links.trap_user = user;
}

std::string words_of_port(byte_reader &value)
{
    const uint8_t number = value.u8();
    return text("%u: %u", number, value.u16le());
}

std::string words_of_enabled_destinations(byte_reader &value)
{
    const uint16_t mask = value.u16le();
    return text("0x%04X of 0x%04X", value.u16le(), mask);
}

std::string words_of_switch(byte_reader &value)
{
    const uint8_t wanted = value.u8();
    return wanted == 0 ? "off" : wanted == 1 ? "on" : text("%u", wanted);
}

std::string words_of_choice(uint8_t wire, uint8_t first, std::span<const char *const> words)
{
    uint8_t index = 0;
    return choose(wire, first, words, index) == completion::ok ? words[index] : text("%u", wire);
}

std::string words_of_version(byte_reader &value) { return words_of_choice(value.u8(), 1, version_words); }

std::string words_of_severity(byte_reader &value)
{
    value.u8();
    return words_of_choice(value.u8(), 0, severity_words);
}

std::string words_of_protocol(byte_reader &data) { return words_of_choice(data.u8(), 1, protocol_words); }

std::string words_of_mode(byte_reader &data) { return words_of_choice(data.u8(), 0, mode_words); }

std::string words_of_address(byte_reader &value)
{
    const uint8_t number = value.u8();
    trap_address address{.is_ipv6 = value.u8() == 1};
    std::ranges::copy(value.bytes(address.size()), address.bytes.begin());
    return text("%u: ", number) + words(address);
}

std::string words_of_user(byte_reader &data)
{
    data.u8();
    const auto name = data.bytes(data.left());
    return quoted({name.begin(), name.end()});
}

constexpr lan_parameter parameters[] = {
    {.selector = 0x10,
     .name = "community",
     .channels = on_channels::management,
     .length = {community_size, community_size},
     .set = lan_set<&traps::set_community>,
     .secret = true},
    {.selector = 0xC0,
     .name = "trap port of destination",
     .channels = on_channels::management,
     .length = {3, 3},
     .set = lan_set<&traps::set_port>,
     .get = lan_get<&traps::get_port>,
     .words = words_of_port},
    {.selector = 0xC1,
     .name = "trap destinations",
     .channels = on_channels::management,
     .length = {4, 4},
     .set = lan_set<&traps::set_enabled_destinations>,
     .get = lan_get<&traps::get_enabled_destinations>,
     .words = words_of_enabled_destinations},
    {.selector = 0xC2,
     .name = "traps",
     .channels = on_channels::management,
     .length = {1, 1},
     .set = lan_set<&traps::set_enabled>,
     .get = lan_get<&traps::get_enabled>,
     .words = words_of_switch},
    {.selector = 0xC3,
     .name = "trap version",
     .channels = on_channels::management,
     .length = {1, 1},
     .set = lan_set<&traps::set_version>,
     .get = lan_get<&traps::get_version>,
     .words = words_of_version},
    {.selector = 0xC4,
     .name = "trap severity",
     .channels = on_channels::management,
     .length = {2, 2},
     .set = lan_set<&traps::set_severity>,
     .get = lan_get<&traps::get_severity>,
     .words = words_of_severity},
    {.selector = 0xD1,
     .name = "trap address of destination",
     .channels = on_channels::management,
     .length = {6, 18},
     .set = lan_set<&traps::set_address>,
     .get = lan_get<&traps::get_address>,
     .words = words_of_address},
};

const command traps::table[] = {
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x2B, 0x0A, 0x00),
     .name = "Set Trap User",
     .length = {1, 1 + UINT8_MAX},
     .run = call<&traps::set_user>,
     .request_words = words_of_user},
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x2B, 0x09, 0x00),
     .name = "Set Trap Protocols",
     .length = {1, 1},
     .run = call<&traps::set_protocol>,
     .request_words = words_of_protocol},
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x15, 0x01, 0x11, 0x00, 0x00, 0x01),
     .name = "Set Trap Mode",
     .length = {1, 1},
     .run = call<&traps::set_mode>,
     .request_words = words_of_mode},
};

std::span<const command> traps::commands() const { return table; }

}  // namespace

std::span<const lan_parameter> traps_lan_parameters() { return parameters; }

std::unique_ptr<family> make_traps(controller &owner) { return std::make_unique<traps>(owner); }

}  // namespace ipmcd
