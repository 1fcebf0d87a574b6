#include "ipmi/privilege.h"

#include "tests/unit/platform_stub.h"

#include <cstring>
#include <gtest/gtest.h>

class privilege_gate : public testing::Test
{
protected:
    void SetUp() override
    {
        reset_stub();
        strcpy(current_command, "fanlevel");
    }
};

TEST_F(privilege_gate, refusal_without_words_is_noted_in_the_running_command)
{
    stub.account = 7;
    EXPECT_EQ(printed([] {
                  EXPECT_EQ(check_privilege({4, 0, nullptr, nullptr}), 0);
              }),
              "Insufficient privilege level\r\n");
    EXPECT_STREQ(current_command, "fanlevel operation rejected because of insufficient privilege level.");
}

TEST_F(privilege_gate, refusal_with_words_is_not)
{
    stub.account = 7;
    printed([] { EXPECT_EQ(check_privilege({4, 2, nullptr, nullptr}), 0); });
    EXPECT_STREQ(current_command, "fanlevel");
}

TEST_F(privilege_gate, the_note_never_leaves_the_buffer)
{
    stub.account = 7;
    memset(current_command, 'x', sizeof current_command - 1);
    printed([] { check_privilege({4, 0, nullptr, nullptr}); });
    EXPECT_EQ(strlen(current_command), sizeof current_command - 1);
}

TEST_F(privilege_gate, refused_user_access_leaves_its_code)
{
    stub.account = 502;
    stub.answer_all = {0xC9};
    EXPECT_EQ(printed([] {
                  EXPECT_EQ(check_privilege({4, 2, nullptr, nullptr}), 0);
              }),
              "Get User Access Command failed!\r\n");
    EXPECT_EQ(g_error_code, 0x064400C9U);
}

TEST_F(privilege_gate, the_required_level_counts)
{
    stub.account = 502;
    stub.answer_all = {0x00, 0x11, 0x05, 0x01, 0x03};  // an operator
    EXPECT_EQ(check_privilege({3, 2, nullptr, nullptr}), 1);
    printed([] { EXPECT_EQ(check_privilege({4, 2, nullptr, nullptr}), 0); });
}
