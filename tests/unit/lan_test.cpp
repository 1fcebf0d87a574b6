#include "ipmi/lan_parameters.h"

#include "tests/unit/conversation.h"

using set_in_progress = conversation;

TEST_F(set_in_progress, opens_and_closes_on_channel_1)
{
    wire("0C 01  01 00 01", "00");
    wire("0C 01  01 00 00", "00");
    EXPECT_EQ(lan_set_in_progress(1), 1);
    EXPECT_EQ(lan_set_in_progress(0), 1);
    EXPECT_EQ(g_error_code, 0U);
}

TEST_F(set_in_progress, other_values_fail_without_a_request)
{
    g_error_code = 7;
    for (unsigned value = 2; value <= 0xFF; ++value)
        EXPECT_EQ(lan_set_in_progress(uint8_t(value)), 0) << value;
    EXPECT_EQ(g_error_code, 7U);
}

TEST_F(set_in_progress, a_refusal_shows_the_value_in_place_of_the_selector)
{
    wire("0C 01  01 00 01", "81");
    wire("0C 01  01 00 00", "D5");
    EXPECT_EQ(lan_set_in_progress(1), 0);
    EXPECT_EQ(g_error_code, 0x0C010181U);
    EXPECT_EQ(lan_set_in_progress(0), 0);
    EXPECT_EQ(g_error_code, 0x0C0100D5U);
}

TEST_F(set_in_progress, without_an_answer_the_reason_is_the_transports)
{
    wire("0C 01  01 00 01", "unsent");
    wire("0C 01  01 00 00", "silent");
    EXPECT_EQ(lan_set_in_progress(1), 0);
    EXPECT_EQ(g_error_code, 0x40000000U);
    EXPECT_EQ(printed([] { EXPECT_EQ(lan_set_in_progress(0), 0); }), "Select OutTime \r\n");
    EXPECT_EQ(g_error_code, 0x40000001U);
}
