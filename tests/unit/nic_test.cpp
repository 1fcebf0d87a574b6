/// The port shared with the host, whose state no command line reaches, and what the others leave in g_error_code.
#include "network/nic.h"

#include "tests/unit/conversation.h"

using records = std::vector<std::string>;

class eth1_port : public conversation
{
protected:
    void open() { wire("0C 01  01 00 01", "00"); }
    void close(const std::string &ending = "00") { wire("0C 01  01 00 00", ending); }
    std::string run(const std::vector<std::string> &words, int result)
    {
        return conversation::run(eth1_dataitems, "state", words, result);
    }
    static constexpr char disable[] = "0C 01  02 C5 D9 7E 00  00", enable[] = "0C 01  02 C5 D9 7E 00  01",
                          no_port_named[] = "30 93  D9 7E 00  05 0D 00 00 01  FF";
};

TEST_F(eth1_port, disabled)
{
    open();
    wire(disable, "00");
    close("silent");  // before the success is told
    EXPECT_EQ(run({"-v", "disabled"}, 1), "Select OutTime \r\nSet eth1 state success.\r\n");
    EXPECT_EQ(logged(), records{"2 Network Disable shared Eth success,EvtCode:0x212006D0"});
}

TEST_F(eth1_port, enabled_names_no_port_of_the_card)
{
    open();
    wire(enable, "00");
    wire(no_port_named, "00");
    close("C1");  // makes no difference
    EXPECT_EQ(run({"-v", "enabled"}, 1), "Set eth1 state success.\r\n");
    EXPECT_EQ(logged(), records{"2 Network Enable shared Eth success,EvtCode:0x212006D0"});
}

TEST_F(eth1_port, usage)
{
    const std::vector<std::string> wrong[] = {
        {},
        {"-v"},
        {"enabled"},
        {"-x", "enabled"},
        {"enabled", "-v"},
        {"-v", "enabled", "disabled"},
        {"-v", "Enabled"},
        {"-v", "enable"},
        {"-v", "enabledx"},
        {"-v", "1"},
        {"-v", ""},
    };
    for (const std::vector<std::string> &words : wrong)
        EXPECT_EQ(run(words, 0), "Usage: cfgtool -t eth1 -d state -v <enabled|disabled>\r\n");
}

TEST_F(eth1_port, opening_fails_and_nothing_is_closed)
{
    wire("0C 01  01 00 01", "80");
    EXPECT_EQ(run({"-v", "enabled"}, 0), "Set eth1 state failed, error code: 0xC010180\r\n");
    wire("0C 01  01 00 01", "unsent");
    EXPECT_EQ(run({"-v", "disabled"}, 0), "Set eth1 state failed, error code: 0x40000000\r\n");
    wire("0C 01  01 00 01", "silent");
    EXPECT_EQ(run({"-v", "disabled"}, 0), "Select OutTime \r\nSet eth1 state failed, error code: 0x40000001\r\n");
}

TEST_F(eth1_port, the_last_enabled_port_stays)
{
    open();
    wire(disable, "80");
    close("silent");  // after the refusal is told
    EXPECT_EQ(run({"-v", "disabled"}, 0), "Make sure one network port enabled at least!\r\nSelect OutTime \r\n");
    EXPECT_EQ(logged(), records{});
}

TEST_F(eth1_port, the_state_fails)
{
    open();
    wire(enable, "unsent");
    close("C1");  // after the failure is told
    EXPECT_EQ(run({"-v", "enabled"}, 0), "Set eth1 state failed, error code: 0x40000000\r\n");
    EXPECT_EQ(g_error_code, 0x0C0100C1U);
    open();
    wire(disable, "silent");
    close();
    EXPECT_EQ(run({"-v", "disabled"}, 0), "Select OutTime \r\nSet eth1 state failed, error code: 0x40000001\r\n");
    open();
    wire(enable, "C9");  // means something of its own in what follows only
    close("silent");
    EXPECT_EQ(run({"-v", "enabled"}, 0), "Set eth1 state failed, error code: 0xC01C5C9\r\nSelect OutTime \r\n");
    EXPECT_EQ(logged(), records{});
}

TEST_F(eth1_port, what_follows_has_a_refusal_of_its_own)
{
    open();
    wire(enable, "00");
    wire(no_port_named, "C9");
    close("silent");  // after the refusal is told
    EXPECT_EQ(run({"-v", "enabled"}, 0), "Eth1 can not been enabled or disabled!\r\nSelect OutTime \r\n");
    EXPECT_EQ(logged(), records{});
}

TEST_F(eth1_port, what_follows_fails)
{
    open();
    wire(enable, "00");
    wire(no_port_named, "unsent");
    close("C1");  // after the failure is told
    EXPECT_EQ(run({"-v", "enabled"}, 0), "Set eth1 state failed, error code: 0x40000000\r\n");
    EXPECT_EQ(g_error_code, 0x0C0100C1U);
    open();
    wire(enable, "00");
    wire(no_port_named, "silent");
    close();
    EXPECT_EQ(run({"-v", "enabled"}, 0), "Select OutTime \r\nSet eth1 state failed, error code: 0x40000001\r\n");
    open();
    wire(enable, "00");
    wire(no_port_named, "80");  // means something of its own in the state only
    close();
    EXPECT_EQ(run({"-v", "enabled"}, 0), "Set eth1 state failed, error code: 0x30937E80\r\n");
    EXPECT_EQ(logged(), records{});
}

using eth0_port = conversation;

TEST_F(eth0_port, a_card_that_cannot_be_asked_about_leaves_the_reason)
{
    wire("30 16  D9 7E 00", "C1");
    run(eth0_dataitems, "mode", {"-v", "2"}, 0);
    EXPECT_EQ(g_error_code, 0x30167EC1U);
    wire("30 16  D9 7E 00", "unsent");
    run(eth0_dataitems, "sideband", {"-v", "port1"}, 0);
    EXPECT_EQ(g_error_code, 0x40000000U);
}

TEST_F(eth0_port, a_refused_vlan_shows_whatever_failed_before)
{
    g_error_code = 0x12345678;
    wire("0C 01  01 00 01", "00");
    wire("0C 01  01 14  64 80", "C9");
    wire("0C 01  01 00 00", "C1");
    EXPECT_EQ(run(eth0_dataitems, "vlan", {"-v", "100"}, 0), "Set eth0 vlan failed, error code: 0x12345678\r\n");
}

TEST_F(eth1_port, a_caller_who_is_refused_changes_and_records_nothing)
{
    stub.account = 499;
    EXPECT_EQ(run({"-v", "enabled"}, 0), "Insufficient privilege level\r\n");
    EXPECT_EQ(logged(), records{});
}
