/// LEDs of the front panel (PICMG 3.0, FRU LED commands), all of FRU 0.
#include "ipmcd/controller.h"
#include "ipmcd/text.h"

#include <algorithm>

namespace ipmcd
{

namespace
{

enum colour : uint8_t { blue = 1, red, green, amber, orange, white, unchanged = 0x0E, own_default = 0x0F };
constexpr const char *colour_words[] = {"", "blue", "red", "green", "amber", "orange", "white"};

/// Colours as a set of bits, as Get LED Color Capabilities tells them.
constexpr uint8_t mask_of(std::initializer_list<colour> colours)
{
    unsigned mask = 0;
    for (const colour one : colours)
        mask |= 1U << one;
    return uint8_t(mask);
}

// LED functions. Those between off and lamp test blink: they are the time off, in units of 10 ms.
constexpr uint8_t function_off = 0x00, longest_blink = 0xFA, function_lamp_test = 0xFB, function_local = 0xFC,
                  function_on = 0xFF;
constexpr bool is_blink(uint8_t function) { return function > function_off && function <= longest_blink; }
constexpr uint8_t longest_lamp_test_100ms = 127;

/// What the board has: LEDs 0 to 2 of the four general ones, and two of the application, which count from 4.
struct led_kind {
    uint8_t id;
    const char *name;
    uint8_t colours;
    uint8_t local_function;  // what the controller does with it by itself
    colour local_colour;
    colour override_colour;
};
constexpr led_kind kinds[] = {
    {0, "blueled", mask_of({blue}), function_off, blue, blue},
    {1, "led1", mask_of({red, amber}), function_off, red, red},
    {2, "led2", mask_of({green, amber}), function_on, green, green},
    {4, "oem1", mask_of({red, green}), function_off, green, red},
    {5, "oem2", mask_of({blue, white}), function_off, white, white},
};
constexpr uint8_t general_leds = 0b0111, application_leds = 2;
constexpr uint8_t all_leds = 0xFF;  // for lamp tests

struct led_state {
    uint8_t local_colour = 0;
    bool overridden = false;
    uint8_t function = function_off;  // of the override
    uint8_t on_duration_10ms = 0;
    uint8_t colour = 0;
    bool lamp_test = false;
    uint8_t lamp_test_100ms = 0;
    uint8_t lamp_test_colour = 0;
};
using led_states = std::array<led_state, std::size(kinds)>;

led_states factory_states()
{
    led_states all;
    for (size_t i = 0; i < all.size(); i++) {
        all[i].local_colour = kinds[i].local_colour;
        all[i].colour = all[i].lamp_test_colour = kinds[i].override_colour;
    }
    return all;
}

/// What a request wants of an LED.
struct led_order {
    uint8_t function;
    uint8_t on_duration;
    uint8_t colour;
};

led_order read_order(byte_reader &request)
{
    const uint8_t function = request.u8();
    const uint8_t on_duration = request.u8();
    return {function, on_duration, request.u8()};
}

class leds final : public family
{
public:
    explicit leds(controller &owner)
    {
        for (size_t i = 0; i < state.size(); i++)
            ends_of_tests[i] = owner.timers().make_timer([this, i] { state[i].lamp_test = false; });
    }

    const char *name() const override { return "leds"; }
    std::span<const command> commands() const override;
    void reset() override { take_over(factory_states()); }
    void restart() override { reset(); }  // overrides are the running controller's
    json to_json() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion get_properties(byte_reader &request, byte_writer &answer);
    completion get_colours(byte_reader &request, byte_writer &answer);
    completion set_state(byte_reader &request, byte_writer &answer);
    completion get_state(byte_reader &request, byte_writer &answer);

    completion set_one(size_t index, const led_order &order);
    completion test_all(const led_order &order);
    void test(size_t index, uint8_t colour, uint8_t duration_100ms);
    void take_over(const led_states &wanted);

    led_states state = factory_states();
    std::array<std::unique_ptr<timer>, std::size(kinds)> ends_of_tests;
};

/// A lamp test under way starts anew: how much of it was left is not part of the state.
void leds::take_over(const led_states &wanted)
{
    state = wanted;
    for (size_t i = 0; i < state.size(); i++)
        test(i, state[i].lamp_test_colour, state[i].lamp_test ? state[i].lamp_test_100ms : uint8_t{0});
}

/// What the LED did before goes on behind it. A test of no duration ends one.
void leds::test(size_t index, uint8_t colour, uint8_t duration_100ms)
{
    led_state &led = state[index];
    led.lamp_test = duration_100ms != 0;
    if (led.lamp_test) {
        led.lamp_test_100ms = duration_100ms;
        led.lamp_test_colour = colour;
        ends_of_tests[index]->start(std::chrono::milliseconds(100) * duration_100ms);
    } else {
        ends_of_tests[index]->stop();
    }
}

// Commands -----------------------------------------------------------------------------------------------------------

/// Where the LED of that id stands in the tables; behind their end when there is none.
size_t index_of(uint8_t id) { return size_t(std::ranges::find(kinds, id, &led_kind::id) - std::begin(kinds)); }

/// Reads FRU and LED id. This board has FRU 0 only.
size_t read_led(byte_reader &request)
{
    const bool is_fru_0 = request.u8() == 0;
    const size_t index = index_of(request.u8());
    return is_fru_0 ? index : std::size(kinds);
}

completion leds::get_properties(byte_reader &request, byte_writer &answer)
{
    if (request.u8() != 0)
        return completion::not_present;
    answer.bytes(picmg()).u8(general_leds).u8(application_leds);
    return completion::ok;
}

completion leds::get_colours(byte_reader &request, byte_writer &answer)
{
    const size_t index = read_led(request);
    if (index == std::size(kinds))
        return completion::not_present;
    const led_kind &kind = kinds[index];
    answer.bytes(picmg()).u8(kind.colours).u8(kind.local_colour).u8(kind.override_colour);
    return completion::ok;
}

/// The colour that is meant, of an LED that has `present` now; 0 = none that it can show.
uint8_t meant_colour(const led_kind &kind, uint8_t wanted, uint8_t present, uint8_t by_default)
{
    if (wanted == unchanged)
        return present;
    if (wanted == own_default)
        return by_default;
    const bool can_show = wanted >= blue && wanted <= white && (kind.colours & 1U << wanted) != 0;
    return can_show ? wanted : uint8_t{0};
}

completion check_order(const led_order &order)
{
    const bool is_reserved = order.function > function_local && order.function < function_on;
    if (is_reserved)
        return completion::invalid_field;
    if (order.function == function_lamp_test && order.on_duration > longest_lamp_test_100ms)
        return completion::out_of_range;
    if (is_blink(order.function) && !is_blink(order.on_duration))
        return completion::out_of_range;
    return completion::ok;
}

completion leds::set_one(size_t index, const led_order &order)
{
    const led_kind &kind = kinds[index];
    led_state &led = state[index];
    const bool is_local = order.function == function_local;
    const uint8_t by_default = is_local ? kind.local_colour : kind.override_colour;
    const uint8_t present = is_local ? led.local_colour : led.colour;
    const uint8_t colour = meant_colour(kind, order.colour, present, by_default);
    if (colour == 0 && order.function != function_off)  // one that is off has no use for a colour
        return completion::invalid_field;
    if (order.function == function_lamp_test) {
        test(index, colour, order.on_duration);
        return completion::ok;
    }
    led.overridden = !is_local;
    if (is_local) {
        led.local_colour = colour;
        return completion::ok;
    }
    led.function = order.function;
    led.on_duration_10ms = is_blink(order.function) ? order.on_duration : uint8_t{0};
    if (colour != 0)
        led.colour = colour;
    return completion::ok;
}

/// Each LED shows the colour ordered, or its own where it has not got that.
completion leds::test_all(const led_order &order)
{
    if (order.function != function_lamp_test)
        return completion::invalid_field;
    for (size_t i = 0; i < state.size(); i++) {
        const uint8_t by_default = kinds[i].override_colour;
        const uint8_t colour = meant_colour(kinds[i], order.colour, state[i].colour, by_default);
        test(i, colour != 0 ? colour : by_default, order.on_duration);
    }
    return completion::ok;
}

completion leds::set_state(byte_reader &request, byte_writer &answer)
{
    const uint8_t fru = request.u8();
    const uint8_t id = request.u8();
    const led_order order = read_order(request);
    const size_t index = index_of(id);
    if (fru != 0 || (index == std::size(kinds) && id != all_leds))
        return completion::not_present;
    if (const completion refused = check_order(order); refused != completion::ok)
        return refused;
    answer.bytes(picmg());
    return id == all_leds ? test_all(order) : set_one(index, order);
}

completion leds::get_state(byte_reader &request, byte_writer &answer)
{
    constexpr uint8_t local_control_available = 0x01, overridden = 0x02, lamp_test = 0x04;
    const size_t index = read_led(request);
    if (index == std::size(kinds))
        return completion::not_present;
    const led_state &led = state[index];
    answer.bytes(picmg());
    answer.u8(uint8_t(local_control_available | (led.overridden ? overridden : 0) | (led.lamp_test ? lamp_test : 0)));
    answer.u8(kinds[index].local_function).u8(0).u8(led.local_colour);
    if (led.overridden || led.lamp_test)
        answer.u8(led.function).u8(led.on_duration_10ms).u8(led.colour);
    if (led.lamp_test)
        answer.u8(led.lamp_test_100ms);
    return completion::ok;
}

// JSON ---------------------------------------------------------------------------------------------------------------

json leds::to_json() const
{
    json all = json::object();
    for (size_t i = 0; i < state.size(); i++) {
        const led_state &led = state[i];
        all[kinds[i].name] = {{"overridden", led.overridden},
                              {"function", led.function},
                              {"on_duration_10ms", led.on_duration_10ms},
                              {"colour", colour_words[led.colour]},
                              {"local_colour", colour_words[led.local_colour]},
                              {"lamp_test", led.lamp_test},
                              {"lamp_test_100ms", led.lamp_test_100ms},
                              {"lamp_test_colour", colour_words[led.lamp_test_colour]}};
    }
    return all;
}

void read_colour(json_fields &fields, const char *key, const led_kind &kind, uint8_t &value)
{
    fields.choice(key, value, colour_words);
    if ((kind.colours & 1U << value) == 0)
        fields.refuse(key, "a colour that this LED can show is needed here");
}

void read_led_state(const json &json, const led_kind &kind, led_state &led)
{
    json_fields fields(json, std::string("/leds/") + kind.name);
    fields.boolean("overridden", led.overridden);
    fields.number("function", led.function, 0, UINT8_MAX);
    fields.number("on_duration_10ms", led.on_duration_10ms, 0, longest_blink);
    read_colour(fields, "colour", kind, led.colour);
    read_colour(fields, "local_colour", kind, led.local_colour);
    fields.boolean("lamp_test", led.lamp_test);
    fields.number("lamp_test_100ms", led.lamp_test_100ms, 0, longest_lamp_test_100ms);
    read_colour(fields, "lamp_test_colour", kind, led.lamp_test_colour);
    fields.done();
    if (led.function > longest_blink && led.function != function_on)
        fields.refuse("function", "a number from 0 to 250, or 255 for on, is needed here");
    if (is_blink(led.function) != is_blink(led.on_duration_10ms))
        fields.refuse("on_duration_10ms", "1 to 250 is needed here while the LED blinks, else 0");
}

void leds::from_json(const json &json)
{
    led_states wanted = state;
    json_fields fields(json, "/leds");
    for (size_t i = 0; i < wanted.size(); i++)
        if (const auto *part = fields.find(kinds[i].name))
            read_led_state(*part, kinds[i], wanted[i]);
    fields.done();
    take_over(wanted);
}

// Words --------------------------------------------------------------------------------------------------------------

std::string words_of_fru(byte_reader &data) { return text("FRU %u", data.u8()); }

std::string words_of_led(byte_reader &data)
{
    const std::string fru = words_of_fru(data);
    const uint8_t id = data.u8();
    if (id == all_leds)
        return fru + ", all LEDs";
    const size_t index = index_of(id);
    return fru + (index < std::size(kinds) ? text(", %s", kinds[index].name) : text(", LED %u", id));
}

std::string words_of_colour(uint8_t number)
{
    if (number == unchanged)
        return "colour as it is";
    if (number == own_default)
        return "default colour";
    return number >= blue && number <= white ? colour_words[number] : text("colour %u", number);
}

std::string words_of_order(byte_reader &data)
{
    const led_order order = read_order(data);
    const std::string in_colour = ", " + words_of_colour(order.colour);
    switch (order.function) {
    case function_off:
        return "off";
    case function_on:
        return "on" + in_colour;
    case function_local:
        return "local control" + in_colour;
    case function_lamp_test:
        return text("lamp test for %u.%u s", order.on_duration / 10, order.on_duration % 10) + in_colour;
    default:
        return is_blink(order.function)
                   ? text("%u ms off, %u ms on", order.function * 10, order.on_duration * 10) + in_colour
                   : text("function 0x%02X", order.function);
    }
}

std::string words_of_led_order(byte_reader &data)
{
    const std::string which = words_of_led(data);
    return which + ", " + words_of_order(data);
}

std::string words_of_properties(byte_reader &data)
{
    data.bytes(picmg().size());
    const uint8_t general = data.u8();
    return text("general LEDs 0x%02X, %u of the application", general, data.u8());
}

std::string words_of_state(byte_reader &data)
{
    data.bytes(picmg().size());
    const uint8_t flags = data.u8();
    return (flags & 0x04) != 0 ? "lamp test" : (flags & 0x02) != 0 ? "overridden" : "local control";
}

const command leds::table[] = {
    {.netfn = netfn::picmg,
     .number = 0x05,
     .lead = picmg(),
     .name = "Get FRU LED Properties",
     .length = {1, 1},
     .run = call<&leds::get_properties>,
     .request_words = words_of_fru,
     .answer_words = words_of_properties},
    {.netfn = netfn::picmg,
     .number = 0x06,
     .lead = picmg(),
     .name = "Get LED Color Capabilities",
     .length = {2, 2},
     .run = call<&leds::get_colours>,
     .request_words = words_of_led},
    {.netfn = netfn::picmg,
     .number = 0x07,
     .lead = picmg(),
     .name = "Set FRU LED State",
     .length = {5, 5},
     .run = call<&leds::set_state>,
     .request_words = words_of_led_order},
    {.netfn = netfn::picmg,
     .number = 0x08,
     .lead = picmg(),
     .name = "Get FRU LED State",
     .length = {2, 2},
     .run = call<&leds::get_state>,
     .request_words = words_of_led,
     .answer_words = words_of_state},
};

std::span<const command> leds::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_leds(controller &owner) { return std::make_unique<leds>(owner); }

}  // namespace ipmcd
