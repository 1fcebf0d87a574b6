/// The LEDs of FRU 0 (PICMG 3.0, FRU LED commands), by the names that the tool takes.
#include "ipmi/get_requests.h"
#include "state/areas.h"

#include <cstdio>

/// What an LED does by itself, or what overrides that.
struct led_function {
    uint8_t function, on_duration, colour;
};

static void put_function(node &led, const led_function &shown, const char *what)
{
    static constexpr uint8_t off = 0x00, longest_blink = 0xFA, on = 0xFF;
    static constexpr const char *states[] = {"off", "blink", "on", nullptr};
    static constexpr const char *colours[] = {"blue", "red", "green", "amber", "orange", "white"};
    const unsigned state = shown.function == off             ? 0
                           : shown.function <= longest_blink ? 1
                           : shown.function == on            ? 2
                                                             : 3;
    put_word(led, "state", state, states, what);
    if (shown.colour >= 1 && shown.colour <= std::size(colours))
        led.put("colour", colours[shown.colour - 1]);
    else
        led.put_null("colour");
}

static led_function read_function(ipmi_reader &from)
{
    const uint8_t function = from.u8(), on_duration = from.u8();
    return {function, on_duration, from.u8()};
}

/// Of a lamp test the answer does not say more than that there is one.
static void read_led(node &area, uint8_t id, const char *name)
{
    static constexpr uint8_t overridden = 0x02, lamp_test = 0x04;
    static constexpr answer_shape local_only = {1, 4};
    static constexpr size_t with_override = 7;
    const char *const what = path("leds.%s", name);
    const reply got = ask(get_fru_led_state(id), local_only, what);
    if (!got.ok())
        return;
    ipmi_reader answer = got.read();
    const uint8_t flags = answer.u8();
    if ((flags & (overridden | lamp_test)) == overridden && !has_bytes(got, with_override, what))
        return;
    node &led = area.object(keep(name));
    const led_function local = read_function(answer), override = read_function(answer);
    if ((flags & lamp_test) != 0) {
        led.put("control", "lamp_test");
        led.put("state", "on");
        led.put_null("colour");
    } else if ((flags & overridden) != 0) {
        led.put("control", "override");
        put_function(led, override, what);
    } else {
        led.put("control", "local");
        put_function(led, local, what);
    }
}

bool read_leds(report &, node &area)
{
    static constexpr const char *names[] = {"blueled", "led1", "led2", "led3"};
    static constexpr unsigned first_application_led = 4, last_led = 0xFB;
    const reply got = ask(get_fru_led_properties(), {1, 2}, "leds");
    if (!got.ok())
        return false;
    const uint8_t general_leds = got.value(0), application_leds = got.value(1);
    for (size_t id = 0; id < std::size(names); ++id)
        if ((general_leds & 1 << id) != 0)
            read_led(area, uint8_t(id), names[id]);
    for (unsigned n = 0; n < application_leds && first_application_led + n <= last_led; ++n) {
        char name[8];
        snprintf(name, sizeof name, "oem%u", n + 1);
        read_led(area, uint8_t(first_application_led + n), name);
    }
    return true;
}
