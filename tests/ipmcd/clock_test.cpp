#include "tests/ipmcd/traced.h"

namespace ipmcd
{

using namespace std::chrono_literals;

struct clock_family : traced {
    reply get() { return ask(0x0A, 0x48, {}); }
    reply set(const bytes &time) { return ask(0x0A, 0x49, time); }
    reply get_offset() { return ask(0x0A, 0x5C, {}); }
    reply set_offset(uint16_t minutes) { return ask(0x0A, 0x5D, {uint8_t(minutes), uint8_t(minutes >> 8)}); }
    const reply done{0x00, {}};
};

TEST_F(clock_family, starts_with_the_machines_time)
{
    EXPECT_EQ(get(), (reply{0x00, {0, 0, 0, 0}}));  // the test's clock begins in 1970
    clock.advance(258999ms);
    EXPECT_EQ(get(), (reply{0x00, {0x02, 0x01, 0, 0}}));
}

TEST_F(clock_family, is_set_and_runs_on)
{
    clock.advance(1000s);
    EXPECT_EQ(set({0x80, 0x43, 0x6D, 0x38}), done);  // 0x386D4380 = 946684800
    clock.advance(10s);
    EXPECT_EQ(get(), (reply{0x00, {0x8A, 0x43, 0x6D, 0x38}}));
    EXPECT_EQ(state_of("clock")["ahead_s"], 946684800 - 1000);
    EXPECT_EQ(set({0, 0, 0, 0}), done);
    EXPECT_EQ(state_of("clock")["ahead_s"], -1010);
    EXPECT_EQ(get(), (reply{0x00, {0, 0, 0, 0}}));
}

TEST_F(clock_family, lies_within_a_day_of_utc)
{
    EXPECT_EQ(get_offset(), (reply{0x00, {0, 0}}));
    EXPECT_EQ(set_offset(0xFEF2), done);  // -270 minutes
    EXPECT_EQ(get_offset(), (reply{0x00, {0xF2, 0xFE}}));
    EXPECT_EQ(set_offset(1440), done);
    EXPECT_EQ(set_offset(uint16_t(-1440)), done);
    EXPECT_EQ(set_offset(1441), (reply{0xC9, {}}));
    EXPECT_EQ(set_offset(uint16_t(-1441)), (reply{0xC9, {}}));
    EXPECT_EQ(set_offset(0x7FF), done);  // unspecified
    EXPECT_EQ(get_offset(), (reply{0x00, {0xFF, 0x07}}));
}

TEST_F(clock_family, requests_have_their_lengths)
{
    EXPECT_EQ(ask(0x0A, 0x48, {0}), (reply{0xC7, {}}));
    EXPECT_EQ(set({0, 0, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(set({0, 0, 0, 0, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x5C, {0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x5D, {0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x0A, 0x5D, {0, 0, 0}), (reply{0xC7, {}}));
}

TEST_F(clock_family, has_its_state_in_json)
{
    board.from_json({{"clock", {{"ahead_s", 3}, {"utc_offset_min", -30}}}});
    EXPECT_EQ(get(), (reply{0x00, {3, 0, 0, 0}}));
    EXPECT_EQ(get_offset(), (reply{0x00, {0xE2, 0xFF}}));
    EXPECT_EQ(state_of("clock").dump(), R"({"ahead_s":3,"utc_offset_min":-30})");
    for (const json &wrong :
         {json{{"utc_offset_min", 1441}}, json{{"utc_offset_min", 2048}}, json{{"utc_offset_min", -1441}},
          json{{"ahead_s", 4294967296}}, json{{"ahead_s", 0.5}}, json{{"ahead_s", 18446744073709551615U}}})
        EXPECT_THROW(board.from_json({{"clock", wrong}}), bad_state) << wrong;
    board.reset();
    EXPECT_EQ(state_of("clock").dump(), R"({"ahead_s":0,"utc_offset_min":0})");
}

TEST_F(clock_family, speaks_in_the_trace)
{
    EXPECT_EQ(lines(0x0A, 0x49, {0x80, 0x43, 0x6D, 0x38}),
              (expected{"request 0A/49 Set SEL Time: 80 43 6D 38 (2000-01-01 00:00:00 UTC)", "answer  00 done"}));
    EXPECT_EQ(lines(0x0A, 0x48, {}),
              (expected{"request 0A/48 Get SEL Time", "answer  00 done: 80 43 6D 38 (2000-01-01 00:00:00 UTC)"}));
    EXPECT_EQ(lines(0x0A, 0x5D, {0xF2, 0xFE})[0], "request 0A/5D Set SEL Time UTC Offset: F2 FE (-270 min)");
    EXPECT_EQ(lines(0x0A, 0x5D, {0xFF, 0x07})[0], "request 0A/5D Set SEL Time UTC Offset: FF 07 (unspecified)");
    EXPECT_EQ(lines(0x0A, 0x5C, {}),
              (expected{"request 0A/5C Get SEL Time UTC Offset", "answer  00 done: FF 07 (unspecified)"}));
}

}  // namespace ipmcd
