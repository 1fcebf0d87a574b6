#include "oplog/oplog.h"
#include "tests/unit/platform_stub.h"

#include <cstdlib>
#include <gtest/gtest.h>

class oplog : public testing::Test
{
protected:
    void SetUp() override
    {
        reset_stub();
        setenv("LOGNAME", "alice", 1);
        unsetenv("SSH_CONNECTION");
        unsetenv("REMOTEHOST");
    }
};

TEST_F(oplog, buffers_must_be_there)
{
    char buffer[64] = "as it was";
    static constexpr char text[] = "get_username_ip: parameter invalid.\r\n";
    EXPECT_EQ(printed([&] { EXPECT_EQ(get_username_ip(nullptr, 64, buffer, 64), 0); }), text);
    EXPECT_EQ(printed([&] { EXPECT_EQ(get_username_ip(buffer, 64, nullptr, 64), 0); }), text);
    EXPECT_EQ(printed([&] { EXPECT_EQ(get_username_ip(buffer, 64, buffer, 0), 0); }), text);
    EXPECT_STREQ(buffer, "as it was");
}

TEST_F(oplog, both_are_cut_to_their_buffers)
{
    setenv("SSH_CONNECTION", "10.20.30.40 5 6 7", 1);
    char user[4], origin[6];
    EXPECT_EQ(get_username_ip(user, sizeof user, origin, sizeof origin), 1);
    EXPECT_STREQ(user, "ali");
    EXPECT_STREQ(origin, "10.20");
}

TEST_F(oplog, module_and_record_must_be_there)
{
    static constexpr char text[] = "save_sys_log: parameter invalid.\r\n";
    EXPECT_EQ(printed([] { save_sys_log(2, nullptr, "record"); }), text);
    EXPECT_EQ(printed([] { save_sys_log(2, "Fan", nullptr); }), text);
    EXPECT_TRUE(stub.logged.empty());
}

TEST_F(oplog, the_platforms_result_is_returned)
{
    EXPECT_EQ(save_sys_log(1, "User", "a record"), 42);
    ASSERT_EQ(stub.logged.size(), 1U);
    EXPECT_EQ(stub.logged[0].log_class, 1U);
    EXPECT_EQ(stub.logged[0].user, "alice");
    EXPECT_EQ(stub.logged[0].origin, "console");
    EXPECT_EQ(stub.logged[0].module, "User");
    EXPECT_EQ(stub.logged[0].record, "a record");
}

TEST_F(oplog, a_record_is_cut_to_511_characters)
{
    log_change("Fan", "%s", std::string(600, 'x').c_str());
    ASSERT_EQ(stub.logged.size(), 1U);
    EXPECT_EQ(stub.logged[0].record, std::string(511, 'x'));
    EXPECT_EQ(stub.logged[0].log_class, 2U);
}
