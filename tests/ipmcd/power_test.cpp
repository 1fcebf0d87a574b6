#include "tests/ipmcd/traced.h"

namespace ipmcd
{

using namespace std::chrono_literals;

struct power : traced {
    reply status() { return ask(0x00, 0x01, {}); }
    reply control(uint8_t order) { return ask(0x00, 0x02, {order}); }
    reply fru(uint8_t option) { return ask(0x2C, 0x04, {0x00, 0x00, option}); }
    json count(const char *what) { return state_of("power")[what]; }
    bool is_on() { return (status().data[0] & 0x01) != 0; }
    void set_shutdown_timeout(uint16_t tenths)
    {
        ASSERT_EQ(ask(0x00, 0x08, {0x62, uint8_t(tenths), uint8_t(tenths >> 8)}), done);
    }

    enum : uint8_t { down = 0, up = 1, cycle = 2, hard_reset = 3, soft_shutdown = 5 };
    enum : uint8_t { cold_reset = 0, graceful_reboot = 2 };
    const reply done{0x00, {}}, fru_done{0x00, {0x00}}, not_in_this_state{0xD5, {}};
};

TEST_F(power, is_on_from_the_factory)
{
    // 20: the previous state comes back after a power failure; 40: the identify state is told.
    EXPECT_EQ(status(), (reply{0x00, {0x21, 0x00, 0x40}}));
}

TEST_F(power, goes_off_and_on)
{
    EXPECT_EQ(control(down), done);
    EXPECT_EQ(status(), (reply{0x00, {0x20, 0x00, 0x40}}));
    EXPECT_EQ(control(up), done);
    EXPECT_EQ(status(), (reply{0x00, {0x21, 0x10, 0x40}}));  // came on by command
    EXPECT_EQ(count("boots"), 1);
}

TEST_F(power, orders_that_the_host_cannot_follow_are_refused)
{
    EXPECT_EQ(control(up), not_in_this_state);
    control(down);
    for (const uint8_t order : bytes{down, cycle, hard_reset, soft_shutdown})
        EXPECT_EQ(control(order), not_in_this_state) << int(order);
    for (const uint8_t option : bytes{cold_reset, graceful_reboot})
        EXPECT_EQ(fru(option), not_in_this_state) << int(option);
    EXPECT_FALSE(is_on());
    EXPECT_EQ(count("boots"), 0);
}

TEST_F(power, a_soft_shutdown_takes_the_host_its_time)
{
    EXPECT_EQ(control(soft_shutdown), done);
    clock.advance(1999ms);
    EXPECT_TRUE(is_on());
    EXPECT_EQ(state_of("power")["phase"], "shutting down");
    clock.advance(1ms);
    EXPECT_FALSE(is_on());
    EXPECT_EQ(count("soft_shutdowns"), 1);
    EXPECT_EQ(count("cut_shutdowns"), 0);
}

TEST_F(power, a_soft_shutdown_is_cut_at_the_time_out)
{
    set_shutdown_timeout(100);
    board.from_json({{"power", {{"shutdown_ms", 10001}}}});
    control(soft_shutdown);
    clock.advance(9999ms);
    EXPECT_TRUE(is_on());
    clock.advance(1ms);
    EXPECT_FALSE(is_on());
    EXPECT_EQ(count("soft_shutdowns"), 0);
    EXPECT_EQ(count("cut_shutdowns"), 1);
}

TEST_F(power, without_a_time_out_a_soft_shutdown_is_never_cut)
{
    set_shutdown_timeout(0);
    board.from_json({{"power", {{"shutdown_ms", 7'000'000}}}});  // longer than the longest time-out
    control(soft_shutdown);
    clock.advance(6999s);
    EXPECT_TRUE(is_on());
    clock.advance(1s);
    EXPECT_FALSE(is_on());
    EXPECT_EQ(count("soft_shutdowns"), 1);
}

TEST_F(power, during_a_shutdown_only_force_helps)
{
    control(soft_shutdown);
    EXPECT_EQ(control(soft_shutdown), not_in_this_state);
    EXPECT_EQ(control(up), not_in_this_state);
    EXPECT_EQ(fru(graceful_reboot), not_in_this_state);
    EXPECT_EQ(control(hard_reset), done);
    clock.advance(2s);  // when it would have been off
    EXPECT_TRUE(is_on());
    EXPECT_EQ(count("boots"), 1);
    control(soft_shutdown);
    EXPECT_EQ(control(down), done);
    EXPECT_FALSE(is_on());
    EXPECT_EQ(control(up), done);
    clock.advance(2s);
    EXPECT_TRUE(is_on());
}

TEST_F(power, a_cycle_is_a_second_without_power)
{
    EXPECT_EQ(control(cycle), done);
    EXPECT_FALSE(is_on());
    EXPECT_EQ(control(up), not_in_this_state);
    EXPECT_EQ(control(cycle), not_in_this_state);
    clock.advance(999ms);
    EXPECT_FALSE(is_on());
    clock.advance(1ms);
    EXPECT_EQ(status(), (reply{0x00, {0x21, 0x10, 0x40}}));
    EXPECT_EQ(count("boots"), 1);
    EXPECT_EQ(count("soft_shutdowns"), 0);
}

TEST_F(power, down_during_a_cycle_stays_down)
{
    control(cycle);
    EXPECT_EQ(control(down), done);
    clock.advance(2s);
    EXPECT_FALSE(is_on());
}

TEST_F(power, a_hard_reset_boots_at_once)
{
    EXPECT_EQ(control(hard_reset), done);
    EXPECT_EQ(status(), (reply{0x00, {0x21, 0x00, 0x40}}));
    EXPECT_EQ(count("boots"), 1);
}

TEST_F(power, other_orders_are_invalid)
{
    for (const uint8_t order : bytes{4, 6, 0x10, 0xFF})
        EXPECT_EQ(control(order), (reply{0xCC, {}})) << int(order);
    EXPECT_EQ(ask(0x00, 0x02, {}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x00, 0x02, {1, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x00, 0x01, {0}), (reply{0xC7, {}}));
}

TEST_F(power, fru_control_resets_and_reboots)
{
    EXPECT_EQ(fru(cold_reset), fru_done);
    EXPECT_EQ(count("boots"), 1);
    EXPECT_EQ(fru(graceful_reboot), fru_done);
    clock.advance(1999ms);
    EXPECT_EQ(count("boots"), 1);
    clock.advance(1ms);
    EXPECT_EQ(count("boots"), 2);
    EXPECT_EQ(count("soft_shutdowns"), 1);
    EXPECT_TRUE(is_on());
}

TEST_F(power, fru_control_is_for_fru_0_of_picmg)
{
    EXPECT_EQ(ask(0x2C, 0x04, {0x00, 0x01, 0x00}), (reply{0xCB, {}}));
    EXPECT_EQ(ask(0x2C, 0x04, {0x01, 0x00, 0x00}), (reply{0xCC, {}}));
    for (const uint8_t option : bytes{1, 3, 4, 0xFF})
        EXPECT_EQ(fru(option), (reply{0xCC, {}})) << int(option);
    EXPECT_EQ(ask(0x2C, 0x04, {0x00, 0x00}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x2C, 0x04, {0x00, 0x00, 0x00, 0x00}), (reply{0xC7, {}}));
    EXPECT_EQ(count("boots"), 0);
}

TEST_F(power, the_status_tells_the_identify_light)
{
    ask(0x00, 0x04, {10});
    EXPECT_EQ(status().data[2], 0x50);
    ask(0x00, 0x04, {0, 1});
    EXPECT_EQ(status().data[2], 0x60);
}

TEST_F(power, a_cold_reset_of_the_controller_leaves_the_host_alone)
{
    control(soft_shutdown);
    ask(0x06, 0x02, {});
    clock.advance(0ms);
    EXPECT_TRUE(is_on());
    clock.advance(2s);
    EXPECT_FALSE(is_on());
}

TEST_F(power, shows_its_state_as_json)
{
    EXPECT_EQ(state_of("power").dump(), R"({"phase":"on","shutdown_ms":2000,"on_by_command":false,"boots":0,)"
                                        R"("soft_shutdowns":0,"cut_shutdowns":0})");
    control(cycle);
    EXPECT_EQ(state_of("power")["phase"], "power cycling");
    board.reset();
    clock.advance(1s);
    EXPECT_EQ(count("boots"), 0);
}

TEST_F(power, a_shutdown_from_json_runs_its_time)
{
    board.from_json({{"power", {{"phase", "rebooting"}, {"shutdown_ms", 300}, {"boots", 7}}}});
    clock.advance(299ms);
    EXPECT_EQ(count("boots"), 7);
    clock.advance(1ms);
    EXPECT_EQ(count("boots"), 8);
    EXPECT_EQ(state_of("power")["phase"], "on");
    board.from_json({{"power", {{"phase", "off"}}}});
    EXPECT_EQ(status().data[0], 0x20);
}

TEST_F(power, refuses_a_state_that_does_not_fit)
{
    for (const json &wrong : {json{{"phase", "asleep"}}, json{{"shutdown_ms", 100000001}}, json{{"boots", -1}},
                              json{{"on_by_command", 1}}, json{{"volts", 12}}})
        EXPECT_THROW(board.from_json({{"power", wrong}}), bad_state) << wrong;
}

TEST_F(power, speaks_in_the_trace)
{
    EXPECT_EQ(lines(0x00, 0x01, {}),
              (expected{"request 00/01 Get Chassis Status", "answer  00 done: 21 00 40 (power on, identify off)"}));
    EXPECT_EQ(lines(0x00, 0x02, {5}),
              (expected{"request 00/02 Chassis Control: 05 (soft shutdown)", "answer  00 done"}));
    EXPECT_EQ(lines(0x00, 0x02, {1}), (expected{"request 00/02 Chassis Control: 01 (power up)",
                                                "answer  D5 not supported in the present state"}));
    EXPECT_EQ(lines(0x00, 0x02, {9})[0], "request 00/02 Chassis Control: 09 (control 9)");
    EXPECT_EQ(lines(0x2C, 0x04, {0, 0, 0}),
              (expected{"request 2C/04 FRU Control: 00 00 00 (FRU 0, cold reset)", "answer  00 done: 00"}));
    EXPECT_EQ(lines(0x2C, 0x04, {0, 0, 7})[0], "request 2C/04 FRU Control: 00 00 07 (FRU 0, option 7)");
}

}  // namespace ipmcd
