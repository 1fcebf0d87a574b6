#include "tests/ipmcd/traced.h"

namespace ipmcd
{

using namespace std::chrono_literals;

struct identify : traced {
    reply order(const bytes &data) { return ask(0x00, 0x04, data); }
    json light() { return state_of("identify")["light"]; }
    const reply done{0x00, {}};
};

TEST_F(identify, lights_for_15_seconds_by_default)
{
    EXPECT_EQ(light(), "off");
    EXPECT_EQ(order({}), done);
    EXPECT_EQ(light(), "temporary");
    clock.advance(14999ms);
    EXPECT_EQ(light(), "temporary");
    clock.advance(1ms);
    EXPECT_EQ(light(), "off");
}

TEST_F(identify, takes_an_interval)
{
    order({255, 0});
    clock.advance(254s);
    EXPECT_EQ(light(), "temporary");
    clock.advance(1s);
    EXPECT_EQ(light(), "off");
    order({3});
    clock.advance(2s);
    order({3});  // anew
    clock.advance(2s);
    EXPECT_EQ(light(), "temporary");
}

TEST_F(identify, an_interval_of_0_is_off)
{
    order({10});
    EXPECT_EQ(order({0, 0}), done);
    EXPECT_EQ(light(), "off");
}

TEST_F(identify, forced_it_stays_on)
{
    order({5});
    EXPECT_EQ(order({0xFF, 0x01}), done);
    clock.advance(24h);
    EXPECT_EQ(light(), "on");
    EXPECT_EQ(order({0, 1}), done);  // whatever the interval
    EXPECT_EQ(light(), "on");
    order({0});
    EXPECT_EQ(light(), "off");
}

TEST_F(identify, refuses_reserved_bits_and_more_data)
{
    EXPECT_EQ(order({10, 2}), (reply{0xCC, {}}));
    EXPECT_EQ(order({10, 0x81}), (reply{0xCC, {}}));
    EXPECT_EQ(order({10, 0, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(light(), "off");
}

TEST_F(identify, ends_with_a_cold_reset)
{
    order({0, 1});
    ask(0x06, 0x02, {});
    EXPECT_EQ(light(), "on");  // the answer goes out first
    clock.advance(0ms);
    EXPECT_EQ(light(), "off");
}

TEST_F(identify, shows_its_state_as_json)
{
    EXPECT_EQ(state_of("identify").dump(), R"({"light":"off","interval_s":15})");
    board.from_json({{"identify", {{"light", "temporary"}, {"interval_s", 2}}}});
    clock.advance(1999ms);
    EXPECT_EQ(light(), "temporary");
    clock.advance(1ms);
    EXPECT_EQ(light(), "off");
    board.from_json({{"identify", {{"light", "on"}}}});
    EXPECT_EQ(light(), "on");
    board.from_json({{"identify", {{"light", "off"}}}});
    EXPECT_EQ(light(), "off");
    board.reset();
    EXPECT_EQ(state_of("identify").dump(), R"({"light":"off","interval_s":15})");
    for (const json &wrong :
         {json{{"light", "bright"}}, json{{"interval_s", 0}}, json{{"interval_s", 256}}, json{{"colour", "blue"}}})
        EXPECT_THROW(board.from_json({{"identify", wrong}}), bad_state) << wrong;
}

TEST_F(identify, speaks_in_the_trace)
{
    EXPECT_EQ(lines(0x00, 0x04, {}), (expected{"request 00/04 Chassis Identify", "answer  00 done"}));
    EXPECT_EQ(lines(0x00, 0x04, {44, 0})[0], "request 00/04 Chassis Identify: 2C 00 (on for 44 s)");
    EXPECT_EQ(lines(0x00, 0x04, {0, 0})[0], "request 00/04 Chassis Identify: 00 00 (off)");
    EXPECT_EQ(lines(0x00, 0x04, {255, 1})[0], "request 00/04 Chassis Identify: FF 01 (on)");
}

}  // namespace ipmcd
