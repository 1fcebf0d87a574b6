#include "ipmcd/control.h"
#include "tests/ipmcd/traced.h"

namespace ipmcd
{

struct traps : traced {
    /// A parameter of the maker's, on the management channel.
    reply set(uint8_t selector, const bytes &value, uint8_t channel = 1)
    {
        bytes data = {channel, selector, 0xD9, 0x7E, 0x00};
        data.insert(data.end(), value.begin(), value.end());
        return ask(0x0C, 0x01, data);
    }
    reply get(uint8_t selector, uint8_t set_selector = 0) { return ask(0x0C, 0x02, {1, selector, set_selector, 0}); }
    static bytes community(const std::string &text, size_t size = 18)
    {
        bytes data = {1, 0x10};
        data.insert(data.end(), text.begin(), text.end());
        data.resize(2 + size);
        return data;
    }
    reply set_community(const std::string &text) { return ask(0x0C, 0x01, community(text)); }
    reply set_user(const std::string &name)
    {
        bytes data = {0xD9, 0x7E, 0x00, 0x2B, 0x0A, 0x00, uint8_t(name.size())};
        data.insert(data.end(), name.begin(), name.end());
        return ask(0x30, 0x93, data);
    }
    json state() const { return state_of("traps"); }
    json destination(const char *number) const { return state()["destinations"][number]; }
};

/// What a get answers: the revision, the enterprise number, the value.
static reply value(const bytes &of)
{
    bytes data = {0x11, 0xD9, 0x7E, 0x00};
    data.insert(data.end(), of.begin(), of.end());
    return {0x00, data};
}

TEST_F(traps, of_the_factory)
{
    control commands(board, faults, ipmi, nullptr);
    EXPECT_EQ(commands.answer("show traps").dump(),
              R"({"enabled":false,"version":"V1","severity":"all","mode":"event code","user":"","protocol":"MD5/DES",)"
              R"("destinations":{"1":{"enabled":false,"address":"0.0.0.0","port":162},)"
              R"("2":{"enabled":false,"address":"0.0.0.0","port":162},)"
              R"("3":{"enabled":false,"address":"0.0.0.0","port":162},)"
              R"("4":{"enabled":false,"address":"0.0.0.0","port":162}}})");
    EXPECT_EQ(set_community(state()["community"]), done);  // it follows the rules
}

TEST_F(traps, a_port_for_each_destination)
{
    EXPECT_EQ(set(0xC0, {3, 0x9C, 0x01}), done);  // 0x019C = 412
    EXPECT_EQ(destination("3")["port"], 412);
    EXPECT_EQ(destination("2")["port"], 162);
    EXPECT_EQ(get(0xC0, 3), value({3, 0x9C, 0x01}));
    EXPECT_EQ(set(0xC0, {4, 0xFF, 0xFF}), done);
    EXPECT_EQ(get(0xC0, 4), value({4, 0xFF, 0xFF}));
    EXPECT_EQ(set(0xC0, {1, 0, 0}), (reply{0xC9, {}}));
    EXPECT_EQ(set(0xC0, {0, 1, 0}), (reply{0xC9, {}}));
    EXPECT_EQ(set(0xC0, {5, 1, 0}), (reply{0xC9, {}}));
    EXPECT_EQ(set(0xC0, {1, 1}), (reply{0xC7, {}}));
    EXPECT_EQ(get(0xC0, 0), (reply{0xC9, {}}));
}

TEST_F(traps, only_destinations_in_the_mask_are_switched)
{
    EXPECT_EQ(set(0xC1, {0x04, 0x00, 0x04, 0x00}), done);
    EXPECT_EQ(get(0xC1), value({0x0F, 0x00, 0x04, 0x00}));
    EXPECT_EQ(set(0xC1, {0x09, 0x00, 0x09, 0x00}), done);
    EXPECT_EQ(get(0xC1), value({0x0F, 0x00, 0x0D, 0x00}));
    EXPECT_EQ(set(0xC1, {0x04, 0x00, 0x00, 0x00}), done);
    EXPECT_EQ(get(0xC1), value({0x0F, 0x00, 0x09, 0x00}));
    EXPECT_EQ(destination("4")["enabled"], true);
    EXPECT_EQ(destination("3")["enabled"], false);
    EXPECT_EQ(set(0xC1, {0x10, 0x00, 0x00, 0x00}), (reply{0xCC, {}}));  // a fifth
    EXPECT_EQ(set(0xC1, {0x01, 0x01, 0x00, 0x00}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xC1, {0x01, 0x00, 0x02, 0x00}), (reply{0xCC, {}}));  // a state for one not in the mask
    EXPECT_EQ(set(0xC1, {0x00, 0x00, 0x00, 0x00}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xC1, {0x01, 0x00, 0x01}), (reply{0xC7, {}}));
}

TEST_F(traps, addresses_travel_in_network_order)
{
    EXPECT_EQ(set(0xD1, {2, 0, 10, 0, 0, 1}), done);
    EXPECT_EQ(destination("2")["address"], "10.0.0.1");
    EXPECT_EQ(get(0xD1, 2), value({2, 0, 10, 0, 0, 1}));
    const bytes fe80_1 = {2, 1, 0xFE, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
    EXPECT_EQ(set(0xD1, fe80_1), done);
    EXPECT_EQ(destination("2")["address"], "fe80::1");
    EXPECT_EQ(get(0xD1, 2), value(fe80_1));
    EXPECT_EQ(destination("1")["address"], "0.0.0.0");
}

TEST_F(traps, an_address_is_one_to_which_a_trap_can_go)
{
    EXPECT_EQ(set(0xD1, {3, 0, 255, 255, 255, 255}), done);
    EXPECT_EQ(destination("3")["address"], "255.255.255.255");
    EXPECT_EQ(set(0xD1, {3, 0, 223, 1, 1, 1}), done);
    EXPECT_EQ(set(0xD1, {3, 0, 224, 1, 1, 1}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xD1, {3, 0, 255, 255, 255, 254}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xD1, {3, 1, 0xFF, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xD1, {3, 2, 1, 1, 1, 1}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xD1, {3, 1, 1, 1, 1, 1}), (reply{0xC7, {}}));
    EXPECT_EQ(set(0xD1, {3, 0, 1, 1, 1, 1, 1}), (reply{0xC7, {}}));
    EXPECT_EQ(set(0xD1, {0, 0, 1, 1, 1, 1}), (reply{0xC9, {}}));
    EXPECT_EQ(set(0xD1, {5, 0, 1, 1, 1, 1}), (reply{0xC9, {}}));
    EXPECT_EQ(get(0xD1, 5), (reply{0xC9, {}}));
    EXPECT_EQ(destination("3")["address"], "223.1.1.1");
}

TEST_F(traps, are_switched_as_a_whole)
{
    EXPECT_EQ(set(0xC2, {1}), done);
    EXPECT_EQ(state()["enabled"], true);
    EXPECT_EQ(get(0xC2), value({1}));
    EXPECT_EQ(set(0xC2, {0}), done);
    EXPECT_EQ(get(0xC2), value({0}));
    EXPECT_EQ(set(0xC2, {2}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xC2, {}), (reply{0xC7, {}}));
}

TEST_F(traps, have_a_version_and_a_severity)
{
    EXPECT_EQ(get(0xC3), value({1}));
    EXPECT_EQ(set(0xC3, {3}), done);
    EXPECT_EQ(state()["version"], "V3");
    EXPECT_EQ(get(0xC3), value({3}));
    EXPECT_EQ(set(0xC3, {0}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xC3, {4}), (reply{0xCC, {}}));
    EXPECT_EQ(get(0xC4), value({0, 0}));
    EXPECT_EQ(set(0xC4, {0, 2}), done);
    EXPECT_EQ(state()["severity"], "major");
    EXPECT_EQ(get(0xC4), value({0, 2}));
    EXPECT_EQ(set(0xC4, {0, 4}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xC4, {1, 0}), (reply{0xCC, {}}));
    EXPECT_EQ(set(0xC4, {2}), (reply{0xC7, {}}));
    EXPECT_EQ(state()["severity"], "major");
}

TEST_F(traps, belong_to_the_management_channel_and_the_maker)
{
    EXPECT_EQ(set(0xC2, {1}, 2), (reply{0x80, {}}));
    EXPECT_EQ(set(0xC2, {1}, 0x0E), done);  // the present channel
    EXPECT_EQ(ask(0x0C, 0x01, {1, 0xC2, 0xD8, 0x7E, 0x00, 0}), (reply{0xCC, {}}));
    EXPECT_EQ(get(0xC2), value({1}));
}

TEST_F(traps, a_community_follows_the_rules)
{
    EXPECT_EQ(set_community("pub-lic1"), done);
    EXPECT_EQ(state()["community"], "pub-lic1");
    EXPECT_EQ(set_community("eighteen-letters18"), done);
    EXPECT_EQ(state()["community"], "eighteen-letters18");
    for (const char *const bad : {"", "public", "pub-li1", "public12", "pub-licc", "pub -lic1"})
        EXPECT_EQ(set_community(bad), (reply{0x84, {}})) << bad;
    EXPECT_EQ(ask(0x0C, 0x01, community("pub-lic1", 17)), (reply{0xC7, {}}));
    EXPECT_EQ(state()["community"], "eighteen-letters18");
}

TEST_F(traps, a_community_is_secret)
{
    set_community("mar-ma1ade");
    EXPECT_EQ(get(0x10), (reply{0x83, {}}));  // write-only
    control commands(board, faults, ipmi, nullptr);
    EXPECT_EQ(commands.answer("show").dump().find("mar-ma1ade"), std::string::npos);
    EXPECT_NE(board.to_json().dump().find("mar-ma1ade"), std::string::npos);
    const expected traced_lines = {
        "request 0C/01 Set LAN Configuration Parameters: 01 10 ** ** ** ** ** ** ** ** ** ** "
        "** ** ** ** ** ** ** ** (channel 1, community)",
        "answer  00 done"};
    EXPECT_EQ(lines(0x0C, 0x01, community("mar-ma1ade")), traced_lines);
}

TEST_F(traps, go_out_in_the_name_of_a_user)
{
    EXPECT_EQ(set_user("operator"), done_oem);
    EXPECT_EQ(state()["user"], "operator");
    EXPECT_EQ(set_user("nobody"), (reply{0xCB, {}}));
    EXPECT_EQ(set_user(std::string(240, 'x')), (reply{0xCB, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x2B, 0x0A, 0x00, 5, 'a', 'd'}), (reply{0xC7, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x2B, 0x0A, 0x00}), (reply{0xC7, {}}));
    EXPECT_EQ(state()["user"], "operator");
    EXPECT_EQ(set_user(""), done_oem);
    EXPECT_EQ(state()["user"], "");
}

TEST_F(traps, have_protocols_and_a_mode)
{
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x2B, 0x09, 0x00, 4}), done_oem);
    EXPECT_EQ(state()["protocol"], "SHA/AES");
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x2B, 0x09, 0x00, 0}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x2B, 0x09, 0x00, 5}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x15, 0x01, 0x11, 0x00, 0x00, 0x01, 1}), done_oem);
    EXPECT_EQ(state()["mode"], "OID");
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x15, 0x01, 0x11, 0x00, 0x00, 0x01, 2}), (reply{0xCC, {}}));
    EXPECT_EQ(ask(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x15, 0x01, 0x11, 0x00, 0x00, 0x02, 1}), (reply{0xCC, {}}));
    EXPECT_EQ(state()["protocol"], "SHA/AES");
    EXPECT_EQ(state()["mode"], "OID");
}

TEST_F(traps, are_kept_in_the_state_and_reset)
{
    const json factory = state();
    set(0xC2, {1});
    set(0xC3, {2});
    set(0xC4, {0, 3});
    set(0xD1, {1, 0, 10, 0, 0, 1});
    set_user("admin");
    set_community("pub-lic1");
    const json changed = state();
    board.reset();
    EXPECT_EQ(state(), factory);
    board.from_json({{"traps", changed}});
    EXPECT_EQ(state(), changed);
    EXPECT_EQ(state()["user"], "admin");
}

TEST_F(traps, refuse_a_state_that_does_not_fit)
{
    const json before = state();
    for (const json &wrong :
         {json{{"version", "V4"}}, json{{"severity", 1}}, json{{"mode", "oid"}}, json{{"enabled", 1}},
          json{{"user", std::string(17, 'x')}}, json{{"protocol", "MD5"}}, json{{"community", "public"}},
          json{{"destinations", {{"5", json::object()}}}}, json{{"destinations", {{"1", {{"port", 0}}}}}},
          json{{"destinations", {{"1", {{"port", 65536}}}}}}, json{{"destinations", {{"1", {{"address", "10.0.0"}}}}}},
          json{{"destinations", {{"1", {{"address", ""}}}}}},
          json{{"destinations", {{"1", {{"address", "224.0.0.1"}}}}}},
          json{{"destinations", {{"1", {{"address", "ff02::1"}}}}}}, json{{"destinations", {{"1", {{"x", 1}}}}}}})
        EXPECT_THROW(board.from_json({{"traps", wrong}}), bad_state) << wrong;
    EXPECT_EQ(state(), before);
}

TEST_F(traps, in_words)
{
    const std::string start = "request 0C/01 Set LAN Configuration Parameters: 01 ";
    EXPECT_EQ(lines(0x0C, 0x01, {1, 0xC0, 0xD9, 0x7E, 0, 2, 0xA2, 0})[0],
              start + "C0 D9 7E 00 02 A2 00 (channel 1, trap port of destination 2: 162)");
    EXPECT_EQ(lines(0x0C, 0x01, {1, 0xC1, 0xD9, 0x7E, 0, 4, 0, 4, 0})[0],
              start + "C1 D9 7E 00 04 00 04 00 (channel 1, trap destinations 0x0004 of 0x0004)");
    EXPECT_EQ(lines(0x0C, 0x01, {1, 0xC2, 0xD9, 0x7E, 0, 1})[0], start + "C2 D9 7E 00 01 (channel 1, traps on)");
    EXPECT_EQ(lines(0x0C, 0x01, {1, 0xC3, 0xD9, 0x7E, 0, 2})[0],
              start + "C3 D9 7E 00 02 (channel 1, trap version V2C)");
    EXPECT_EQ(lines(0x0C, 0x01, {1, 0xC3, 0xD9, 0x7E, 0, 7})[0], start + "C3 D9 7E 00 07 (channel 1, trap version 7)");
    EXPECT_EQ(lines(0x0C, 0x01, {1, 0xC4, 0xD9, 0x7E, 0, 0, 1})[0],
              start + "C4 D9 7E 00 00 01 (channel 1, trap severity minor)");
    EXPECT_EQ(lines(0x0C, 0x01, {1, 0xD1, 0xD9, 0x7E, 0, 1, 0, 10, 0, 0, 9})[0],
              start + "D1 D9 7E 00 01 00 0A 00 00 09 (channel 1, trap address of destination 1: 10.0.0.9)");
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x2B, 0x09, 0x00, 2})[0],
              "request 30/93 Set Trap Protocols: D9 7E 00 2B 09 00 02 (MD5/AES)");
    EXPECT_EQ(lines(0x30, 0x93, {0xD9, 0x7E, 0x00, 0x15, 0x01, 0x11, 0x00, 0x00, 0x01, 1})[0],
              "request 30/93 Set Trap Mode: D9 7E 00 15 01 11 00 00 01 01 (OID)");
}

}  // namespace ipmcd
