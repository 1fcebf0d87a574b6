/// Readings, thresholds, hysteresis and the test mode.
#include "tests/ipmcd/small_board.h"
#include "tests/ipmcd/traced.h"

namespace ipmcd
{

struct sensors : traced {
    sensors() : traced(all_families(), read_board(small_board_file)) {}

    // Of the board: full records with and without thresholds that can be read, discrete sensors, one of events only.
    static constexpr uint8_t temp = 0x11, slope = 18, lamp = 19, psu = 0x21, button = 0x31, nobody = 0x44;
    static constexpr uint8_t lower_critical = 0x02, upper_non_critical = 0x08, upper_critical = 0x10;

    reply reading(uint8_t number) { return ask(0x04, 0x2D, {number}); }
    reply thresholds(uint8_t number) { return ask(0x04, 0x27, {number}); }
    reply set_thresholds(uint8_t number, uint8_t mask, const bytes &six)
    {
        bytes data = {number, mask};
        data.insert(data.end(), six.begin(), six.end());
        return ask(0x04, 0x26, data);
    }
    reply hysteresis(uint8_t number, uint8_t mask = 0xFF) { return ask(0x04, 0x25, {number, mask}); }
    reply set_hysteresis(uint8_t number, uint8_t positive, uint8_t negative, uint8_t mask = 0xFF)
    {
        return ask(0x04, 0x24, {number, mask, positive, negative});
    }
    reply test(const bytes &number_and_what)
    {
        bytes data = {0xD9, 0x7E, 0x00, 0x0C};
        data.insert(data.end(), number_and_what.begin(), number_and_what.end());
        return ask(0x30, 0x91, data);
    }
    /// The temperature is measured anew.
    void measure(int degrees) { board.from_json({{"sensors", {{"CPU Temp", {{"reading", degrees}}}}}}); }
    uint8_t crossed() { return reading(temp).data[2]; }

    const reply ok{0x00, {}}, started{0x00, {0xD9, 0x7E, 0x00}}, not_there{0xCB, {}}, illegal{0xCD, {}},
        invalid{0xCC, {}}, wrong_length{0xC7, {}};
};

// Readings -----------------------------------------------------------------------------------------------------------

TEST_F(sensors, tell_their_readings)
{
    EXPECT_EQ(reading(temp), (reply{0x00, {42, 0xC0, 0xC0}}));      // events and scanning on, nothing crossed
    EXPECT_EQ(reading(slope), (reply{0x00, {0x03, 0xC0, 0xC0}}));   // (-6 * 3 + 4) / 10 = -1.4
    EXPECT_EQ(reading(psu), (reply{0x00, {0, 0xC0, 0x01, 0xC0}}));  // states 4001h, the uppermost bit always set
    EXPECT_EQ(reading(lamp), (reply{0x00, {0, 0xC0, 0x01, 0x80}}));
    EXPECT_EQ(reading(button), illegal);
    EXPECT_EQ(reading(nobody), not_there);
}

TEST_F(sensors, a_reading_can_be_missing)
{
    board.from_json({{"sensors", {{"CPU Temp", {{"reading", nullptr}}}, {"PSU", {{"reading", nullptr}}}}}});
    EXPECT_EQ(reading(temp), (reply{0x00, {0, 0xE0, 0xC0}}));
    EXPECT_EQ(reading(psu), (reply{0x00, {0, 0xE0, 0x00, 0x80}}));
}

TEST_F(sensors, tell_which_thresholds_are_crossed)
{
    for (const auto &[degrees, status] : {std::pair{79, 0xC0}, {80, 0xC8}, {89, 0xC8}, {90, 0xD8}, {255, 0xD8}})
        EXPECT_EQ((measure(degrees), crossed()), status) << degrees;
    for (const auto &[degrees, status] : {std::pair{6, 0xC0}, {5, 0xC2}, {0, 0xC2}})
        EXPECT_EQ((measure(degrees), crossed()), status) << degrees;
}

TEST_F(sensors, what_is_crossed_stays_so_by_the_hysteresis)
{
    // Positive-going 3: from 80 up and until below 77. Negative-going 1: from 5 down and until above 6.
    for (const auto &[degrees, status] : {std::pair{80, 0xC8}, {77, 0xC8}, {76, 0xC0}, {79, 0xC0}})
        EXPECT_EQ((measure(degrees), crossed()), status) << degrees;
    for (const auto &[degrees, status] : {std::pair{5, 0xC2}, {6, 0xC2}, {7, 0xC0}, {6, 0xC0}})
        EXPECT_EQ((measure(degrees), crossed()), status) << degrees;
}

TEST_F(sensors, a_falling_slope_turns_the_raw_readings_round)
{
    // 60 V are -99; -100 are 60.4 V, -98 are 59.2 V. One's complement: 9Bh and 9Dh.
    test({slope, 1, 0x9B});
    EXPECT_EQ(reading(slope).data, (bytes{0x9B, 0xC0, 0xD0}));
    test({slope, 1, 0x9D});
    EXPECT_EQ(reading(slope).data, (bytes{0x9D, 0xC0, 0xC0}));
}

// Thresholds ---------------------------------------------------------------------------------------------------------

TEST_F(sensors, tell_the_thresholds_that_can_be_read)
{
    EXPECT_EQ(thresholds(temp), (reply{0x00, {0x1A, 0, 5, 0, 80, 90, 0}}));
    EXPECT_EQ(thresholds(slope), illegal);  // it has one, which cannot be read
    EXPECT_EQ(thresholds(psu), illegal);
    EXPECT_EQ(thresholds(button), illegal);
    EXPECT_EQ(thresholds(nobody), not_there);
}

TEST_F(sensors, take_the_thresholds_of_the_mask)
{
    EXPECT_EQ(set_thresholds(temp, upper_critical, {1, 2, 3, 4, 95, 6}), ok);
    EXPECT_EQ(thresholds(temp), (reply{0x00, {0x1A, 0, 5, 0, 80, 95, 0}}));
    EXPECT_EQ(set_thresholds(temp, upper_critical | upper_non_critical, {0, 0, 0, 40, 41, 0}), ok);
    EXPECT_EQ(thresholds(temp), (reply{0x00, {0x1A, 0, 5, 0, 40, 41, 0}}));
    EXPECT_EQ(crossed(), 0xD8);  // at once: it has 42 degrees
    EXPECT_EQ(set_thresholds(temp, 0, {1, 2, 3, 4, 5, 6}), ok);
    EXPECT_EQ(thresholds(temp), (reply{0x00, {0x1A, 0, 5, 0, 40, 41, 0}}));
}

TEST_F(sensors, refuse_thresholds_that_cannot_be_set)
{
    for (const uint8_t mask :
         bytes{0x01, lower_critical, 0x04, 0x20, 0x40, 0x80, 0xFF, lower_critical | upper_critical})
        EXPECT_EQ(set_thresholds(temp, mask, {9, 9, 9, 9, 9, 9}), invalid) << int(mask);
    EXPECT_EQ(set_thresholds(slope, upper_critical, {9, 9, 9, 9, 9, 9}), illegal);
    EXPECT_EQ(set_thresholds(lamp, upper_critical, {9, 9, 9, 9, 9, 9}), illegal);
    EXPECT_EQ(set_thresholds(psu, upper_critical, {9, 9, 9, 9, 9, 9}), illegal);
    EXPECT_EQ(set_thresholds(nobody, upper_critical, {9, 9, 9, 9, 9, 9}), not_there);
    EXPECT_EQ(thresholds(temp), (reply{0x00, {0x1A, 0, 5, 0, 80, 90, 0}}));
}

// Hysteresis ---------------------------------------------------------------------------------------------------------

TEST_F(sensors, take_and_tell_their_hysteresis)
{
    EXPECT_EQ(hysteresis(temp), (reply{0x00, {3, 1}}));
    EXPECT_EQ(set_hysteresis(temp, 16, 0), ok);
    EXPECT_EQ(hysteresis(temp), (reply{0x00, {16, 0}}));
    measure(80);
    measure(64);
    EXPECT_EQ(crossed(), 0xC8);
    EXPECT_EQ(set_hysteresis(temp, 15, 0), ok);
    EXPECT_EQ(crossed(), 0xC0);  // 64 is below 65
}

TEST_F(sensors, refuse_hysteresis_where_there_is_none)
{
    for (const uint8_t number : {slope, lamp, psu, button}) {
        EXPECT_EQ(hysteresis(number), illegal) << int(number);
        EXPECT_EQ(set_hysteresis(number, 1, 1), illegal) << int(number);
    }
    EXPECT_EQ(hysteresis(nobody), not_there);
    EXPECT_EQ(set_hysteresis(nobody, 1, 1), not_there);
}

TEST_F(sensors, the_mask_of_a_hysteresis_is_always_ff)
{
    EXPECT_EQ(hysteresis(temp, 0x00), invalid);
    EXPECT_EQ(set_hysteresis(temp, 9, 9, 0xFE), invalid);
    EXPECT_EQ(hysteresis(temp), (reply{0x00, {3, 1}}));
}

struct sensors_of_each_access : sensors {
    static board_description board_with(const char *access)
    {
        json file = small_board_file;
        file["records"][0]["hysteresis"]["access"] = access;
        file["records"][0]["settable"] = json::array();
        return read_board(file);
    }
    reply ask_a(const char *access, uint8_t command, const bytes &data)
    {
        controller other(clock, all_families(), board_with(access));
        return {ask_board(other, 0x04, command, data).code, {}};
    }
};

TEST_F(sensors_of_each_access, allow_what_their_record_says)
{
    const struct {
        const char *access;
        uint8_t get, set;
    } facts[] = {{"none", 0xCD, 0xCD}, {"readable", 0x00, 0xCD}, {"settable", 0x00, 0x00}, {"fixed", 0xCD, 0xCD}};
    for (const auto &[access, get, set] : facts) {
        EXPECT_EQ(ask_a(access, 0x25, {temp, 0xFF}).code, get) << access;
        EXPECT_EQ(ask_a(access, 0x24, {temp, 0xFF, 1, 1}).code, set) << access;
    }
    EXPECT_EQ(ask_a("none", 0x27, {temp}).code, 0x00);
    EXPECT_EQ(ask_a("none", 0x26, {temp, 0, 0, 0, 0, 0, 0, 0}).code, 0xCD);  // its thresholds can only be read
}

// Test mode ----------------------------------------------------------------------------------------------------------

TEST_F(sensors, report_a_test_value_until_it_is_stopped)
{
    EXPECT_EQ(test({temp, 1, 95}), started);
    EXPECT_EQ(reading(temp), (reply{0x00, {95, 0xC0, 0xD8}}));
    measure(20);
    EXPECT_EQ(reading(temp).data[0], 95);
    EXPECT_EQ(test({temp, 1, 3}), started);
    EXPECT_EQ(reading(temp), (reply{0x00, {3, 0xC0, 0xC2}}));
    EXPECT_EQ(test({temp, 0, 0}), started);
    EXPECT_EQ(reading(temp), (reply{0x00, {20, 0xC0, 0xC0}}));
    EXPECT_EQ(test({temp, 0, 77}), started);  // nothing to stop, and a value that nobody looks at
}

TEST_F(sensors, a_discrete_one_is_tested_with_its_states)
{
    EXPECT_EQ(test({psu, 1, 0x34, 0x12}), started);
    EXPECT_EQ(reading(psu), (reply{0x00, {0, 0xC0, 0x34, 0x92}}));
    EXPECT_EQ(test({psu, 0, 0}), started);
    EXPECT_EQ(reading(psu), (reply{0x00, {0, 0xC0, 0x01, 0xC0}}));
    EXPECT_EQ(test({lamp, 1, 0x02}), started);  // one byte: its record is a full one
    EXPECT_EQ(reading(lamp), (reply{0x00, {0, 0xC0, 0x02, 0x80}}));
    EXPECT_EQ(test({button, 1, 0x01, 0x00}), started);
    EXPECT_EQ(state_of("sensors")["Button"].dump(), R"({"test":1})");
}

TEST_F(sensors, a_test_value_has_the_size_of_the_record_it_is_for)
{
    EXPECT_EQ(test({temp, 1, 95, 0}), wrong_length);
    EXPECT_EQ(test({psu, 1, 1}), wrong_length);
    EXPECT_EQ(test({psu, 0, 0, 0}), wrong_length);
    EXPECT_EQ(test({temp, 0}), wrong_length);
    EXPECT_EQ(test({temp, 1, 0, 0, 0}), wrong_length);
    EXPECT_EQ(test({}), wrong_length);
    EXPECT_EQ(test({psu, 1, 0xFF, 0x7F}), started);
    EXPECT_EQ(test({psu, 1, 0x00, 0x80}), (reply{0xC9, {}}));  // there are 15 states
    EXPECT_EQ(test({temp, 2, 0}), invalid);
    EXPECT_EQ(test({nobody, 1, 0}), not_there);
}

TEST_F(sensors, a_cold_reset_ends_tests_and_keeps_the_settings)
{
    test({temp, 1, 95});
    set_thresholds(temp, upper_critical, {0, 0, 0, 0, 96, 0});
    set_hysteresis(temp, 7, 8);
    ask(0x06, 0x02, {});
    clock.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(reading(temp), (reply{0x00, {42, 0xC0, 0xC0}}));
    EXPECT_EQ(thresholds(temp).data[5], 96);
    EXPECT_EQ(hysteresis(temp), (reply{0x00, {7, 8}}));
}

TEST_F(sensors, requests_have_their_lengths)
{
    EXPECT_EQ(ask(0x04, 0x24, {temp, 0xFF, 1}), wrong_length);
    EXPECT_EQ(ask(0x04, 0x24, {temp, 0xFF, 1, 1, 1}), wrong_length);
    EXPECT_EQ(ask(0x04, 0x25, {temp}), wrong_length);
    EXPECT_EQ(ask(0x04, 0x25, {temp, 0xFF, 0}), wrong_length);
    EXPECT_EQ(set_thresholds(temp, 0, {1, 2, 3, 4, 5}), wrong_length);
    EXPECT_EQ(set_thresholds(temp, 0, {1, 2, 3, 4, 5, 6, 7}), wrong_length);
    for (const uint8_t command : bytes{0x27, 0x2D}) {
        EXPECT_EQ(ask(0x04, command, {}), wrong_length);
        EXPECT_EQ(ask(0x04, command, {temp, 0}), wrong_length);
    }
}

// State --------------------------------------------------------------------------------------------------------------

TEST_F(sensors, have_their_state_in_json)
{
    const json factory = state_of("sensors");
    EXPECT_EQ(factory["CPU Temp"].dump(),
              R"({"reading":42.0,"test":null,"thresholds":{"lower_critical":5.0,"upper_non_critical":80.0,)"
              R"("upper_critical":90.0},"hysteresis":{"positive":3,"negative":1}})");
    EXPECT_EQ(factory["Slope"].dump(),
              R"({"reading":-1.4,"test":null,"thresholds":{"upper_critical":59.8}})");  // (-6 * -99 + 4) / 10
    EXPECT_EQ(factory["PSU"].dump(), R"({"reading":16385,"test":null})");
    EXPECT_EQ(factory["Button"].dump(), R"({"test":null})");
    test({temp, 1, 95});
    set_thresholds(temp, upper_critical, {0, 0, 0, 0, 96, 0});
    set_hysteresis(temp, 7, 8);
    const json changed = state_of("sensors");
    EXPECT_EQ(changed["CPU Temp"].dump(),
              R"({"reading":42.0,"test":95.0,"thresholds":{"lower_critical":5.0,"upper_non_critical":80.0,)"
              R"("upper_critical":96.0},"hysteresis":{"positive":7,"negative":8}})");
    board.reset();
    EXPECT_EQ(state_of("sensors"), factory);
    board.from_json({{"sensors", changed}});
    EXPECT_EQ(state_of("sensors"), changed);
    EXPECT_EQ(reading(temp), (reply{0x00, {95, 0xC0, 0xC8}}));
}

TEST_F(sensors, values_are_rounded_to_what_they_can_measure)
{
    board.from_json({{"sensors", {{"CPU Temp", {{"reading", 42.6}, {"thresholds", {{"lower_critical", 9.4}}}}}}}});
    EXPECT_EQ(reading(temp).data[0], 43);
    EXPECT_EQ(thresholds(temp).data[2], 9);
}

TEST_F(sensors, refuse_a_state_that_does_not_fit)
{
    const json before = state_of("sensors");
    for (const json &wrong :
         {json{{"CPU Temp", {{"reading", 256}}}}, json{{"CPU Temp", {{"reading", "42"}}}},
          json{{"CPU Temp", {{"test", -1}}}}, json{{"CPU Temp", {{"thresholds", {{"upper_critical", 256}}}}}},
          json{{"CPU Temp", {{"thresholds", {{"lower_non_critical", 1}}}}}},
          json{{"CPU Temp", {{"hysteresis", {{"positive", 256}}}}}},
          json{{"CPU Temp", {{"hysteresis", {{"both", 1}}}}}}, json{{"CPU Temp", {{"colour", 1}}}},
          json{{"Slope", {{"hysteresis", json::object()}}}}, json{{"PSU", {{"reading", 0x8000}}}},
          json{{"PSU", {{"thresholds", json::object()}}}}, json{{"Button", {{"reading", 1}}}}, json{{"CPU Temp", 42}},
          json(7)})
        EXPECT_THROW(board.from_json({{"sensors", wrong}}), bad_state) << wrong;
    EXPECT_EQ(state_of("sensors"), before);
}

TEST_F(sensors, the_state_of_another_board_is_refused_by_name)
{
    try {
        board.from_json({{"sensors", {{"CPU Temp", {{"reading", 1}}}, {"CPU9 Temp", json::object()}}}});
        FAIL();
    } catch (const bad_state &problem) {
        EXPECT_STREQ(problem.what(), "/sensors/CPU9 Temp: board \"small\" has no such sensor");
    }
    EXPECT_EQ(reading(temp).data[0], 42);
}

TEST_F(sensors, are_shown_in_a_line_each)
{
    EXPECT_EQ(board.shown()["sensors"].dump(), R"({"CPU Temp":{"number":"0x11","reading":42.0,"unit":"degrees C"},)"
                                               R"("Slope":{"number":"0x12","reading":-1.4,"unit":"volts"},)"
                                               R"("Lamp":{"number":"0x13","reading":1},)"
                                               R"("PSU":{"number":"0x21","reading":16385},)"
                                               R"("Button":{"number":"0x31"}})");
    test({temp, 1, 95});
    EXPECT_EQ(board.shown()["sensors"]["CPU Temp"].dump(),
              R"({"number":"0x11","reading":95.0,"unit":"degrees C","crossed":["upper_non_critical","upper_critical"],)"
              R"("in_test":true})");
}

TEST_F(sensors, are_shown_one_by_one)
{
    test({temp, 1, 95});
    EXPECT_EQ(board.details("sensor", "CPU Temp").value().dump(),
              R"({"number":"0x11","record":"full","record_id":1,"type":"temperature","at":"processor 1","raw":95,)"
              R"("unit":"degrees C","crossed":["upper_non_critical","upper_critical"],)"
              R"("readable":["lower_critical","upper_non_critical","upper_critical"],)"
              R"("settable":["upper_non_critical","upper_critical"],"reading":42.0,"test":95.0,)"
              R"("thresholds":{"lower_critical":5.0,"upper_non_critical":80.0,"upper_critical":90.0},)"
              R"("hysteresis":{"positive":3,"negative":1}})");
    EXPECT_EQ(board.details("sensor", "Lamp").value().dump(),
              R"({"number":"0x13","record":"full","record_id":3,"type":"0xC3","at":"unspecified 1","reading":1,)"
              R"("test":null})");
    EXPECT_EQ(board.details("sensor", "Button").value()["record"], "event only");
    EXPECT_THROW(board.details("sensor", "CPU"), std::out_of_range);
    EXPECT_FALSE(board.details("fan", "1"));
}

TEST_F(sensors, speak_in_the_trace)
{
    EXPECT_EQ(lines(0x04, 0x2D, {temp}),
              (expected{"request 04/2D Get Sensor Reading: 11 (sensor 0x11)", "answer  00 done: 2A C0 C0 (raw 42)"}));
    EXPECT_EQ(lines(0x04, 0x2D, {psu})[1], "answer  00 done: 00 C0 01 C0 (states 0x4001)");
    EXPECT_EQ(lines(0x04, 0x2D, {nobody}), (expected{"request 04/2D Get Sensor Reading: 44 (sensor 0x44)",
                                                     "answer  CB sensor, data or record not present"}));
    EXPECT_EQ(lines(0x04, 0x27, {temp}),
              (expected{"request 04/27 Get Sensor Thresholds: 11 (sensor 0x11)",
                        "answer  00 done: 1A 00 05 00 50 5A 00 (lower critical 5, upper non-critical 80, upper "
                        "critical 90)"}));
    EXPECT_EQ(lines(0x04, 0x26, {temp, 0x10, 0, 0, 0, 0, 96, 0})[0],
              "request 04/26 Set Sensor Thresholds: 11 10 00 00 00 00 60 00 (sensor 0x11, upper critical 96)");
    EXPECT_EQ(lines(0x04, 0x25, {temp, 0xFF}), (expected{"request 04/25 Get Sensor Hysteresis: 11 FF (sensor 0x11)",
                                                         "answer  00 done: 03 01 (positive 3, negative 1)"}));
    EXPECT_EQ(lines(0x04, 0x24, {temp, 0xFF, 4, 5})[0],
              "request 04/24 Set Sensor Hysteresis: 11 FF 04 05 (sensor 0x11, positive 4, negative 5)");
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 0x0C, temp, 1, 99}),
              (expected{"request 30/91 Sensor Test: D9 7E 00 0C 11 01 63 (sensor 0x11, value 99)",
                        "answer  00 done: D9 7E 00"}));
    EXPECT_EQ(lines(0x04, 0x2D, {temp})[1], "answer  00 done: 63 C0 D8 (raw 99, crossed 0x18)");
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 0x0C, temp, 0, 0})[0],
              "request 30/91 Sensor Test: D9 7E 00 0C 11 00 00 (sensor 0x11, stop)");
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 0x0C, temp, 7, 0})[0],
              "request 30/91 Sensor Test: D9 7E 00 0C 11 07 00 (sensor 0x11, action 7)");
    board.from_json({{"sensors", {{"CPU Temp", {{"reading", nullptr}}}}}});
    EXPECT_EQ(lines(0x04, 0x2D, {temp})[1], "answer  00 done: 00 E0 C0 (unavailable)");
}

}  // namespace ipmcd
