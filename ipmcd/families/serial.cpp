/// The serial connector of the front panel: to whose serial port it leads.
#include "ipmcd/controller.h"
#include "ipmcd/text.h"

namespace ipmcd
{

namespace
{

struct route {
    uint8_t code;
    const char *words;
};
constexpr route routes[] = {{0, "host"}, {4, "controller"}};
constexpr const char *route_words[] = {routes[0].words, routes[1].words};

class serial final : public family
{
public:
    const char *name() const override { return "serial"; }
    std::span<const command> commands() const override;
    void reset() override { panel = 0; }
    json to_json() const override { return {{"panel", route_words[panel]}}; }
    void from_json(const json &json) override;

private:
    static const command table[];

    completion set_direction(byte_reader &request, byte_writer &answer);

    uint8_t panel = 0;  // index of its route
};

/// Index of the route, or how many there are.
uint8_t find_route(uint8_t code)
{
    uint8_t index = 0;
    while (index < std::size(routes) && routes[index].code != code)
        index++;
    return index;
}

completion serial::set_direction(byte_reader &request, byte_writer &answer)
{
    const uint8_t wanted = find_route(request.u8());
    if (wanted == std::size(routes))
        return completion::invalid_field;
    panel = wanted;
    answer.bytes(oem_iana);
    return completion::ok;
}

void serial::from_json(const json &json)
{
    uint8_t wanted = panel;
    json_fields fields(json, "/serial");
    fields.choice("panel", wanted, route_words);
    fields.done();
    panel = wanted;
}

std::string words_of_direction(byte_reader &data)
{
    const uint8_t code = data.u8();
    const uint8_t known = find_route(code);
    return known < std::size(routes) ? text("panel to %s", routes[known].words) : text("direction %u", code);
}

const command serial::table[] = {
    {.netfn = netfn::oem,
     .number = 0x91,
     .lead = oem(0x17, 0x01),
     .name = "Set Serial Direction",
     .length = {1, 1},
     .run = call<&serial::set_direction>,
     .request_words = words_of_direction},
};

std::span<const command> serial::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_serial(controller &) { return std::make_unique<serial>(); }

}  // namespace ipmcd
