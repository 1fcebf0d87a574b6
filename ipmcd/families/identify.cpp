/// The identify light of the chassis (IPMI 2.0, Chassis Identify).
#include "ipmcd/controller.h"
#include "ipmcd/families/host.h"
#include "ipmcd/text.h"

namespace ipmcd
{

namespace
{

constexpr uint8_t default_interval_s = 15;
constexpr const char *light_words[] = {"off", "temporary", "on"};

class identify final : public family
{
public:
    explicit identify(controller &owner)
        : light(owner.shared<identify_state>()), expiry(owner.timers().make_timer([this] { switch_off(); }))
    {
    }

    const char *name() const override { return "identify"; }
    std::span<const command> commands() const override;
    void reset() override;
    void restart() override { switch_off(); }
    json to_json() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion identify_chassis(byte_reader &request, byte_writer &answer);
    void switch_off();
    void switch_on();
    void switch_on_for(uint8_t seconds);

    identify_state &light;
    uint8_t interval_s = default_interval_s;  // of the temporary light, as it was ordered last
    std::unique_ptr<timer> expiry;
};

void identify::switch_off()
{
    light = identify_state::off;
    expiry->stop();
}

void identify::switch_on()
{
    light = identify_state::on;
    expiry->stop();
}

void identify::switch_on_for(uint8_t seconds)
{
    light = identify_state::temporary;
    interval_s = seconds;
    expiry->start(std::chrono::seconds(seconds));
}

void identify::reset()
{
    switch_off();
    interval_s = default_interval_s;
}

completion identify::identify_chassis(byte_reader &request, byte_writer &)
{
    const uint8_t seconds = request.left() > 0 ? request.u8() : default_interval_s;
    const uint8_t force = request.u8();
    if (force > 1)
        return completion::invalid_field;
    if (force == 1)
        switch_on();  // whatever the interval
    else if (seconds == 0)
        switch_off();
    else
        switch_on_for(seconds);
    return completion::ok;
}

json identify::to_json() const { return {{"light", light_words[uint8_t(light)]}, {"interval_s", interval_s}}; }

/// A temporary light starts anew.
void identify::from_json(const json &json)
{
    identify_state wanted = light;
    uint8_t seconds = interval_s;
    json_fields fields(json, "/identify");
    fields.choice("light", wanted, light_words);
    fields.number("interval_s", seconds, 1, UINT8_MAX);
    fields.done();
    interval_s = seconds;
    if (wanted == identify_state::temporary)
        switch_on_for(seconds);
    else if (wanted == identify_state::on)
        switch_on();
    else
        switch_off();
}

std::string words_of_identify(byte_reader &data)
{
    const uint8_t seconds = data.u8();
    if (data.u8() == 1)
        return "on";
    return seconds == 0 ? "off" : text("on for %u s", seconds);
}

const command identify::table[] = {
    {.netfn = netfn::chassis,
     .number = 0x04,
     .name = "Chassis Identify",
     .length = {0, 2},
     .run = call<&identify::identify_chassis>,
     .request_words = words_of_identify},
};

std::span<const command> identify::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_identify(controller &owner) { return std::make_unique<identify>(owner); }

}  // namespace ipmcd
