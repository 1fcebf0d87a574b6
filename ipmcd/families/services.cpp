/// The network services of the controller: which of them run, and on which ports they listen.
#include "ipmcd/controller.h"
#include "ipmcd/text.h"

namespace ipmcd
{

namespace
{

/// Of a service with one port that is the plain one, encrypted or not; the web server has one of each kind.
enum port_kind : uint8_t { plain, secure };
constexpr const char *kind_words[] = {"port", "secure_port"};

struct net_service {
    bool enabled;
    std::array<uint16_t, 2> ports;  // by kind; 0 = it has none of this kind
};

/// A service's number on the wire is its place here, counted from 1.
constexpr const char *names[] = {"ftp",   "ssh",  "telnet", "kvm", "vmm",  "cim",
                                 "wsman", "snmp", "webssl", "lan", "video"};
using services_state = std::array<net_service, std::size(names)>;
constexpr services_state factory_services{{
    {.enabled = false, .ports = {21}},
    {.enabled = true, .ports = {22}},
    {.enabled = false, .ports = {23}},
    {.enabled = true, .ports = {5900}},
    {.enabled = true, .ports = {5901}},
    {.enabled = false, .ports = {5989}},
    {.enabled = false, .ports = {5986}},
    {.enabled = true, .ports = {161}},
    {.enabled = true, .ports = {80, 443}},
    {.enabled = true, .ports = {623}},
    {.enabled = true, .ports = {5902}},
}};

class services final : public family
{
public:
    const char *name() const override { return "services"; }
    std::span<const command> commands() const override;
    void reset() override { state = factory_services; }
    json to_json() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion set_service(byte_reader &request, byte_writer &answer);

    services_state state = factory_services;
};

enum setting : uint8_t { switch_setting = 1, port_setting = 2 };

struct head {
    uint8_t id, setting;
    uint16_t reserved;
    uint8_t repeated;  // the setting once more

    explicit head(byte_reader &data) : id(data.u8()), setting(data.u8()), reserved(data.u16le()), repeated(data.u8()) {}
    bool is_known() const
    {
        return (setting == switch_setting || setting == port_setting) && reserved == 0 && repeated == setting;
    }
};
constexpr size_t head_size = 5;

completion set_state(net_service &service, byte_reader &value)
{
    constexpr uint8_t in_use = 0x40, on = 0x01;
    if (value.left() != 1)
        return completion::length_invalid;
    const uint8_t wanted = value.u8();
    if ((wanted & ~on) != in_use)
        return completion::invalid_field;
    service.enabled = (wanted & on) != 0;
    return completion::ok;
}

/// Kinds count from 1 on the wire.
completion set_port(net_service &service, byte_reader &value)
{
    if (value.left() != 3)
        return completion::length_invalid;
    const unsigned kind = value.u8() - 1U;
    if (kind >= service.ports.size() || service.ports[kind] == 0)
        return completion::invalid_field;
    const uint16_t port = value.u16le();
    if (port == 0)
        return completion::out_of_range;
    service.ports[kind] = port;
    return completion::ok;
}

completion services::set_service(byte_reader &request, byte_writer &answer)
{
    const head wanted(request);
    if (wanted.id < 1 || wanted.id > state.size())
        return completion::out_of_range;
    if (!wanted.is_known())
        return completion::invalid_field;
    net_service &service = state[wanted.id - 1U];
    answer.bytes(oem_iana);
    return wanted.setting == switch_setting ? set_state(service, request) : set_port(service, request);
}

json services::to_json() const
{
    json all = json::object();
    for (size_t i = 0; i < state.size(); i++) {
        json &one = all[names[i]] = {{"enabled", state[i].enabled}};
        for (const port_kind kind : {plain, secure})
            if (state[i].ports[kind] != 0)
                one[kind_words[kind]] = state[i].ports[kind];
    }
    return all;
}

void service_from_json(const json &json, const std::string &where, net_service &one)
{
    json_fields fields(json, where);
    fields.boolean("enabled", one.enabled);
    for (const port_kind kind : {plain, secure})
        if (one.ports[kind] != 0)
            fields.number(kind_words[kind], one.ports[kind], 1, UINT16_MAX);
    fields.done();
}

void services::from_json(const json &json)
{
    services_state wanted = state;
    json_fields fields(json, "/services");
    for (size_t i = 0; i < wanted.size(); i++)
        if (const auto *part = fields.find(names[i]))
            service_from_json(*part, text("/services/%s", names[i]), wanted[i]);
    fields.done();
    state = wanted;
}

/// "webssl, on", "webssl, secure port 443"
std::string words_of_service(byte_reader &data)
{
    const head wanted(data);
    const bool known = wanted.id >= 1 && wanted.id <= std::size(names);
    const std::string whose = known ? names[wanted.id - 1U] : text("service %u", wanted.id);
    const uint8_t first = data.u8();
    if (wanted.setting == switch_setting)
        return whose + ((first & 1) != 0 ? ", on" : ", off");
    if (wanted.setting != port_setting)
        return whose + text(", setting %u", wanted.setting);
    return whose + text(", %s port %u", first == 1 + secure ? "secure" : "plain", data.u16le());
}

const command services::table[] = {
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x0F),
     .name = "Set Network Service",
     .length = {head_size + 1, head_size + 3},
     .run = call<&services::set_service>,
     .request_words = words_of_service},
};

std::span<const command> services::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_services(controller &) { return std::make_unique<services>(); }

}  // namespace ipmcd
