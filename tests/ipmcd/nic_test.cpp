#include "tests/ipmcd/traced.h"

namespace ipmcd
{

using namespace std::chrono_literals;

struct nic : traced {
    // OEM data carry enterprise number 32473, low byte first.
    reply set_mode(uint8_t mode) { return ask(0x0C, 0x01, {1, 0xD7, 0xD9, 0x7E, 0x00, mode}); }
    reply get_mode() { return ask(0x0C, 0x02, {1, 0xD7, 0, 0}); }
    reply enable(uint8_t channel, uint8_t state) { return ask(0x0C, 0x01, {channel, 0xC5, 0xD9, 0x7E, 0x00, state}); }
    reply is_enabled(uint8_t channel) { return ask(0x0C, 0x02, {channel, 0xC5, 0, 0}); }
    reply port_count() { return ask(0x30, 0x16, {0xD9, 0x7E, 0x00}); }
    reply sideband(uint8_t port) { return ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x05, 0x0D, 0x00, 0x00, 0x01, port}); }
    void install_card(unsigned ports) { board.from_json({{"nic", {{"card_ports", ports}}}}); }
    const reply done{0x00, {}}, oem_done{0x00, {0xD9, 0x7E, 0x00}}, out_of_range{0xC9, {}}, busy{0x81, {}};
};

TEST_F(nic, has_three_modes)
{
    EXPECT_EQ(get_mode(), (reply{0x00, {0x11, 0xD9, 0x7E, 0x00, 0x01}}));
    for (const uint8_t mode : bytes{2, 3, 1}) {
        EXPECT_EQ(set_mode(mode), done);
        EXPECT_EQ(get_mode().data.back(), mode);
        clock.advance(1s);
    }
    EXPECT_EQ(set_mode(0), out_of_range);
    EXPECT_EQ(set_mode(4), out_of_range);
    EXPECT_EQ(get_mode().data.back(), 1);
}

TEST_F(nic, a_change_of_mode_takes_a_second)
{
    EXPECT_EQ(set_mode(2), done);
    EXPECT_EQ(set_mode(1), busy);
    clock.advance(999ms);
    EXPECT_EQ(set_mode(1), busy);
    clock.advance(1ms);
    EXPECT_EQ(set_mode(2), done);  // the mode it has: nothing to switch
    EXPECT_EQ(set_mode(1), done);
}

TEST_F(nic, the_time_of_a_change_can_be_chosen)
{
    board.from_json({{"nic", {{"switch_ms", 0}}}});
    EXPECT_EQ(set_mode(2), done);
    EXPECT_EQ(set_mode(3), done);
}

TEST_F(nic, without_a_card_there_is_only_the_dedicated_mode)
{
    install_card(0);
    EXPECT_EQ(set_mode(2), (reply{0xD5, {}}));
    EXPECT_EQ(set_mode(3), (reply{0xD5, {}}));
    EXPECT_EQ(set_mode(1), done);
}

TEST_F(nic, the_mode_is_the_management_channels)
{
    EXPECT_EQ(ask(0x0C, 0x01, {2, 0xD7, 0xD9, 0x7E, 0x00, 1}), (reply{0x80, {}}));
    EXPECT_EQ(ask(0x0C, 0x02, {2, 0xD7, 0, 0}), (reply{0x80, {}}));
}

TEST_F(nic, one_port_stays_enabled)
{
    EXPECT_EQ(is_enabled(1), (reply{0x00, {0x11, 0xD9, 0x7E, 0x00, 0x01}}));
    EXPECT_EQ(enable(1, 0), done);
    EXPECT_EQ(enable(2, 0), (reply{0x80, {}}));
    EXPECT_EQ(is_enabled(1).data.back(), 0);
    EXPECT_EQ(is_enabled(2).data.back(), 1);
    EXPECT_EQ(enable(1, 1), done);
    EXPECT_EQ(enable(2, 0), done);
    EXPECT_EQ(enable(1, 0), (reply{0x80, {}}));
    EXPECT_EQ(enable(1, 1), done);
    EXPECT_EQ(enable(2, 2), (reply{0xCC, {}}));
}

TEST_F(nic, tells_the_ports_of_the_card)
{
    EXPECT_EQ(port_count(), (reply{0x00, {0xD9, 0x7E, 0x00, 2}}));
    install_card(0);
    EXPECT_EQ(port_count(), (reply{0x00, {0xD9, 0x7E, 0x00, 0}}));
    EXPECT_EQ(ask(0x30, 0x16, {0xD9, 0x7E, 0x00, 0x00}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x16, {0xD9, 0x7E}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x16, {0xD9, 0x7E, 0x01}), (reply{0xCC, {}}));
}

TEST_F(nic, the_sideband_port_is_one_of_the_card)
{
    EXPECT_EQ(sideband(1), oem_done);
    EXPECT_EQ(state_of("nic")["sideband_port"], 1);
    EXPECT_EQ(sideband(2), out_of_range);
    EXPECT_EQ(sideband(0xFE), out_of_range);
    EXPECT_EQ(sideband(0xFF), oem_done);  // any
    EXPECT_EQ(state_of("nic")["sideband_port"], 255);
    install_card(4);
    EXPECT_EQ(sideband(3), oem_done);
    install_card(0);
    EXPECT_EQ(sideband(0), out_of_range);
    EXPECT_EQ(sideband(0xFF), out_of_range);
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x05, 0x0D, 0x00, 0x00, 0x01}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x05, 0x0D, 0x00, 0x00, 0x02, 0x00}), (reply{0xCC, {}}));
}

TEST_F(nic, has_its_state_in_json)
{
    EXPECT_EQ(state_of("nic").dump(), R"({"mode":"dedicated","switching":false,"switch_ms":1000,)"
                                      R"("management_enabled":true,"shared_enabled":true,"card_ports":2,)"
                                      R"("sideband_port":0})");
    board.from_json({{"nic", {{"mode", "adaptive"}, {"switching", true}, {"switch_ms", 20}}}});
    EXPECT_EQ(get_mode().data.back(), 3);
    EXPECT_EQ(set_mode(1), busy);
    clock.advance(20ms);
    EXPECT_EQ(set_mode(1), done);
    board.reset();
    EXPECT_EQ(set_mode(2), done);  // the switching ended with the reset
    for (const json &wrong :
         {json{{"mode", ""}}, json{{"mode", "solo"}}, json{{"card_ports", 5}}, json{{"sideband_port", 4}},
          json{{"management_enabled", false}, {"shared_enabled", false}}, json{{"switch_ms", 600001}}, json{{"x", 1}}})
        EXPECT_THROW(board.from_json({{"nic", wrong}}), bad_state) << wrong;
}

TEST_F(nic, speaks_in_the_trace)
{
    EXPECT_EQ(lines(0x0C, 0x01, {1, 0xD7, 0xD9, 0x7E, 0, 2}),
              (expected{"request 0C/01 Set LAN Configuration Parameters: 01 D7 D9 7E 00 02 "
                        "(channel 1, NIC mode shared)",
                        "answer  00 done"}));
    EXPECT_EQ(lines(0x0C, 0x01, {2, 0xC5, 0xD9, 0x7E, 0, 0})[0],
              "request 0C/01 Set LAN Configuration Parameters: 02 C5 D9 7E 00 00 (channel 2, port disabled)");
    EXPECT_EQ(lines(0x30, 0x16, {0xD9, 0x7E, 0}),
              (expected{"request 30/16 Get NIC Port Count: D9 7E 00", "answer  00 done: D9 7E 00 02 (2 ports)"}));
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 5, 0x0D, 0, 0, 1, 2}),
              (expected{"request 30/93 Set Sideband Port: D9 7E 00 05 0D 00 00 01 02 (port 3)",
                        "answer  C9 parameter out of range"}));
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 5, 0x0D, 0, 0, 1, 0xFF})[0],
              "request 30/93 Set Sideband Port: D9 7E 00 05 0D 00 00 01 FF (any port)");
}

}  // namespace ipmcd
