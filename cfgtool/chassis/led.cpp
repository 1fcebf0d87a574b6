#include "chassis/led.h"

#include "ipmi/get_requests.h"
#include "ipmi/privilege.h"
#include "ipmi/transport.h"
#include "ui/arguments.h"
#include "ui/console.h"

#include <cstring>

static constexpr char failure[] = "Set led state failed, error code: 0x%X";

/// What one LED, or all, shall do (PICMG 3.0, Set FRU LED State).
struct led_order {
    uint8_t function, on_duration, colour;
};

static ipmi_request set_fru_led_state(uint8_t led, const led_order &order)
{
    return ipmi_request(netfn_picmg, 0x07)
        .u8(0x00)
        .u8(0x00)
        .u8(led)
        .u8(order.function)
        .u8(order.on_duration)
        .u8(order.colour);
}

/// Descriptions begin at column 51, their continuations on the next terminal lines of 80 columns: all one line. Kept: a
/// last continuation stands 81 columns on.
static int print_usage()
{
    usage_error("Usage: cfgtool -t led -d ledstate -v <ledname> <option>[value]...");
    usage_error("\nOptions are:");
    usage_error("%-50s%s", "off", "LED off");
    usage_error("%-50s%s", "on  <color>", "LED on");
    usage_error("%-47s%-80s%-81s%s", "blink <off duration> <on duration> <color>",
                "LED BLINKING",  // Kept: at column 48
                "(duration range <1-250>,", "units is 10ms)");
    usage_error("%-50s%-80s%-80s%-81s%s", "lamptest <on duration> <color>", "LAMP TEST, Input ledname with",
                "\"ledall\" lamp all leds.", "(duration range <0-127>,", "units is 100ms)");
    usage_error("%-50s%s", "localcontrol <color>", "Local Control");
    return usage_error("\r\nColors are:\r\n"
                       "    1         Use BLUE\r\n"
                       "    2         Use RED\r\n"
                       "    3         Use GREEN\r\n"
                       "    4         Use AMBER\r\n"
                       "    5         Use ORANGE\r\n"
                       "    6         Use WHITE\r\n"
                       "    0xE       Do not change\r\n"
                       "    0xF       Use default color");
}

// Which LED ---------------------------------------------------------------------------------------------------------

static constexpr uint8_t all_leds = 0xFF;

/// The LED id of a name among those that the controller has; -1 = none of them.
static int find_led(const char *name, uint8_t general_leds, uint8_t application_leds)
{
    static constexpr const char *names[] = {"blueled", "led1", "led2", "led3"};
    for (int id = 0; id < 4; ++id)
        if ((general_leds & 1 << id) != 0 && strcmp(names[id], name) == 0)
            return id;

    const bool application_specific = strncmp(name, "oem", 3) == 0 || strncmp(name, "OEM", 3) == 0;
    const int32_t number = application_specific && name[3] != '\0' ? parse_number(name + 3) : -1;
    return number >= 0 && number <= application_leds ? 3 + number : -1;  // Kept: oem0 is LED 3
}

/// Asks the controller for its LEDs and finds the one named; -1 = told why not.
static int resolve_led(const char *name)
{
    const ipmi_answer got = exchange(get_fru_led_properties());
    if (!got.ok()) {
        fail(failure, got.error_code());
        return -1;
    }
    ipmi_reader properties(got.data);
    const uint8_t general_leds = properties.skip(1).u8();  // behind the PICMG identifier
    const uint8_t application_leds = properties.u8();
    const int id = find_led(name, general_leds, application_leds);
    if (id < 0)
        refuse("Can't find %s.", name);
    return id;
}

// What to do --------------------------------------------------------------------------------------------------------

/// Kept: compared signed, so that what is no number (-1) passes, here and below, and goes out as 0xFF.
static bool is_colour(int32_t value) { return value <= 6 || value == 14 || value == 15; }
static bool is_blink_duration(int32_t value) { return value != 0 && value <= 250; }

/// Take the words behind the option and fill in the order. False = a value out of range.
static bool order_off(char **, led_order &order)
{
    order = {0x00, 0x00, 0x00};
    return true;
}

template <uint8_t function>
static bool order_with_colour(char **values, led_order &order)
{
    const int32_t colour = parse_number(values[0]);
    order = {function, 0x00, uint8_t(colour)};
    return is_colour(colour);
}

static bool order_blink(char **values, led_order &order)
{
    const int32_t off_10ms = parse_number(values[0]), on_10ms = parse_number(values[1]);
    const int32_t colour = parse_number(values[2]);
    order = {uint8_t(off_10ms), uint8_t(on_10ms), uint8_t(colour)};
    return is_blink_duration(off_10ms) && is_blink_duration(on_10ms) && is_colour(colour);
}

static bool order_lamptest(char **values, led_order &order)
{
    const int32_t on_100ms = parse_number(values[0]), colour = parse_number(values[1]);
    order = {0xFB, uint8_t(on_100ms), uint8_t(colour)};
    return on_100ms <= 127 && is_colour(colour);
}

struct led_option {
    const char *word;
    uint8_t count;  // of the arguments: "-v", the LED's name, the option and its values
    bool for_all;   // "ledall" may have it
    bool (*order)(char **values, led_order &order);
};
static constexpr led_option led_options[] = {
    {"off", 3, false, order_off},
    {"on", 4, false, order_with_colour<0xFF>},
    {"blink", 6, false, order_blink},
    {"lamptest", 5, true, order_lamptest},
    {"localcontrol", 4, false, order_with_colour<0xFC>},
};

static const led_option *find_option(const char *word)
{
    for (const led_option &option : led_options)
        if (strcmp(option.word, word) == 0)
            return &option;
    return nullptr;
}

int ledstate(const invocation &typed)
{
    if (!check_privilege(typed))
        return 0;
    if (typed.count < 3 || strcmp(typed.arguments[0], "-v") != 0)
        return print_usage();
    const bool all = strcmp(typed.value(0), "ledall") == 0;
    const int led = all ? all_leds : resolve_led(typed.value(0));
    if (led < 0)
        return 0;
    const led_option *option = find_option(typed.value(1));
    if (option == nullptr || (all && !option->for_all) || typed.count != option->count)
        return print_usage();
    led_order order;
    if (!option->order(typed.arguments + 3, order)) {
        refuse("Input parameter out of range.");
        return print_usage();
    }

    const ipmi_answer got = exchange(set_fru_led_state(uint8_t(led), order));
    if (!got.ok())
        return fail(failure, got.error_code());
    done("Set led state successfully.");
    return 1;
}
