/// The addresses of the port shared with the host: no command line reaches them, the registry's table does.
#include "network/port_address.h"

#include "tests/unit/conversation.h"
#include "tests/unit/failing_call.h"

#include <cerrno>

class eth1_address : public conversation
{
protected:
    void open() { wire("0C 01  01 00 01", "00"); }
    void close(const std::string &ending = "00") { wire("0C 01  01 00 00", ending); }
    std::string run(const std::string &dataitem, const std::vector<std::string> &words, int result)
    {
        return conversation::run(eth1_dataitems, dataitem, words, result);
    }
};
using records = std::vector<std::string>;

static const std::string address_usage = "Usage: cfgtool -t eth1 -d ipaddr -v <ipaddr> <mask>\r\n"
                                         "       cfgtool -t eth1 -d ipaddr -v <dhcp|static>\r\n";
static const std::string address6_usage = "Usage: cfgtool -t eth1 -d ipaddr6 -v <ipaddr6/prefixlen(0~128)>\r\n"
                                          "       cfgtool -t eth1 -d ipaddr6 -v <dhcp|static>\r\n";

TEST_F(eth1_address, ipaddr_brackets_on_channel_1_and_writes_on_channel_2)
{
    open();
    wire("0C 01  02 03 C0 A8 01 01", "00");
    wire("0C 01  02 06 FF FF FF 00", "00");
    close("silent");
    EXPECT_EQ(run("ipaddr", {"-v", "192.168.1.1", "255.255.255.0"}, 1),
              "Set IP address 192.168.1.1 successfully.\r\n"
              "Set MASK address 255.255.255.0 successfully.\r\n"
              "Select OutTime \r\n");  // closed at the end
    EXPECT_EQ(logged(), (records{"2 Network Set shared Eth IPv4 address(192.168.1.1) success,EvtCode:0x21200650",
                                 "2 Network Set shared Eth IPv4 submask(255.255.255.0) success,EvtCode:0x21200660"}));
}

TEST_F(eth1_address, ipaddr_sources)
{
    open();
    wire("0C 01  02 04 02", "00");
    close();
    open();
    wire("0C 01  02 04 01", "00");
    close();
    EXPECT_EQ(run("ipaddr", {"-v", "dhcp"}, 1), "Set DHCP mode successfully.\r\n");
    EXPECT_EQ(run("ipaddr", {"-v", "static"}, 1), "Set STATIC mode successfully.\r\n");
    EXPECT_EQ(logged(), (records{"2 Network Set shared Eth IPv4 address source(dhcp) success,EvtCode:0x21200640",
                                 "2 Network Set shared Eth IPv4 address source(static) success,EvtCode:0x21200640"}));
}

TEST_F(eth1_address, ipaddr_usage_names_this_port)
{
    open();
    close();
    EXPECT_EQ(run("ipaddr", {"-v"}, 0), address_usage);
    EXPECT_EQ(run("ipaddr", {"-x", "dhcp"}, 0), address_usage);
    EXPECT_EQ(run("ipaddr", {"-v", "10.0.0.5", "255.0.0.0", "x"}, 0), address_usage);
    EXPECT_EQ(run("ipaddr", {"-v", "DHCP"}, 0), address_usage);  // the one inside the bracket
}

TEST_F(eth1_address, ipaddr_refuses_addresses_as_the_other_port_does)
{
    open();
    close();
    open();
    close();
    EXPECT_EQ(run("ipaddr", {"-v", "10.0.0.5", "255.255.255.255"}, 0),
              "Input parameter format error,format should such as 192.168.1.1\r\n");
    EXPECT_EQ(run("ipaddr", {"-v", "10.0.0.0", "255.0.0.0"}, 0), "Input parameter format error.\r\n");
}

TEST_F(eth1_address, ipaddr_failures)
{
    wire("0C 01  01 00 01", "81");
    close();
    EXPECT_EQ(run("ipaddr", {"-v", "10.0.0.5", "255.0.0.0"}, 0), "Set IP address failed, error code: 0xC010181\r\n");
    wire("0C 01  01 00 01", "81");
    close();
    EXPECT_EQ(run("ipaddr", {"-v", "dhcp"}, 0), "Set DHCP mode failed, error code: 0xC010181\r\n");

    open();
    wire("0C 01  02 04 01", "80");
    close();
    EXPECT_EQ(run("ipaddr", {"-v", "static"}, 0), "Set IP mode failed,error code:0xC010480\r\n");
    open();
    wire("0C 01  02 03 0A 00 00 05", "unsent");
    close("C1");  // closed before the code is told
    EXPECT_EQ(run("ipaddr", {"-v", "10.0.0.5", "255.0.0.0"}, 0), "Set IP address failed, error code: 0xC0100C1\r\n");
    open();
    wire("0C 01  02 03 0A 00 00 05", "CC");
    close("C1");  // closed afterwards
    EXPECT_EQ(run("ipaddr", {"-v", "10.0.0.5", "255.0.0.0"}, 0), "Set IP address failed, error code: 0xC0103CC\r\n");
    EXPECT_EQ(g_error_code, 0x0C0100C1U);
    EXPECT_EQ(logged(), records{});

    open();
    wire("0C 01  02 03 0A 00 00 05", "00");
    wire("0C 01  02 06 FF 00 00 00", "C9");
    close();
    EXPECT_EQ(run("ipaddr", {"-v", "10.0.0.5", "255.0.0.0"}, 0), "Set MASK address  failed, error code: 0xC0106C9\r\n");
    EXPECT_EQ(logged(), records{"2 Network Set shared Eth IPv4 address(10.0.0.5) success,EvtCode:0x21200650"});
}

TEST_F(eth1_address, ipaddr6)
{
    open();
    wire("0C 01  02 CC D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE", "00");
    wire("0C 01  02 CD D9 7E 00  C8", "00");
    close("silent");
    EXPECT_EQ(run("ipaddr6", {"-v", "fe80::1/200", "extra"}, 1),
              "Set IPv6 address successfully.\r\nSelect OutTime \r\n");  // closed at the end
    EXPECT_EQ(logged(), (records{"2 Network Set shared Eth IPv6 address(fe80::1) success,EvtCode:0x21200690",
                                 "2 Network Set shared Eth IPv6 prefix length(200) success,EvtCode:0x212006A0"}));
}

TEST_F(eth1_address, ipaddr6_sources)
{
    open();
    wire("0C 01  02 D0 D9 7E 00  02", "00");
    close();
    open();
    wire("0C 01  02 D0 D9 7E 00  01", "00");
    close();
    EXPECT_EQ(run("ipaddr6", {"-v", "dhcp", "extra"}, 1), "Set DHCP mode successfully.\r\n");
    EXPECT_EQ(run("ipaddr6", {"-v", "static"}, 1), "Set STATIC mode successfully.\r\n");
    EXPECT_EQ(logged(), (records{"2 Network Set shared Eth IPv6 address source(dhcp) success,EvtCode:0x21200680",
                                 "2 Network Set shared Eth IPv6 address source(static) success,EvtCode:0x21200680"}));
}

TEST_F(eth1_address, ipaddr6_usages_name_this_port)
{
    open();
    close();
    open();
    close();
    EXPECT_EQ(run("ipaddr6", {}, 0), address6_usage);
    EXPECT_EQ(run("ipaddr6", {"dhcp", "-v"}, 0), address6_usage);
    EXPECT_EQ(run("ipaddr6", {"-v", "fe80::1"}, 0), address6_usage);  // in a bracket, as is the next
    EXPECT_EQ(run("ipaddr6", {"-v", "fe80::1/x"}, 0),
              "Usage: cfgtool -t eth1 -d ipaddr6 -v <ipaddr6/prefixlen(0~128)>\r\n");
}

TEST_F(eth1_address, ipaddr6_failures)
{
    wire("0C 01  01 00 01", "unsent");
    close();
    EXPECT_EQ(run("ipaddr6", {"-v", "::/0"}, 0), "Set static mode failed, error code: 0x40000000\r\n");
    wire("0C 01  01 00 01", "C0");
    close();
    EXPECT_EQ(run("ipaddr6", {"-v", "::/0", "x"}, 0), "Set IPv6 address failed, error code: 0xC0101C0\r\n");
    open();
    wire("0C 01  02 D0 D9 7E 00  02", "C9");
    close();
    EXPECT_EQ(run("ipaddr6", {"-v", "dhcp"}, 0), "Set IP mode failed,error code:0xC01D0C9\r\n");

    const std::string zeros = "0C 01  02 CC D9 7E 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
    open();
    wire(zeros, "C9");
    close("C1");
    EXPECT_EQ(run("ipaddr6", {"-v", "::/0"}, 0), "Set IP address failed, error code: 0xC01CCC9\r\n");
    EXPECT_EQ(logged(), records{});
    open();
    wire(zeros, "00");
    wire("0C 01  02 CD D9 7E 00  00", "C9");
    close("C1");
    EXPECT_EQ(run("ipaddr6", {"-v", "::/0"}, 0), "Set IP address, error code: 0xC01CDC9\r\n");
    open();
    wire(zeros, "00");
    wire("0C 01  02 CD D9 7E 00  00", "silent");
    close("silent");  // closed before the code is told
    EXPECT_EQ(run("ipaddr6", {"-v", "::/0"}, 0), "Select OutTime \r\n"
                                                 "Select OutTime \r\n"
                                                 "Set IP address, error code: 0xC01CD00\r\n");
}

TEST_F(eth1_address, gateway)
{
    open();
    wire("0C 01  02 0C 0A 00 00 01", "00");
    close("silent");  // before the success is told
    EXPECT_EQ(run("gateway", {"-v", "10.1"}, 1), "Select OutTime \r\nSet gateway success.\r\n");
    EXPECT_EQ(logged(), records{"2 Network Set shared Eth IPv4 gateway(10.1) success,EvtCode:0x21200670"});
}

TEST_F(eth1_address, gateway_failures)
{
    static const std::string usage = "Usage: cfgtool -t eth1 -d gateway -v <gateway>\r\n";
    EXPECT_EQ(run("gateway", {"-v"}, 0), usage);
    EXPECT_EQ(run("gateway", {"-v", "10.1", "10.2"}, 0), usage);
    EXPECT_EQ(run("gateway", {"-v", "255.255.255.255"}, 0), "Input parameter format invalid.\r\n");
    wire("0C 01  01 00 01", "81");  // and no closing
    EXPECT_EQ(run("gateway", {"-v", "10.1"}, 0), "Set gateway failed, error code: 0xC010181\r\n");
    open();
    wire("0C 01  02 0C 0A 00 00 01", "unsent");
    close("C1");  // after the failure is told
    EXPECT_EQ(run("gateway", {"-v", "10.1"}, 0), "Set gateway failed, error code: 0x40000000\r\n");
    EXPECT_EQ(g_error_code, 0x0C0100C1U);
    open();
    wire("0C 01  02 0C 0A 00 00 01", "80");
    close();
    EXPECT_EQ(run("gateway", {"-v", "10.1"}, 0), "Set gateway failed, error code: 0xC010C80\r\n");
    EXPECT_EQ(logged(), records{});
}

TEST_F(eth1_address, gateway6)
{
    open();
    wire("0C 01  02 CE D9 7E 00  01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE", "00");
    close("silent");  // before the success is told
    EXPECT_EQ(run("gateway6", {"-v", "fe80::1"}, 1), "Select OutTime \r\nSet gateway6 success.\r\n");
    EXPECT_EQ(logged(), records{"2 Network Set shared Eth IPv6 gateway(fe80::1) success,EvtCode:0x212006B0"});
}

TEST_F(eth1_address, gateway6_failures)
{
    static const std::string usage = "Usage: cfgtool -t eth1 -d gateway6 -v <gateway6>\r\n";
    const std::string zeros = "0C 01  02 CE D9 7E 00  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
    EXPECT_EQ(run("gateway6", {}, 0), usage);
    EXPECT_EQ(run("gateway6", {"fe80::1", "-v"}, 0), usage);
    wire("0C 01  01 00 01", "81");  // and no closing
    EXPECT_EQ(run("gateway6", {"-v", "::"}, 0), "Set gateway6 failed, error code: 0xC010181\r\n");
    open();
    wire(zeros, "unsent");
    close("C1");  // after the failure is told
    EXPECT_EQ(run("gateway6", {"-v", "::"}, 0), "Set gateway6 failed, error code: 0x40000000\r\n");
    EXPECT_EQ(g_error_code, 0x0C0100C1U);
    open();
    wire(zeros, "80");
    close();
    EXPECT_EQ(run("gateway6", {"-v", "::"}, 0), "Set gateway6 failed, error code: 0xC01CE80\r\n");
    EXPECT_EQ(logged(), records{});
}

TEST_F(eth1_address, ipv6_addresses_go_last_byte_first_and_what_is_none_is_all_zero)
{
    static const std::string zeros = "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";
    const struct {
        const char *text;
        std::string bytes;
    } facts[] = {
        {"::", zeros},
        {"::1", "01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"},
        {"1::", "00 00 00 00 00 00 00 00 00 00 00 00 00 00 01 00"},
        {"fe80::1", "01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE"},
        {"FE80::ABCD", "CD AB 00 00 00 00 00 00 00 00 00 00 00 00 80 FE"},
        {"2001:db8:1:2:3:4:5:6", "06 00 05 00 04 00 03 00 02 00 01 00 B8 0D 01 20"},
        {"102:304:506:708:90a:b0c:d0e:f10", "10 0F 0E 0D 0C 0B 0A 09 08 07 06 05 04 03 02 01"},
        {"::ffff:192.168.1.1", "01 01 A8 C0 FF FF 00 00 00 00 00 00 00 00 00 00"},
        {"0000:0000:0000:0000:0000:ffff:255.255.255.255", "FF FF FF FF FF FF 00 00 00 00 00 00 00 00 00 00"},
        {"", zeros},
        {"nonsense", zeros},
        {"192.168.1.1", zeros},
        {"fe80::1/64", zeros},
        {"fe80::1%eth0", zeros},
        {"[fe80::1]", zeros},
        {" fe80::1", zeros},
        {"fe80::1 ", zeros},
        {"fe80::1::2", zeros},
        {"12345::", zeros},
        {"1:2:3:4:5:6:7", zeros},
        {"1:2:3:4:5:6:7:8:9", zeros},
        {"1:2:3:4:5:6:7:8x", zeros},  // nothing of what came before it is left
    };
    for (const auto &[text, bytes] : facts) {
        open();
        wire("0C 01  02 CE D9 7E 00 " + bytes, "00");
        close();
        EXPECT_EQ(run("gateway6", {"-v", text}, 1), "Set gateway6 success.\r\n") << text;
        EXPECT_EQ(logged().back(),
                  std::string("2 Network Set shared Eth IPv6 gateway(") + text + ") success,EvtCode:0x212006B0");
    }
}

TEST_F(eth1_address, a_library_that_knows_no_ipv6_refuses_every_address)
{
    static constexpr char refusal[] = "Input parameter format invalid.\r\n";
    {
        const failing_call unknown_family("inet_pton", EAFNOSUPPORT);
        open();
        close();  // once the bracket has been opened
        EXPECT_EQ(run("ipaddr6", {"-v", "fc00::1/64"}, 0), refusal);
    }
    const failing_call unknown_family("inet_pton", EAFNOSUPPORT);
    EXPECT_EQ(run("gateway6", {"-v", "fc00::1"}, 0), refusal);
    EXPECT_EQ(logged(), records{});
}
