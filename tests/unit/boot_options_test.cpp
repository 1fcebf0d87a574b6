#include "ipmi/boot_options.h"

#include "tests/unit/conversation.h"

#include <algorithm>

using boot_option_progress = conversation;
using boot_flags_read = conversation;

static constexpr char ask_for_flags[] = "00 09  05 00 00";

static byte_text bytes_of(const boot_flags &flags) { return {std::begin(flags.byte), std::end(flags.byte)}; }

TEST_F(boot_option_progress, opens_and_closes)
{
    wire("00 08  00 01", "00");
    wire("00 08  00 00", "00");
    EXPECT_EQ(set_boot_option_progress(1), 1);
    EXPECT_EQ(set_boot_option_progress(0), 1);
    EXPECT_EQ(g_error_code, 0U);
}

TEST_F(boot_option_progress, other_values_fail_without_a_request)
{
    g_error_code = 7;
    for (unsigned value = 2; value <= 0xFF; ++value)
        EXPECT_EQ(set_boot_option_progress(uint8_t(value)), 0) << value;
    EXPECT_EQ(g_error_code, 7U);
}

TEST_F(boot_option_progress, in_progress_already_is_no_failure)
{
    wire("00 08  00 01", "81");
    wire("00 08  00 00", "81");
    g_error_code = 7;
    EXPECT_EQ(set_boot_option_progress(1), 1);
    EXPECT_EQ(set_boot_option_progress(0), 1);
    EXPECT_EQ(g_error_code, 7U);
}

TEST_F(boot_option_progress, any_other_refusal_shows_the_value)
{
    wire("00 08  00 01", "80");
    wire("00 08  00 00", "82");
    wire("00 08  00 01", "FF");
    EXPECT_EQ(set_boot_option_progress(1), 0);
    EXPECT_EQ(g_error_code, 0x00080180U);
    EXPECT_EQ(set_boot_option_progress(0), 0);
    EXPECT_EQ(g_error_code, 0x00080082U);
    EXPECT_EQ(set_boot_option_progress(1), 0);
    EXPECT_EQ(g_error_code, 0x000801FFU);
}

TEST_F(boot_option_progress, without_an_answer_the_reason_is_the_transports)
{
    wire("00 08  00 01", "unsent");
    wire("00 08  00 00", "silent");
    EXPECT_EQ(set_boot_option_progress(1), 0);
    EXPECT_EQ(g_error_code, 0x40000000U);
    EXPECT_EQ(printed([] { EXPECT_EQ(set_boot_option_progress(0), 0); }), "Select OutTime \r\n");
    EXPECT_EQ(g_error_code, 0x40000001U);
}

TEST_F(boot_flags_read, one_to_five_bytes_and_perhaps_a_checksum)
{
    struct {
        const char *answer;
        byte_text flags;
    } const facts[] = {
        {"00 01 05  A1", {0xA1, 0, 0, 0, 0}},
        {"00 01 05  A1 B2", {0xA1, 0xB2, 0, 0, 0}},
        {"00 01 05  A1 B2 C3", {0xA1, 0xB2, 0xC3, 0, 0}},
        {"00 01 05  A1 B2 C3 D4", {0xA1, 0xB2, 0xC3, 0xD4, 0}},
        {"00 01 05  A1 B2 C3 D4 E5", {0xA1, 0xB2, 0xC3, 0xD4, 0xE5}},
        {"00 01 05  A1 B2 C3 D4 E5 F6", {0xA1, 0xB2, 0xC3, 0xD4, 0xE5}},
        {"00 FF 85  A1 B2 C3 D4 E5", {0xA1, 0xB2, 0xC3, 0xD4, 0xE5}},  // version and highest bit do not matter
    };
    for (const auto &fact : facts) {
        wire(ask_for_flags, fact.answer);
        boot_flags flags;
        std::fill_n(flags.byte, sizeof flags.byte, uint8_t(0x55));
        EXPECT_EQ(get_boot_flags(flags), 1) << fact.answer;
        EXPECT_EQ(bytes_of(flags), fact.flags) << fact.answer;
    }
    EXPECT_EQ(g_error_code, 0U);
}

TEST_F(boot_flags_read, none_too_many_or_another_parameters)
{
    for (const char *answer : {
             "00",
             "00 01",
             "00 01 05",
             "00 01 05  A1 B2 C3 D4 E5 F6 07",
             "00 01 04  A1 B2 C3 D4 E5",
             "00 01 00  A1 B2 C3 D4 E5",
             "00 01 45  A1 B2 C3 D4 E5",
             "00 05 84  A1 B2 C3 D4 E5",
         }) {
        wire(ask_for_flags, answer);
        g_error_code = 7;
        boot_flags flags;
        EXPECT_EQ(get_boot_flags(flags), 0) << answer;
        EXPECT_EQ(g_error_code, 0x00090500U) << answer;
    }
}

TEST_F(boot_flags_read, a_refusal_is_one_whatever_comes_with_it)
{
    wire(ask_for_flags, "80 01 05  A1 B2 C3 D4 E5");
    boot_flags flags;
    EXPECT_EQ(get_boot_flags(flags), 0);
    EXPECT_EQ(g_error_code, 0x00090580U);
}

TEST_F(boot_flags_read, without_an_answer_the_reason_is_the_transports)
{
    wire(ask_for_flags, "unsent");
    boot_flags flags;
    EXPECT_EQ(get_boot_flags(flags), 0);
    EXPECT_EQ(g_error_code, 0x40000000U);
}

TEST_F(boot_flags_read, written_back_whole_behind_the_parameters_number)
{
    wire("00 08  05 A1 B2 C3 D4 E5", "00");
    EXPECT_TRUE(exchange(set_boot_flags({{0xA1, 0xB2, 0xC3, 0xD4, 0xE5}})).ok());
}
