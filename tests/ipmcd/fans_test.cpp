#include "tests/ipmcd/board.h"

namespace ipmcd
{

using namespace std::chrono_literals;

struct fans : board_test {
    // OEM requests carry enterprise number 32473 = 0x007ED9, low byte first.
    reply get_mode() { return ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x02}); }
    reply set_mode(const bytes &mode_and_time)
    {
        bytes data = {0xD9, 0x7E, 0x00, 0x01};
        data.insert(data.end(), mode_and_time.begin(), mode_and_time.end());
        return ask(0x30, 0x91, data);
    }
    reply get_level() { return ask(0x2C, 0x16, {0x00, 0x00}); }
    reply set_level(uint8_t level) { return ask(0x2C, 0x15, {0x00, 0x00, level}); }
};

static const reply mode_set{0x00, {0xD9, 0x7E, 0x00}};
static const reply level_taken{0x00, {0x00}};
static const reply is_auto{0x00, {0xD9, 0x7E, 0x00, 0x00, 0x1E, 0x00, 0x00, 0x00, 0x00}};
static const reply is_manual_30_s{0x00, {0xD9, 0x7E, 0x00, 0x01, 0x1E, 0x00, 0x00, 0x00, 0x00}};

TEST_F(fans, leave_the_factory_in_automatic_regulation)
{
    EXPECT_EQ(get_mode(), is_auto);
    EXPECT_EQ(get_level(), (reply{0x00, {0x00, 0xFF}}));  // local control: no level is ordered
}

TEST_F(fans, a_level_takes_them_over_for_30_seconds)
{
    EXPECT_EQ(set_level(60), level_taken);
    EXPECT_EQ(get_mode(), is_manual_30_s);
    EXPECT_EQ(get_level(), (reply{0x00, {0x00, 60}}));
    clock.advance(29999ms);
    EXPECT_EQ(get_mode(), is_manual_30_s);
    clock.advance(1ms);
    EXPECT_EQ(get_mode(), is_auto);
    EXPECT_EQ(get_level(), (reply{0x00, {0x00, 0xFF}}));
}

TEST_F(fans, a_manual_mode_with_a_time_expires)
{
    EXPECT_EQ(set_mode({0x01, 0x05, 0x01, 0x00, 0x00}), mode_set);  // 261 s
    EXPECT_EQ(get_mode(), (reply{0x00, {0xD9, 0x7E, 0x00, 0x01, 0x05, 0x01, 0x00, 0x00, 0x00}}));
    EXPECT_EQ(get_level(), (reply{0x00, {0x00, 50}}));  // the level that was ordered last
    clock.advance(260s);
    EXPECT_EQ(get_mode().data[3], 1);
    clock.advance(1s);
    EXPECT_EQ(get_mode().data[3], 0);
}

TEST_F(fans, setting_the_mode_again_starts_the_time_anew)
{
    set_mode({0x01, 10, 0, 0, 0});
    clock.advance(9s);
    set_mode({0x01, 10, 0, 0, 0});
    clock.advance(9s);
    EXPECT_EQ(get_mode().data[3], 1);
    clock.advance(1s);
    EXPECT_EQ(get_mode().data[3], 0);
}

TEST_F(fans, a_level_under_manual_mode_leaves_its_time_alone)
{
    set_mode({0x01, 10, 0, 0, 0});
    clock.advance(9s);
    EXPECT_EQ(set_level(80), level_taken);
    EXPECT_EQ(get_mode().data[4], 10);
    clock.advance(1s);
    EXPECT_EQ(get_mode().data[3], 0);
}

TEST_F(fans, a_time_of_0_is_forever)
{
    EXPECT_EQ(set_mode({0x01, 0, 0, 0, 0}), mode_set);
    EXPECT_EQ(get_mode(), (reply{0x00, {0xD9, 0x7E, 0x00, 0x01, 0, 0, 0, 0, 0x01}}));
    clock.advance(24h * 365);
    EXPECT_EQ(get_mode().data[3], 1);
}

TEST_F(fans, forever_ends_a_running_time)
{
    set_mode({0x01, 10, 0, 0, 0});
    set_mode({0x01, 0, 0, 0, 0});
    clock.advance(11s);
    EXPECT_EQ(get_mode().data[3], 1);
}

TEST_F(fans, automatic_mode_ends_manual_mode)
{
    set_mode({0x01, 0, 0, 0, 0});
    EXPECT_EQ(set_mode({0x00}), mode_set);
    EXPECT_EQ(get_mode().data[3], 0);
}

TEST_F(fans, the_longest_time_is_100000000_seconds)
{
    EXPECT_EQ(set_mode({0x01, 0x00, 0xE1, 0xF5, 0x05}), mode_set);
    EXPECT_EQ(set_mode({0x01, 0x01, 0xE1, 0xF5, 0x05}), (reply{0xC9, {}}));
    EXPECT_EQ(get_mode(), (reply{0x00, {0xD9, 0x7E, 0x00, 0x01, 0x00, 0xE1, 0xF5, 0x05, 0x00}}));
}

TEST_F(fans, each_mode_has_its_length)
{
    EXPECT_EQ(set_mode({}), (reply{0xC7, {}}));
    EXPECT_EQ(set_mode({0x00, 0, 0, 0, 0}), (reply{0xC7, {}}));
    for (size_t time_bytes = 0; time_bytes < 6; time_bytes++) {
        bytes data(1 + time_bytes, 0);
        data[0] = 1;
        EXPECT_EQ(set_mode(data).code, time_bytes == 4 ? 0x00 : 0xC7) << time_bytes;
    }
    EXPECT_EQ(ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x02, 0x00}), (reply{0xC7, {}}));
}

TEST_F(fans, there_are_two_modes)
{
    EXPECT_EQ(set_mode({0x02}), (reply{0xCC, {}}));
    EXPECT_EQ(set_mode({0xFF, 0, 0, 0, 0}), (reply{0xCC, {}}));
    EXPECT_EQ(get_mode(), is_auto);
}

TEST_F(fans, every_level_byte_is_a_percentage_special_or_invalid)
{
    set_level(42);
    for (unsigned level = 0; level < 256; level++) {
        const bool good = level <= 100 || level >= 254;
        EXPECT_EQ(set_level(uint8_t(level)).code, good ? 0x00 : 0xCC) << level;
    }
}

TEST_F(fans, a_refused_level_changes_nothing)
{
    set_level(42);
    set_level(101);
    EXPECT_EQ(get_level(), (reply{0x00, {0x00, 42}}));
    EXPECT_EQ(get_mode(), is_manual_30_s);
}

TEST_F(fans, level_254_is_the_emergency_shut_down)
{
    EXPECT_EQ(set_level(254), level_taken);
    EXPECT_EQ(get_level(), (reply{0x00, {0x00, 254}}));
}

TEST_F(fans, level_255_gives_them_back_to_local_control)
{
    set_level(42);
    EXPECT_EQ(set_level(255), level_taken);
    EXPECT_EQ(get_mode(), is_auto);
    clock.advance(10s);
    set_mode({0x01, 25, 0, 0, 0});
    clock.advance(20s);  // the time of the first manual mode would have run out by now
    EXPECT_EQ(get_level(), (reply{0x00, {0x00, 42}}));
}

TEST_F(fans, level_requests_are_for_fru_0_of_picmg)
{
    EXPECT_EQ(ask(0x2C, 0x15, {0x00, 0x01, 60}), (reply{0xCB, {}}));
    EXPECT_EQ(ask(0x2C, 0x16, {0x00, 0x01}), (reply{0xCB, {}}));
    EXPECT_EQ(ask(0x2C, 0x15, {0x01, 0x00, 60}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x2C, 0x16, {0x01, 0x00}), (reply{0xCC, {}}));
    EXPECT_EQ(get_mode(), is_auto);
}

TEST_F(fans, level_requests_have_their_lengths)
{
    for (const bytes &wrong : {bytes{}, bytes{0}, bytes{0, 0}, bytes{0, 0, 60, 0}})
        EXPECT_EQ(ask(0x2C, 0x15, wrong), (reply{0xC7, {}})) << hex(wrong);
    for (const bytes &wrong : {bytes{}, bytes{0}, bytes{0, 0, 0}})
        EXPECT_EQ(ask(0x2C, 0x16, wrong), (reply{0xC7, {}})) << hex(wrong);
}

TEST_F(fans, show_their_state_as_json)
{
    EXPECT_EQ(state_of("fans").dump(), R"({"mode":"auto","timeout_s":30,"level":50})");
    set_mode({0x01, 7, 0, 0, 0});
    set_level(99);
    EXPECT_EQ(state_of("fans").dump(), R"({"mode":"manual","timeout_s":7,"level":99})");
    board.reset();
    EXPECT_EQ(state_of("fans").dump(), R"({"mode":"auto","timeout_s":30,"level":50})");
}

TEST_F(fans, a_manual_mode_from_json_runs_its_time)
{
    board.from_json({{"fans", {{"mode", "manual"}, {"timeout_s", 5}, {"level", 254}}}});
    EXPECT_EQ(get_level(), (reply{0x00, {0x00, 254}}));
    clock.advance(4999ms);
    EXPECT_EQ(get_mode().data[3], 1);
    clock.advance(1ms);
    EXPECT_EQ(get_mode().data[3], 0);
}

TEST_F(fans, a_reset_stops_the_time)
{
    set_level(10);
    clock.advance(20s);
    board.reset();
    set_mode({0x01, 0, 0, 0, 0});
    clock.advance(20s);
    EXPECT_EQ(get_mode().data[3], 1);
}

TEST_F(fans, refuse_a_state_that_does_not_fit)
{
    set_level(42);
    for (const json &wrong : {json{{"mode", "fast"}}, json{{"mode", 1}}, json{{"timeout_s", 100000001}},
                              json{{"timeout_s", -1}}, json{{"level", 101}}, json{{"level", 255}},
                              json{{"level", "60"}}, json{{"speed", 1}}, json(7), json::array()})
        EXPECT_THROW(board.from_json({{"fans", wrong}}), bad_state) << wrong;
    EXPECT_EQ(get_level(), (reply{0x00, {0x00, 42}}));
}

}  // namespace ipmcd
