#include "tests/ipmcd/traced.h"

namespace ipmcd
{

using namespace std::chrono_literals;

struct leds : traced {
    reply set(uint8_t led, uint8_t function, uint8_t on_duration, uint8_t colour)
    {
        return ask(0x2C, 0x07, {0x00, 0x00, led, function, on_duration, colour});
    }
    reply get(uint8_t led) { return ask(0x2C, 0x08, {0x00, 0x00, led}); }

    enum : uint8_t { off = 0x00, lamp_test = 0xFB, local_control = 0xFC, on = 0xFF };
    enum : uint8_t { blue = 1, red, green, amber, orange, white, unchanged = 0xE, by_default = 0xF };
    static constexpr uint8_t all = 0xFF;
    const reply done{0x00, {0x00}}, not_there{0xCB, {}}, out_of_range{0xC9, {}}, invalid{0xCC, {}};
};

// All requests and answers begin with PICMG identifier 0; requests go on with FRU 0.
TEST_F(leds, are_three_general_ones_and_two_of_the_application)
{
    EXPECT_EQ(ask(0x2C, 0x05, {0, 0}), (reply{0x00, {0x00, 0x07, 0x02}}));
    EXPECT_EQ(ask(0x2C, 0x05, {0, 1}), not_there);
    EXPECT_EQ(ask(0x2C, 0x05, {1, 0}), invalid);
    EXPECT_EQ(ask(0x2C, 0x05, {0}), (reply{0xC7, {}}));
}

TEST_F(leds, tell_their_colours)
{
    const std::pair<uint8_t, reply> cases[] = {
        {0, {0x00, {0x00, 0x02, blue, blue}}},    // bit 1: blue
        {1, {0x00, {0x00, 0x14, red, red}}},      // bits 2 and 4: red, amber
        {2, {0x00, {0x00, 0x18, green, green}}},  // bits 3 and 4
        {4, {0x00, {0x00, 0x0C, green, red}}},    // bits 2 and 3
        {5, {0x00, {0x00, 0x42, white, white}}},  // bits 1 and 6
        {3, not_there},
        {6, not_there},
        {all, not_there},
    };
    for (const auto &[led, expected_reply] : cases)
        EXPECT_EQ(ask(0x2C, 0x06, {0, 0, led}), expected_reply) << int(led);
    EXPECT_EQ(ask(0x2C, 0x06, {0, 1, 0}), not_there);
}

// State: flags, then local function, duration and colour, then those of the override, then the lamp test.
TEST_F(leds, are_under_local_control_from_the_factory)
{
    EXPECT_EQ(get(0), (reply{0x00, {0x00, 0x01, 0x00, 0x00, blue}}));
    EXPECT_EQ(get(2), (reply{0x00, {0x00, 0x01, 0xFF, 0x00, green}}));
    EXPECT_EQ(get(3), not_there);
    EXPECT_EQ(ask(0x2C, 0x08, {0, 1, 0}), not_there);
}

TEST_F(leds, are_switched)
{
    EXPECT_EQ(set(1, on, 0, amber), done);
    EXPECT_EQ(get(1), (reply{0x00, {0x00, 0x03, 0x00, 0x00, red, 0xFF, 0x00, amber}}));
    EXPECT_EQ(set(1, off, 0, 0), done);  // off has no use for a colour
    EXPECT_EQ(get(1), (reply{0x00, {0x00, 0x03, 0x00, 0x00, red, 0x00, 0x00, amber}}));
    EXPECT_EQ(set(4, on, 99, by_default), done);
    EXPECT_EQ(get(4), (reply{0x00, {0x00, 0x03, 0x00, 0x00, green, 0xFF, 0x00, red}}));
}

TEST_F(leds, blink)
{
    EXPECT_EQ(set(2, 100, 50, unchanged), done);
    EXPECT_EQ(get(2), (reply{0x00, {0x00, 0x03, 0xFF, 0x00, green, 100, 50, green}}));
    EXPECT_EQ(set(2, 0x01, 0xFA, green), done);
    EXPECT_EQ(set(2, 0xFA, 0x01, green), done);
    EXPECT_EQ(set(2, 0xFA, 0x00, green), out_of_range);
    EXPECT_EQ(set(2, 0x01, 0xFB, green), out_of_range);
}

TEST_F(leds, go_back_to_local_control_in_a_colour)
{
    set(2, on, 0, amber);
    EXPECT_EQ(set(2, local_control, 0, by_default), done);
    EXPECT_EQ(get(2), (reply{0x00, {0x00, 0x01, 0xFF, 0x00, green}}));
    set(2, on, 0, unchanged);
    EXPECT_EQ(get(2).data.back(), amber);  // the override's colour
    EXPECT_EQ(set(2, local_control, 0, amber), done);
    EXPECT_EQ(get(2), (reply{0x00, {0x00, 0x01, 0xFF, 0x00, amber}}));
}

TEST_F(leds, show_only_colours_they_have)
{
    EXPECT_EQ(set(0, on, 0, red), invalid);
    for (const uint8_t colour : bytes{0, 7, 0xD, 0x11, 0xFF})
        EXPECT_EQ(set(0, on, 0, colour), invalid) << int(colour);
    EXPECT_EQ(set(0, local_control, 0, red), invalid);
    EXPECT_EQ(get(0).data[1], 0x01);
}

TEST_F(leds, reserved_functions_are_invalid)
{
    EXPECT_EQ(set(0, 0xFD, 0, blue), invalid);
    EXPECT_EQ(set(0, 0xFE, 0, blue), invalid);
}

TEST_F(leds, a_lamp_test_ends_by_itself)
{
    set(0, on, 0, blue);
    EXPECT_EQ(set(0, lamp_test, 25, blue), done);  // 2.5 s
    EXPECT_EQ(get(0), (reply{0x00, {0x00, 0x07, 0x00, 0x00, blue, 0xFF, 0x00, blue, 25}}));
    clock.advance(2499ms);
    EXPECT_EQ(get(0).data[1], 0x07);
    clock.advance(1ms);
    EXPECT_EQ(get(0), (reply{0x00, {0x00, 0x03, 0x00, 0x00, blue, 0xFF, 0x00, blue}}));
}

TEST_F(leds, a_lamp_test_lasts_up_to_12_7_seconds)
{
    EXPECT_EQ(set(1, lamp_test, 127, red), done);
    EXPECT_EQ(set(1, lamp_test, 128, red), out_of_range);
    EXPECT_EQ(set(all, lamp_test, 255, red), out_of_range);
    clock.advance(12699ms);
    EXPECT_EQ(get(1).data[1], 0x05);
    EXPECT_EQ(set(1, lamp_test, 0, red), done);  // the end of it
    EXPECT_EQ(get(1), (reply{0x00, {0x00, 0x01, 0x00, 0x00, red}}));
}

TEST_F(leds, a_lamp_test_of_all_shows_each_in_a_colour_it_has)
{
    EXPECT_EQ(set(all, lamp_test, 50, green), done);
    for (const uint8_t led : bytes{0, 1, 2, 4, 5})
        EXPECT_EQ(get(led).data[1], 0x05) << int(led);
    const json state = state_of("leds");
    EXPECT_EQ(state["blueled"]["lamp_test_colour"], "blue");
    EXPECT_EQ(state["oem1"]["lamp_test_colour"], "green");
    clock.advance(5s);
    for (const uint8_t led : bytes{0, 1, 2, 4, 5})
        EXPECT_EQ(get(led).data[1], 0x01) << int(led);
}

TEST_F(leds, all_at_once_is_for_lamp_tests)
{
    for (const uint8_t function : bytes{off, on, local_control})
        EXPECT_EQ(set(all, function, 0, by_default), invalid) << int(function);
    EXPECT_EQ(ask(0x2C, 0x07, {0, 1, all, lamp_test, 5, by_default}), not_there);
}

TEST_F(leds, that_are_not_there_cannot_be_set)
{
    for (const uint8_t led : bytes{3, 6, 0xFE})
        EXPECT_EQ(set(led, on, 0, by_default), not_there) << int(led);
    EXPECT_EQ(ask(0x2C, 0x07, {0, 0, 0, on, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x2C, 0x07, {0, 0, 0, on, 0, blue, 0}), (reply{0xC7, {}}));
}

TEST_F(leds, a_cold_reset_ends_overrides_and_lamp_tests)
{
    set(0, on, 0, blue);
    set(1, lamp_test, 100, red);
    ask(0x06, 0x02, {});
    clock.advance(0ms);
    EXPECT_EQ(get(0).data[1], 0x01);
    EXPECT_EQ(get(1).data[1], 0x01);
}

TEST_F(leds, have_their_state_in_json)
{
    EXPECT_EQ(state_of("leds")["led1"].dump(),
              R"({"overridden":false,"function":0,"on_duration_10ms":0,"colour":"red","local_colour":"red",)"
              R"("lamp_test":false,"lamp_test_100ms":0,"lamp_test_colour":"red"})");
    board.from_json({{"leds",
                      {{"led1",
                        {{"overridden", true},
                         {"function", 10},
                         {"on_duration_10ms", 20},
                         {"colour", "amber"},
                         {"local_colour", "amber"},
                         {"lamp_test", true},
                         {"lamp_test_100ms", 3},
                         {"lamp_test_colour", "amber"}}}}}});
    EXPECT_EQ(get(1), (reply{0x00, {0x00, 0x07, 0x00, 0x00, amber, 10, 20, amber, 3}}));
    clock.advance(300ms);
    EXPECT_EQ(get(1).data[1], 0x03);
    board.reset();
    EXPECT_EQ(get(1).data[1], 0x01);
}

TEST_F(leds, refuse_a_state_that_does_not_fit)
{
    for (const json &wrong :
         {json{{"function", 0xFB}}, json{{"function", 0xFC}}, json{{"function", 5}}, json{{"on_duration_10ms", 5}},
          json{{"colour", "blue"}}, json{{"colour", ""}}, json{{"local_colour", "pink"}},
          json{{"lamp_test_colour", "green"}}, json{{"lamp_test_100ms", 128}}, json{{"overridden", 1}}})
        EXPECT_THROW(board.from_json({{"leds", {{"led1", wrong}}}}), bad_state) << wrong;
    EXPECT_THROW(board.from_json({{"leds", {{"led3", json::object()}}}}), bad_state);
}

TEST_F(leds, speak_in_the_trace)
{
    EXPECT_EQ(lines(0x2C, 0x05, {0, 0}),
              (expected{"request 2C/05 Get FRU LED Properties: 00 00 (FRU 0)",
                        "answer  00 done: 00 07 02 (general LEDs 0x07, 2 of the application)"}));
    EXPECT_EQ(
        lines(0x2C, 0x06, {0, 0, 5}),
        (expected{"request 2C/06 Get LED Color Capabilities: 00 00 05 (FRU 0, oem2)", "answer  00 done: 00 42 06 06"}));
    static const std::string request = "request 2C/07 Set FRU LED State: ";
    const std::pair<bytes, const char *> orders[] = {
        {{0, 0, 0xFF, 0xFB, 50, 0xF}, "00 00 FF FB 32 0F (FRU 0, all LEDs, lamp test for 5.0 s, default colour)"},
        {{0, 0, 1, 0, 0, 0}, "00 00 01 00 00 00 (FRU 0, led1, off)"},
        {{0, 0, 2, 0xFF, 0, 4}, "00 00 02 FF 00 04 (FRU 0, led2, on, amber)"},
        {{0, 0, 0, 0xFC, 0, 0xE}, "00 00 00 FC 00 0E (FRU 0, blueled, local control, colour as it is)"},
        {{0, 0, 4, 10, 250, 2}, "00 00 04 0A FA 02 (FRU 0, oem1, 100 ms off, 2500 ms on, red)"},
        {{0, 0, 3, 0xFD, 0, 1}, "00 00 03 FD 00 01 (FRU 0, LED 3, function 0xFD)"},
        {{0, 0, 1, 0xFF, 0, 0xFF}, "00 00 01 FF 00 FF (FRU 0, led1, on, colour 255)"},
    };
    for (const auto &[data, words] : orders)
        EXPECT_EQ(lines(0x2C, 0x07, data)[0], request + words);
    EXPECT_EQ(lines(0x2C, 0x08, {0, 0, 0}), (expected{"request 2C/08 Get FRU LED State: 00 00 00 (FRU 0, blueled)",
                                                      "answer  00 done: 00 05 00 00 01 00 00 01 32 (lamp test)"}));
}

}  // namespace ipmcd
