/// The wording of the trace: what a tester reads.
#include "tests/ipmcd/traced.h"

namespace ipmcd
{

TEST_F(traced, fan_requests)
{
    EXPECT_EQ(lines(0x2C, 0x15, {0, 0, 60}),
              (expected{"request 2C/15 Set Fan Level: 00 00 3C (FRU 0, 60 %)", "answer  00 done: 00"}));
    EXPECT_EQ(lines(0x2C, 0x16, {0, 0}),
              (expected{"request 2C/16 Get Fan Level: 00 00 (FRU 0)", "answer  00 done: 00 3C (60 %)"}));
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 2}),
              (expected{"request 30/91 Get Fan Mode: D9 7E 00 02",
                        "answer  00 done: D9 7E 00 01 1E 00 00 00 00 (manual, 30 s)"}));
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 1, 1, 0, 0, 0, 0}),
              (expected{"request 30/91 Set Fan Mode: D9 7E 00 01 01 00 00 00 00 (manual, forever)",
                        "answer  00 done: D9 7E 00"}));
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 1, 0}),
              (expected{"request 30/91 Set Fan Mode: D9 7E 00 01 00 (auto)", "answer  00 done: D9 7E 00"}));
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0, 1, 9}), (expected{"request 30/91 Set Fan Mode: D9 7E 00 01 09 (mode 9)",
                                                                  "answer  CC invalid data field in request"}));
    EXPECT_EQ(lines(0x2C, 0x15, {0, 0, 254})[0], "request 2C/15 Set Fan Level: 00 00 FE (FRU 0, emergency shut-down)");
    EXPECT_EQ(lines(0x2C, 0x15, {0, 0, 255})[0], "request 2C/15 Set Fan Level: 00 00 FF (FRU 0, local control)");
}

TEST_F(traced, user_requests)
{
    EXPECT_EQ(lines(0x06, 0x44, {1, 3}),
              (expected{"request 06/44 Get User Access: 01 03 (channel 1, user 3)",
                        "answer  00 done: 11 44 01 13 (operator, enabled; 17 users, 4 enabled)"}));
    EXPECT_EQ(lines(0x06, 0x43, {1, 3, 15}),
              (expected{"request 06/43 Set User Access: 01 03 0F (channel 1, user 3, no access)", "answer  00 done"}));
    EXPECT_EQ(lines(0x06, 0x43, {1, 3, 6})[0], "request 06/43 Set User Access: 01 03 06 (channel 1, user 3, level 6)");
    EXPECT_EQ(lines(0x06, 0x45, {6, 'a', 'b', 7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}),
              (expected{"request 06/45 Set User Name: 06 61 62 07 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                        "(user 6, \"ab\\x07\")",
                        "answer  CC invalid data field in request"}));
    EXPECT_EQ(lines(0x06, 0x46, {2}),
              (expected{"request 06/46 Get User Name: 02 (user 2)",
                        "answer  00 done: 61 64 6D 69 6E 00 00 00 00 00 00 00 00 00 00 00 (\"admin\")"}));
}

TEST(quoted_text, can_neither_change_a_terminal_nor_end_early)
{
    EXPECT_EQ(quoted(""), R"("")");
    EXPECT_EQ(quoted("two words"), R"("two words")");
    EXPECT_EQ(quoted("\x1B[2J\x9B\x7F\n"), R"("\x1B[2J\x9B\x7F\x0A")");
    EXPECT_EQ(quoted(R"(a" (b\)"), R"("a\" (b\\")");
}

TEST_F(traced, the_device)
{
    EXPECT_EQ(lines(0x06, 0x01, {}),
              (expected{"request 06/01 Get Device ID",
                        "answer  00 done: 20 01 01 00 02 87 D9 7E 00 01 00 (device 0x20, firmware 1.00)"}));
}

TEST_F(traced, refused_requests_say_why)
{
    EXPECT_EQ(lines(0x06, 0x99, {}), (expected{"request 06/99 unknown", "answer  C1 invalid command"}));
    EXPECT_EQ(lines(0x30, 0x91, {1, 2, 3}),
              (expected{"request 30/91 unknown: 01 02 03", "answer  CC invalid data field in request"}));
    // Of data that are too short no words are made up.
    EXPECT_EQ(lines(0x2C, 0x15, {0, 0}),
              (expected{"request 2C/15 Set Fan Level: 00 00", "answer  C7 request data length invalid"}));
}

TEST_F(traced, faults)
{
    fault refused;
    refused.kind = fault_kind::code;
    refused.value = 0x81;
    refused.left = 2;
    faults.add(refused);
    EXPECT_EQ(lines(0x06, 0x01, {}), (expected{"request 06/01 Get Device ID", "fault   code=0x81, 1 left",
                                               "answer  81 code of this command"}));
    faults.clear();
    fault silent;
    silent.kind = fault_kind::silence;
    faults.add(silent);
    EXPECT_EQ(lines(0x06, 0x01, {}), (expected{"request 06/01 Get Device ID", "fault   silence, 0 left"}));
}

TEST_F(traced, what_is_ignored)
{
    take_now(ipmi, bytes{});
    take_now(ipmi, bytes{1, 2});
    take_now(ipmi, bytes{1, 2, 3, 4, 5, 6, 7});
    take_now(ipmi, bytes{0x00, 0x1C, 0xE4, 0x63, 0x00, 0x01, 0x9C});
    EXPECT_EQ(shown,
              (expected{"ignored too short", "ignored too short: 01 02", "ignored bad checksum: 01 02 03 04 05 06 **",
                        "ignored not a request: 00 1C E4 63 00 01 **"}));
}

/// Set User Password, user 2, "Marmalade-7". Right would be 00+18 = 18, so E8, and at the end 63+00+47+82+02 = 12E and
/// the letters 3E8: together 516, so EA.
static bytes set_password()
{
    bytes frame = {0x00, 0x18, 0xE8, 0x63, 0x00, 0x47, 0x82, 0x02};
    for (const char c : std::string("Marmalade-7"))
        frame.push_back(uint8_t(c));
    frame.resize(28);
    frame.push_back(0xEA);
    return frame;
}

TEST_F(traced, damaged_frames_keep_their_secrets)
{
    std::string masked;
    for (int i = 0; i < 23; i++)
        masked += " **";
    ASSERT_TRUE(take_now(ipmi, set_password()));
    EXPECT_EQ(shown.at(0).find("4D"), std::string::npos);  // M
    shown.clear();
    bytes frame = set_password();
    frame.back() ^= 1;
    take_now(ipmi, frame);
    frame = set_password();
    frame[2] ^= 1;
    take_now(ipmi, frame);
    frame = set_password();
    frame[5] = 0x46;  // with another command the end is wrong as well
    take_now(ipmi, frame);
    frame = set_password();
    frame[1] = 0x1C;  // an answer: 00+1C = 1C, so E4
    frame[2] = 0xE4;
    take_now(ipmi, frame);
    EXPECT_EQ(shown, (expected{"ignored bad checksum: 00 18 E8 63 00 47" + masked,
                               "ignored bad checksum: 00 18 E9 63 00 47" + masked,
                               "ignored bad checksum: 00 18 E8 63 00 46" + masked,
                               "ignored not a request: 00 1C E4 63 00 47" + masked}));
}

TEST_F(traced, requests_that_nobody_knows_keep_what_may_be_a_secret)
{
    // Check User Password with a sub-function, and with an enterprise number, that nobody has.
    EXPECT_EQ(lines(0x30, 0x91, {0xD9, 0x7E, 0x00, 0x11, 0x01, 'a', 'b'})[0],
              "request 30/91 unknown: D9 7E 00 11 01 ** **");
    EXPECT_EQ(lines(0x30, 0x91, {0x01, 0x02, 0x00, 0x11, 0x00, 'a', 'b'})[0],
              "request 30/91 unknown: 01 02 00 11 00 ** **");
    EXPECT_EQ(lines(0x30, 0x95, {1, 2, 3, 4, 5, 6, 7})[0], "request 30/95 unknown: 01 02 03 04 05 06 07");
}

TEST(completion_codes, have_words)
{
    EXPECT_EQ(completion_words(completion::ok), "done");
    EXPECT_EQ(completion_words(completion(0xC5)), "reservation cancelled or invalid");
    EXPECT_EQ(completion_words(completion(0xD5)), "not supported in the present state");
    EXPECT_EQ(completion_words(completion(0xFF)), "unspecified error");
    EXPECT_EQ(completion_words(completion(0x80)), "code of this command");
    EXPECT_EQ(completion_words(completion(0xBE)), "code of this command");
    EXPECT_EQ(completion_words(completion(0x7F)), "unknown code");
    EXPECT_EQ(completion_words(completion(0xE0)), "unknown code");
}

}  // namespace ipmcd
