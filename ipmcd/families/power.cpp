/// The host's power: Chassis Control and Get Chassis Status (IPMI 2.0), FRU Control (PICMG 3.0).
#include "ipmcd/controller.h"
#include "ipmcd/families/host.h"
#include "ipmcd/text.h"

#include <algorithm>

namespace ipmcd
{

namespace
{

enum class phase : uint8_t { off, on, shutting_down, rebooting, cycling };
constexpr const char *phase_words[] = {"off", "on", "shutting down", "rebooting", "power cycling"};

/// Phases as a set of bits.
constexpr uint8_t bit(phase one) { return uint8_t(1U << unsigned(one)); }
constexpr uint8_t power_is_on = bit(phase::on) | bit(phase::shutting_down) | bit(phase::rebooting);

constexpr uint32_t default_shutdown_ms = 2000;
constexpr uint32_t longest_shutdown_ms = 100'000'000;
constexpr std::chrono::seconds cycle_interval{1};

struct power_state {
    ipmcd::phase phase = ipmcd::phase::on;
    uint32_t shutdown_ms = default_shutdown_ms;  // what the host's system takes for a shutdown
    bool on_by_command = false;                  // how the power came on last
    uint32_t boots = 0;                          // how often the host booted, and how it went off
    uint32_t soft_shutdowns = 0;
    uint32_t cut_shutdowns = 0;  // soft shutdowns that took longer than the time-out
};

class power final : public family
{
public:
    explicit power(controller &owner)
        : computer(owner.shared<host>()), light(owner.shared<identify_state>()),
          next_phase(owner.timers().make_timer([this] { finish_phase(); }))
    {
    }

    const char *name() const override { return "power"; }
    std::span<const command> commands() const override;
    void reset() override { take_over({}); }
    json to_json() const override;
    void from_json(const json &json) override;

private:
    /// Something to do to the host, and the phases in which it can be done.
    struct order {
        uint8_t number;
        const char *words;
        uint8_t phases;
        void (power::*act)();
    };
    static const order chassis_orders[];
    static const order fru_orders[];
    static const command table[];

    completion get_chassis_status(byte_reader &request, byte_writer &answer);
    completion control_chassis(byte_reader &request, byte_writer &answer);
    completion control_fru(byte_reader &request, byte_writer &answer);
    completion carry_out(std::span<const order> orders, uint8_t number);

    void cut();
    void switch_on();
    void shut_down() { enter(phase::shutting_down); }
    void cycle() { enter(phase::cycling); }
    void reboot() { enter(phase::rebooting); }
    void boot();

    void take_over(const power_state &wanted);
    void enter(ipmcd::phase wanted);
    void finish_phase();
    std::chrono::milliseconds duration_of_shutdown() const;
    bool is_cut() const;

    static std::string words_of_chassis_order(byte_reader &data);
    static std::string words_of_fru_order(byte_reader &data);

    power_state state;
    host &computer;
    const identify_state &light;
    std::unique_ptr<timer> next_phase;
};

// Phases -------------------------------------------------------------------------------------------------------------

bool power::is_cut() const
{
    const auto limit = computer.shutdown_timeout;
    return limit.count() != 0 && limit < std::chrono::milliseconds(state.shutdown_ms);
}

std::chrono::milliseconds power::duration_of_shutdown() const
{
    return is_cut() ? computer.shutdown_timeout : std::chrono::milliseconds(state.shutdown_ms);
}

void power::enter(ipmcd::phase wanted)
{
    state.phase = wanted;
    computer.is_on = (power_is_on & bit(wanted)) != 0;
    if (wanted == phase::on || wanted == phase::off)
        next_phase->stop();
    else
        next_phase->start(wanted == phase::cycling ? cycle_interval : duration_of_shutdown());
}

/// A shutdown is over, or the pause of a power cycle.
void power::finish_phase()
{
    if (state.phase != phase::cycling)
        (is_cut() ? state.cut_shutdowns : state.soft_shutdowns)++;
    switch (state.phase) {
    case phase::shutting_down:
        return enter(phase::off);
    case phase::cycling:
        return switch_on();
    default:
        return boot();
    }
}

void power::cut() { enter(phase::off); }

void power::switch_on()
{
    state.on_by_command = true;
    boot();
}

/// From whatever phase: of a running host this is a reset.
void power::boot()
{
    state.boots++;
    enter(phase::on);
    computer.on_boot();
}

/// A phase that takes its time starts anew: how much of it was left is not part of the state.
void power::take_over(const power_state &wanted)
{
    state = wanted;
    enter(wanted.phase);
}

// Commands -----------------------------------------------------------------------------------------------------------

const power::order power::chassis_orders[] = {
    {0, "power down", power_is_on | bit(phase::cycling), &power::cut},
    {1, "power up", bit(phase::off), &power::switch_on},
    {2, "power cycle", power_is_on, &power::cycle},
    {3, "hard reset", power_is_on, &power::boot},
    {5, "soft shutdown", bit(phase::on), &power::shut_down},
};

const power::order power::fru_orders[] = {
    {0, "cold reset", power_is_on, &power::boot},
    {2, "graceful reboot", bit(phase::on), &power::reboot},
};

completion power::carry_out(std::span<const order> orders, uint8_t number)
{
    for (const order &row : orders) {
        if (row.number != number)
            continue;
        if ((row.phases & bit(state.phase)) == 0)
            return completion::not_in_this_state;
        (this->*row.act)();
        return completion::ok;
    }
    return completion::invalid_field;
}

completion power::control_chassis(byte_reader &request, byte_writer &)
{
    const uint8_t number = request.u8();
    return carry_out(chassis_orders, number);
}

completion power::control_fru(byte_reader &request, byte_writer &answer)
{
    if (request.u8() != 0)
        return completion::not_present;  // the host is FRU 0 and the only one
    answer.bytes(picmg());
    return carry_out(fru_orders, request.u8());
}

completion power::get_chassis_status(byte_reader &, byte_writer &answer)
{
    constexpr uint8_t previous_state_is_restored = 0x20, is_on = 0x01;
    constexpr uint8_t came_on_by_command = 0x10;
    constexpr uint8_t identify_state_is_told = 0x40;
    answer.u8(uint8_t(previous_state_is_restored | (computer.is_on ? is_on : 0)));
    answer.u8(state.on_by_command ? came_on_by_command : uint8_t{0});
    answer.u8(uint8_t(identify_state_is_told | unsigned(light) << 4));
    return completion::ok;
}

json power::to_json() const
{
    return {{"phase", phase_words[uint8_t(state.phase)]}, {"shutdown_ms", state.shutdown_ms},
            {"on_by_command", state.on_by_command},       {"boots", state.boots},
            {"soft_shutdowns", state.soft_shutdowns},     {"cut_shutdowns", state.cut_shutdowns}};
}

void power::from_json(const json &json)
{
    power_state wanted = state;
    json_fields fields(json, "/power");
    fields.choice("phase", wanted.phase, phase_words);
    fields.number("shutdown_ms", wanted.shutdown_ms, 0, longest_shutdown_ms);
    fields.boolean("on_by_command", wanted.on_by_command);
    fields.number("boots", wanted.boots, 0, UINT32_MAX);
    fields.number("soft_shutdowns", wanted.soft_shutdowns, 0, UINT32_MAX);
    fields.number("cut_shutdowns", wanted.cut_shutdowns, 0, UINT32_MAX);
    fields.done();
    take_over(wanted);
}

// Words --------------------------------------------------------------------------------------------------------------

std::string power::words_of_chassis_order(byte_reader &data)
{
    const uint8_t number = data.u8();
    for (const order &row : chassis_orders)
        if (row.number == number)
            return row.words;
    return text("control %u", number);
}

std::string power::words_of_fru_order(byte_reader &data)
{
    const uint8_t fru = data.u8();
    const uint8_t number = data.u8();
    for (const order &row : fru_orders)
        if (row.number == number)
            return text("FRU %u, %s", fru, row.words);
    return text("FRU %u, option %u", fru, number);
}

std::string words_of_chassis_status(byte_reader &data)
{
    const bool is_on = (data.u8() & 0x01) != 0;
    data.u8();
    static constexpr const char *light_words[] = {"off", "temporarily on", "on", "?"};
    return text("power %s, identify %s", is_on ? "on" : "off", light_words[data.u8() >> 4 & 0x03]);
}

const command power::table[] = {
    {.netfn = netfn::chassis,
     .number = 0x01,
     .name = "Get Chassis Status",
     .run = call<&power::get_chassis_status>,
     .answer_words = words_of_chassis_status},
    {.netfn = netfn::chassis,
     .number = 0x02,
     .name = "Chassis Control",
     .length = {1, 1},
     .run = call<&power::control_chassis>,
     .request_words = power::words_of_chassis_order},
    {.netfn = netfn::picmg,
     .number = 0x04,
     .lead = picmg(),
     .name = "FRU Control",
     .length = {2, 2},
     .run = call<&power::control_fru>,
     .request_words = power::words_of_fru_order},
};

std::span<const command> power::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_power(controller &owner) { return std::make_unique<power>(owner); }

}  // namespace ipmcd
