#include "tests/ipmcd/traced.h"

namespace ipmcd
{

struct serial : traced {
    // Enterprise number 32473, low byte first, then the sub-function.
    reply direct(const bytes &direction)
    {
        bytes data = {0xD9, 0x7E, 0x00, 0x17, 0x01};
        data.insert(data.end(), direction.begin(), direction.end());
        return ask(0x30, 0x91, data);
    }
    json panel() { return state_of("serial")["panel"]; }
};

TEST_F(serial, the_panel_leads_to_the_host_or_the_controller)
{
    EXPECT_EQ(panel(), "host");
    EXPECT_EQ(direct({4}), (reply{0x00, {0xD9, 0x7E, 0x00}}));
    EXPECT_EQ(panel(), "controller");
    EXPECT_EQ(direct({0}), (reply{0x00, {0xD9, 0x7E, 0x00}}));
    EXPECT_EQ(panel(), "host");
}

TEST_F(serial, there_are_no_other_directions)
{
    for (const uint8_t direction : bytes{1, 2, 3, 5, 0xFF})
        EXPECT_EQ(direct({direction}), (reply{0xCC, {}})) << int(direction);
    EXPECT_EQ(direct({}), (reply{0xC7, {}}));
    EXPECT_EQ(direct({0, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x17, 0x02, 0x00}), (reply{0xCC, {}}));
}

TEST_F(serial, has_its_state_in_json)
{
    EXPECT_EQ(state_of("serial").dump(), R"({"panel":"host"})");
    board.from_json({{"serial", {{"panel", "controller"}}}});
    EXPECT_EQ(panel(), "controller");
    EXPECT_THROW(board.from_json({{"serial", {{"panel", "nobody"}}}}), bad_state);
    board.reset();
    EXPECT_EQ(panel(), "host");
}

TEST_F(serial, speaks_in_the_trace)
{
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 0x17, 1, 4}),
              (expected{"request 30/91 Set Serial Direction: D9 7E 00 17 01 04 (panel to controller)",
                        "answer  00 done: D9 7E 00"}));
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 0x17, 1, 3})[0],
              "request 30/91 Set Serial Direction: D9 7E 00 17 01 03 (direction 3)");
}

}  // namespace ipmcd
