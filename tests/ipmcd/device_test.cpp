#include "tests/ipmcd/board.h"

namespace ipmcd
{

struct device : board_test {
};

TEST_F(device, says_what_it_is)
{
    // Device 0x20, revision 1, firmware 1.00, IPMI 2.0, enterprise 32473, product 1. Further functions: chassis 0x80,
    // SEL 0x04, SDR repository 0x02, sensors 0x01.
    EXPECT_EQ(ask(0x06, 0x01, {}), (reply{0x00, {0x20, 0x01, 0x01, 0x00, 0x02, 0x87, 0xD9, 0x7E, 0x00, 0x01, 0x00}}));
}

TEST_F(device, shows_its_state_in_its_identity)
{
    board.from_json({{"device",
                      {{"device_id", 7},
                       {"revision", 15},
                       {"firmware_major", 127},
                       {"firmware_minor", 42},
                       {"device_sdrs", true},
                       {"support", 0x83},
                       {"product", 0x1234}}}});
    EXPECT_EQ(ask(0x06, 0x01, {}), (reply{0x00, {0x07, 0x8F, 0x7F, 0x42, 0x02, 0x83, 0xD9, 0x7E, 0x00, 0x34, 0x12}}));
    board.reset();
    EXPECT_EQ(ask(0x06, 0x01, {}).data[0], 0x20);
}

struct device_of_another_board : board_test {
    device_of_another_board() : board_test(all_families(), load_board("device-sdrs")) {}
};

TEST_F(device_of_another_board, tells_who_has_the_records)
{
    // Bit 7 of the revision: it has Device SDRs; no SDR repository among the further functions.
    EXPECT_EQ(ask(0x06, 0x01, {}), (reply{0x00, {0x20, 0x81, 0x01, 0x00, 0x02, 0x85, 0xD9, 0x7E, 0x00, 0x01, 0x00}}));
    board.from_json({{"device", {{"device_sdrs", false}, {"support", 0}}}});
    board.reset();
    EXPECT_EQ(ask(0x06, 0x01, {}).data[1], 0x81);
}

TEST_F(device, a_cold_reset_is_answered_and_then_done)
{
    EXPECT_EQ(ask(0x00, 0x04, {0x00, 0x01}), (reply{0x00, {}}));  // identify light on, until the controller restarts
    EXPECT_EQ(ask(0x06, 0x02, {}), (reply{0x00, {}}));
    EXPECT_EQ(state_of("identify")["light"], "on");
    clock.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(state_of("identify")["light"], "off");
    EXPECT_EQ(state_of("device")["cold_resets"], 1);
    EXPECT_EQ(ask(0x06, 0x02, {0x00}), (reply{0xC7, {}}));
}

TEST_F(device, takes_no_data) { EXPECT_EQ(ask(0x06, 0x01, {0x00}), (reply{0xC7, {}})); }

TEST_F(device, refuses_a_state_that_does_not_fit)
{
    for (const json &wrong : {json{{"device_id", 256}}, json{{"revision", 16}}, json{{"firmware_major", 128}},
                              json{{"firmware_minor", 100}}, json{{"device_sdrs", 1}}, json{{"support", -1}},
                              json{{"product", 1.5}}, json{{"colour", 1}}})
        EXPECT_THROW(board.from_json({{"device", wrong}}), bad_state) << wrong;
}

}  // namespace ipmcd
