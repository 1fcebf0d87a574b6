/// Which way the controller's network traffic takes: its own port, or one of the host's network card.
#include "ipmcd/controller.h"
#include "ipmcd/families/lan.h"
#include "ipmcd/text.h"

namespace ipmcd
{

namespace
{

enum nic_mode : uint8_t { dedicated = 1, shared = 2, adaptive = 3 };
constexpr const char *mode_words[] = {"", "dedicated", "shared", "adaptive"};

constexpr uint32_t default_switch_ms = 1000, longest_switch_ms = 600'000;
constexpr uint8_t most_card_ports = 4;
constexpr uint8_t any_port = 0xFF;

constexpr completion last_enabled_port{0x80}, still_switching{0x81};

struct nic_state {
    uint8_t mode = dedicated;
    bool switching = false;  // from one mode to the next, which takes switch_ms
    uint32_t switch_ms = default_switch_ms;
    bool management_enabled = true;
    bool shared_enabled = true;
    uint8_t card_ports = 2;  // of the host's card that can carry the controller's traffic; 0 = there is no such card
    uint8_t sideband_port = 0;
};

class nic final : public family
{
public:
    explicit nic(controller &owner) : end_of_switching(owner.timers().make_timer([this] { state.switching = false; }))
    {
    }

    const char *name() const override { return "nic"; }
    std::span<const command> commands() const override;
    void reset() override { take_over({}); }
    json to_json() const override;
    void from_json(const json &json) override;

    completion set_mode(uint8_t channel, byte_reader &value);
    completion get_mode(uint8_t channel, uint8_t set, byte_writer &value);
    completion set_enabled(uint8_t channel, byte_reader &value);
    completion get_enabled(uint8_t channel, uint8_t set, byte_writer &value);

private:
    static const command table[];

    completion get_port_count(byte_reader &request, byte_writer &answer);
    completion set_sideband_port(byte_reader &request, byte_writer &answer);

    void take_over(const nic_state &wanted);
    void start_switching();

    nic_state state;
    std::unique_ptr<timer> end_of_switching;
};

void nic::take_over(const nic_state &wanted)
{
    state = wanted;
    end_of_switching->stop();
    if (state.switching)
        start_switching();
}

void nic::start_switching()
{
    state.switching = state.switch_ms != 0;
    if (state.switching)
        end_of_switching->start(std::chrono::milliseconds(state.switch_ms));
}

completion nic::set_mode(uint8_t, byte_reader &value)
{
    const uint8_t wanted = value.u8();
    if (wanted < dedicated || wanted > adaptive)
        return completion::out_of_range;
    if (state.switching)
        return still_switching;
    if (wanted != dedicated && state.card_ports == 0)
        return completion::not_in_this_state;
    if (wanted != state.mode)
        start_switching();
    state.mode = wanted;
    return completion::ok;
}

completion nic::get_mode(uint8_t, uint8_t, byte_writer &value)
{
    value.u8(state.mode);
    return completion::ok;
}

/// One port at least stays enabled: nobody could reach the controller any more.
completion nic::set_enabled(uint8_t channel, byte_reader &value)
{
    const uint8_t wanted = value.u8();
    bool &present = channel == management_channel ? state.management_enabled : state.shared_enabled;
    const bool other = channel == management_channel ? state.shared_enabled : state.management_enabled;
    if (wanted > 1)
        return completion::invalid_field;
    if (wanted == 0 && !other)
        return last_enabled_port;
    present = wanted == 1;
    return completion::ok;
}

completion nic::get_enabled(uint8_t channel, uint8_t, byte_writer &value)
{
    value.u8(channel == management_channel ? state.management_enabled : state.shared_enabled);
    return completion::ok;
}

completion nic::get_port_count(byte_reader &, byte_writer &answer)
{
    answer.bytes(oem_iana).u8(state.card_ports);
    return completion::ok;
}

completion nic::set_sideband_port(byte_reader &request, byte_writer &answer)
{
    const uint8_t wanted = request.u8();
    const bool there_is_one = wanted == any_port ? state.card_ports > 0 : wanted < state.card_ports;
    if (!there_is_one)
        return completion::out_of_range;
    state.sideband_port = wanted;
    answer.bytes(oem_iana);
    return completion::ok;
}

json nic::to_json() const
{
    return {{"mode", mode_words[state.mode]},         {"switching", state.switching},
            {"switch_ms", state.switch_ms},           {"management_enabled", state.management_enabled},
            {"shared_enabled", state.shared_enabled}, {"card_ports", state.card_ports},
            {"sideband_port", state.sideband_port}};
}

void nic::from_json(const json &json)
{
    nic_state wanted = state;
    json_fields fields(json, "/nic");
    uint8_t mode = uint8_t(state.mode - dedicated);
    fields.choice("mode", mode, std::span(mode_words).subspan(dedicated));
    wanted.mode = uint8_t(mode + dedicated);
    fields.boolean("switching", wanted.switching);
    fields.number("switch_ms", wanted.switch_ms, 0, longest_switch_ms);
    fields.boolean("management_enabled", wanted.management_enabled);
    fields.boolean("shared_enabled", wanted.shared_enabled);
    fields.number("card_ports", wanted.card_ports, 0, most_card_ports);
    fields.number("sideband_port", wanted.sideband_port, 0, any_port);
    fields.done();
    if (!wanted.management_enabled && !wanted.shared_enabled)
        fields.refuse("shared_enabled", "one port has to be enabled");
    if (wanted.sideband_port >= most_card_ports && wanted.sideband_port != any_port)
        fields.refuse("sideband_port", "a number from 0 to 3, or 255 for any, is needed here");
    take_over(wanted);
}

std::string words_of_mode(byte_reader &value)
{
    const uint8_t mode = value.u8();
    return mode >= dedicated && mode <= adaptive ? mode_words[mode] : text("%u", mode);
}

std::string words_of_enabled(byte_reader &value)
{
    const uint8_t wanted = value.u8();
    return wanted == 0 ? "disabled" : wanted == 1 ? "enabled" : text("%u", wanted);
}

std::string words_of_port_count(byte_reader &data)
{
    data.bytes(oem_iana.size());
    return text("%u ports", data.u8());
}

std::string words_of_sideband_port(byte_reader &data)
{
    const uint8_t index = data.u8();
    return index == any_port ? "any port" : text("port %u", index + 1);
}

constexpr lan_parameter own_parameters[] = {
    {.selector = 0xC5,
     .name = "port",
     .length = {1, 1},
     .set = lan_set<&nic::set_enabled>,
     .get = lan_get<&nic::get_enabled>,
     .words = words_of_enabled},
    {.selector = 0xD7,
     .name = "NIC mode",
     .channels = on_channels::management,
     .length = {1, 1},
     .set = lan_set<&nic::set_mode>,
     .get = lan_get<&nic::get_mode>,
     .words = words_of_mode},
};

const command nic::table[] = {
    {.netfn = netfn::oem,
     .number = 0x16,
     .lead = oem(),
     .name = "Get NIC Port Count",
     .run = call<&nic::get_port_count>,
     .answer_words = words_of_port_count},
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x05, 0x0D, 0x00, 0x00, 0x01),
     .name = "Set Sideband Port",
     .length = {1, 1},
     .run = call<&nic::set_sideband_port>,
     .request_words = words_of_sideband_port},
};

std::span<const command> nic::commands() const { return table; }

}  // namespace

std::span<const lan_parameter> nic_lan_parameters() { return own_parameters; }

std::unique_ptr<family> make_nic(controller &owner) { return std::make_unique<nic>(owner); }

}  // namespace ipmcd
