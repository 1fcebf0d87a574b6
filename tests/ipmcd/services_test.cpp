#include "tests/ipmcd/traced.h"

namespace ipmcd
{

struct services : traced {
    reply set_state(uint8_t id, uint8_t state)
    {
        return ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x0F, id, 1, 0, 0, 1, state});
    }
    reply set_port(uint8_t id, uint8_t kind, uint16_t port)
    {
        return ask(0x30, 0x93,
                   {0xD9, 0x7E, 0x00, 0x0F, id, 2, 0, 0, 2, kind, uint8_t(port & 0xFF), uint8_t(port >> 8)});
    }
    json of(const char *service) const { return state_of("services")[service]; }
};

TEST_F(services, of_the_factory)
{
    EXPECT_EQ(state_of("services").dump(),
              R"({"ftp":{"enabled":false,"port":21},"ssh":{"enabled":true,"port":22},)"
              R"("telnet":{"enabled":false,"port":23},"kvm":{"enabled":true,"port":5900},)"
              R"("vmm":{"enabled":true,"port":5901},"cim":{"enabled":false,"port":5989},)"
              R"("wsman":{"enabled":false,"port":5986},"snmp":{"enabled":true,"port":161},)"
              R"("webssl":{"enabled":true,"port":80,"secure_port":443},"lan":{"enabled":true,"port":623},)"
              R"("video":{"enabled":true,"port":5902}})");
}

TEST_F(services, are_enabled_and_disabled)
{
    EXPECT_EQ(set_state(9, 0x40), done_oem);
    EXPECT_EQ(of("webssl")["enabled"], false);
    EXPECT_EQ(set_state(9, 0x41), done_oem);
    EXPECT_EQ(of("webssl")["enabled"], true);
    EXPECT_EQ(set_state(1, 0x41), done_oem);
    EXPECT_EQ(of("ftp")["enabled"], true);
    EXPECT_EQ(set_state(11, 0x40), done_oem);
    EXPECT_EQ(of("video")["enabled"], false);
    for (const uint8_t wrong : bytes{0x00, 0x01, 0x42, 0x81, 0xC1})
        EXPECT_EQ(set_state(9, wrong), (reply{0xCC, {}})) << int{wrong};
}

TEST_F(services, listen_on_ports)
{
    EXPECT_EQ(set_port(9, 2, 8443), done_oem);
    EXPECT_EQ(of("webssl").dump(), R"({"enabled":true,"port":80,"secure_port":8443})");
    EXPECT_EQ(set_port(9, 1, 8080), done_oem);
    EXPECT_EQ(of("webssl").dump(), R"({"enabled":true,"port":8080,"secure_port":8443})");
    EXPECT_EQ(set_port(2, 1, 65535), done_oem);
    EXPECT_EQ(of("ssh")["port"], 65535);
    EXPECT_EQ(set_port(9, 2, 0), (reply{0xC9, {}}));
    EXPECT_EQ(set_port(2, 2, 22), (reply{0xCC, {}}));  // has no secure port beside its own
    EXPECT_EQ(set_port(9, 0, 1), (reply{0xCC, {}}));
    EXPECT_EQ(set_port(9, 3, 1), (reply{0xCC, {}}));
}

TEST_F(services, refuse_what_they_are_not)
{
    EXPECT_EQ(set_state(0, 0x41), (reply{0xC9, {}}));
    EXPECT_EQ(set_state(12, 0x41), (reply{0xC9, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x0F, 9, 3, 0, 0, 3, 1}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x0F, 9, 1, 1, 0, 1, 0x41}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x0F, 9, 1, 0, 1, 1, 0x41}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x0F, 9, 1, 0, 0, 2, 0x41}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x0F, 9, 1, 0, 0, 1}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x0F, 9, 1, 0, 0, 1, 0x41, 0}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x0F, 9, 2, 0, 0, 2, 2, 0xBB}), (reply{0xC7, {}}));
}

TEST_F(services, are_kept_in_the_state)
{
    board.from_json({{"services", {{"webssl", {{"secure_port", 444}}}, {"ftp", {{"enabled", true}}}}}});
    EXPECT_EQ(of("webssl").dump(), R"({"enabled":true,"port":80,"secure_port":444})");
    EXPECT_EQ(of("ftp").dump(), R"({"enabled":true,"port":21})");
    for (const json &wrong :
         {json{{"gopher", json::object()}}, json{{"ssh", {{"port", 0}}}}, json{{"ssh", {{"port", 65536}}}},
          json{{"ssh", {{"secure_port", 22}}}}, json{{"ssh", {{"enabled", 1}}}}, json{{"ssh", 22}}})
        EXPECT_THROW(board.from_json({{"services", wrong}}), bad_state) << wrong;
    board.reset();
    EXPECT_EQ(of("webssl")["secure_port"], 443);
}

TEST_F(services, in_words)
{
    const std::string start = "request 30/93 Set Network Service: D9 7E 00 0F ";
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x0F, 9, 1, 0, 0, 1, 0x41}),
              (expected{start + "09 01 00 00 01 41 (webssl, on)", "answer  00 done: D9 7E 00"}));
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x0F, 9, 2, 0, 0, 2, 2, 0xBB, 0x01})[0],
              start + "09 02 00 00 02 02 BB 01 (webssl, secure port 443)");
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x0F, 12, 1, 0, 0, 1, 0x40})[0],
              start + "0C 01 00 00 01 40 (service 12, off)");
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0, 0x0F, 2, 7, 0, 0, 1, 0x40})[0],
              start + "02 07 00 00 01 40 (ssh, setting 7)");
}

}  // namespace ipmcd
