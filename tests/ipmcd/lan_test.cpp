#include "tests/ipmcd/traced.h"

namespace ipmcd
{

using namespace std::chrono_literals;

struct lan : traced {
    reply set(const bytes &channel_selector_and_value) { return ask(0x0C, 0x01, channel_selector_and_value); }
    reply get(uint8_t channel, uint8_t selector) { return ask(0x0C, 0x02, {channel, selector, 0x00, 0x00}); }
    /// Behind the maker's selectors goes enterprise number 32473, low byte first.
    reply set_oem(uint8_t channel, uint8_t selector, const bytes &value)
    {
        bytes data = {channel, selector, 0xD9, 0x7E, 0x00};
        data.insert(data.end(), value.begin(), value.end());
        return set(data);
    }
    const reply done{0x00, {}}, unknown{0x80, {}}, read_only{0x82, {}}, wrong_length{0xC7, {}}, out_of_range{0xC9, {}},
        invalid{0xCC, {}};
    // fe80::1:2 as these parameters carry it: the last byte first.
    const bytes fe80_1_2 = {0x02, 0x00, 0x01, 0x00, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80, 0xFE};
};

// Answers: revision of the parameters, the value.
TEST_F(lan, leaves_the_factory_with_addresses)
{
    EXPECT_EQ(get(1, 0x00), (reply{0x00, {0x11, 0x00}}));
    EXPECT_EQ(get(1, 0x03), (reply{0x00, {0x11, 192, 0, 2, 10}}));
    EXPECT_EQ(get(1, 0x04), (reply{0x00, {0x11, 0x01}}));
    EXPECT_EQ(get(1, 0x05), (reply{0x00, {0x11, 0x02, 0, 0, 0, 0, 0x01}}));
    EXPECT_EQ(get(1, 0x06), (reply{0x00, {0x11, 255, 255, 255, 0}}));
    EXPECT_EQ(get(1, 0x0C), (reply{0x00, {0x11, 192, 0, 2, 1}}));
    EXPECT_EQ(get(1, 0x14), (reply{0x00, {0x11, 0x00, 0x00}}));
    EXPECT_EQ(get(2, 0x03), (reply{0x00, {0x11, 198, 51, 100, 10}}));
    EXPECT_EQ(get(2, 0x05), (reply{0x00, {0x11, 0x02, 0, 0, 0, 0, 0x02}}));
    EXPECT_EQ(get(1, 0xCD), (reply{0x00, {0x11, 0xD9, 0x7E, 0x00, 64}}));
    EXPECT_EQ(get(1, 0xD0), (reply{0x00, {0x11, 0xD9, 0x7E, 0x00, 0x01}}));
}

TEST_F(lan, each_channel_has_its_own_values)
{
    EXPECT_EQ(set({2, 0x03, 10, 1, 2, 3}), done);
    EXPECT_EQ(get(2, 0x03).data, (bytes{0x11, 10, 1, 2, 3}));
    EXPECT_EQ(get(1, 0x03).data, (bytes{0x11, 192, 0, 2, 10}));
    EXPECT_EQ(set({0x0E, 0x03, 10, 1, 2, 4}), done);  // the channel of the request: 1
    EXPECT_EQ(get(1, 0x03).data, (bytes{0x11, 10, 1, 2, 4}));
    EXPECT_EQ(get(0x0E, 0x03).data, (bytes{0x11, 10, 1, 2, 4}));
}

TEST_F(lan, there_are_two_channels)
{
    for (const uint8_t channel : bytes{0, 3, 7, 0x0F, 0x11, 0x21, 0x41}) {
        EXPECT_EQ(set({channel, 0x04, 1}), invalid) << int(channel);
        EXPECT_EQ(get(channel, 0x04), invalid) << int(channel);
    }
    EXPECT_EQ(set({0x81, 0x04, 1}), invalid);
}

TEST_F(lan, the_revision_can_be_asked_alone) { EXPECT_EQ(get(0x81, 0x03), (reply{0x00, {0x11}})); }

TEST_F(lan, a_set_is_in_progress_once_per_channel)
{
    EXPECT_EQ(set({1, 0x00, 1}), done);
    EXPECT_EQ(set({1, 0x00, 1}), (reply{0x81, {}}));
    EXPECT_EQ(set({2, 0x00, 1}), done);
    EXPECT_EQ(get(1, 0x00).data[1], 1);
    EXPECT_EQ(set({1, 0x00, 0}), done);
    EXPECT_EQ(set({1, 0x00, 0}), done);
    EXPECT_EQ(get(1, 0x00).data[1], 0);
    EXPECT_EQ(get(2, 0x00).data[1], 1);
    EXPECT_EQ(set({1, 0x00, 2}), invalid);  // commit write
    EXPECT_EQ(set({1, 0x00, 3}), invalid);
}

TEST_F(lan, a_write_outside_a_set_in_progress_holds)
{
    EXPECT_EQ(set({1, 0x04, 2}), done);
    EXPECT_EQ(get(1, 0x04).data[1], 2);
}

TEST_F(lan, a_cold_reset_ends_a_set_in_progress_and_keeps_the_addresses)
{
    set({1, 0x00, 1});
    set({1, 0x03, 10, 1, 2, 3});
    ask(0x06, 0x02, {});
    clock.advance(0ms);
    EXPECT_EQ(get(1, 0x00).data[1], 0);
    EXPECT_EQ(get(1, 0x03).data, (bytes{0x11, 10, 1, 2, 3}));
}

TEST_F(lan, other_selectors_are_unknown)
{
    for (const uint8_t selector : bytes{0x02, 0x07, 0x13, 0x15, 0xBF, 0xC6, 0xFF}) {
        EXPECT_EQ(set({1, selector, 0}), unknown) << int(selector);
        EXPECT_EQ(get(1, selector), unknown) << int(selector);
    }
}

TEST_F(lan, some_values_are_only_read)
{
    EXPECT_EQ(get(1, 0x01), (reply{0x00, {0x11, 0x00}}));
    EXPECT_EQ(set({1, 0x01, 0}), read_only);
    EXPECT_EQ(set({1, 0x05, 2, 0, 0, 0, 0, 9}), read_only);
}

TEST_F(lan, each_value_has_its_length)
{
    const std::pair<uint8_t, size_t> lengths[] = {{0x00, 1}, {0x03, 4}, {0x04, 1}, {0x06, 4}, {0x0C, 4}, {0x14, 2}};
    for (const auto &[selector, length] : lengths)
        for (size_t given = 0; given < 8; given++) {
            bytes data(2 + given, 1);
            data[1] = selector;
            EXPECT_EQ(set(data) == wrong_length, given != length) << int(selector) << " " << given;
        }
    const std::pair<uint8_t, size_t> oem_lengths[] = {{0xCC, 16}, {0xCD, 1}, {0xCE, 16}, {0xD0, 1}};
    for (const auto &[selector, length] : oem_lengths)
        for (size_t given = 0; given < 20; given++)
            EXPECT_EQ(set_oem(1, selector, bytes(given, 1)), given == length ? done : wrong_length)
                << int(selector) << " " << given;
    EXPECT_EQ(set({}), wrong_length);
    EXPECT_EQ(set({1}), wrong_length);
    EXPECT_EQ(ask(0x0C, 0x02, {1, 3, 0}), wrong_length);
    EXPECT_EQ(ask(0x0C, 0x02, {1, 3, 0, 0, 0}), wrong_length);
}

TEST_F(lan, the_makers_selectors_need_its_enterprise_number)
{
    EXPECT_EQ(set({1, 0xCD, 0xD9, 0x7E, 0x01, 64}), invalid);
    EXPECT_EQ(set({1, 0xCD, 64}), wrong_length);
    EXPECT_EQ(set({1, 0xCD, 0xD9, 0x7E, 0x00}), wrong_length);
}

TEST_F(lan, no_port_has_a_loopback_or_multicast_address)
{
    const std::pair<uint8_t, bool> cases[] = {{1, true},   {126, true},  {127, false}, {128, true},
                                              {223, true}, {224, false}, {255, false}, {0, false}};
    for (const auto &[first, good] : cases)
        for (const uint8_t selector : bytes{0x03, 0x0C})
            EXPECT_EQ(set({1, selector, first, 0, 0, 1}), good ? done : invalid) << int(first);
    EXPECT_EQ(set({1, 0x03, 0, 0, 0, 0}), done);  // none
}

TEST_F(lan, a_mask_is_ones_without_a_gap)
{
    EXPECT_EQ(set({1, 0x06, 255, 255, 128, 0}), done);
    EXPECT_EQ(get(1, 0x06).data, (bytes{0x11, 255, 255, 128, 0}));
    EXPECT_EQ(set({1, 0x06, 255, 255, 255, 255}), done);
    EXPECT_EQ(set({1, 0x06, 0, 0, 0, 0}), done);
    EXPECT_EQ(set({1, 0x06, 255, 0, 255, 0}), invalid);
    EXPECT_EQ(set({1, 0x06, 0, 255, 255, 255}), invalid);
    EXPECT_EQ(set({1, 0x06, 255, 255, 255, 253}), invalid);
}

TEST_F(lan, sources_are_static_and_dhcp)
{
    for (unsigned source = 0; source < 256; source++) {
        const bool good = source == 1 || source == 2;
        EXPECT_EQ(set({1, 0x04, uint8_t(source)}), good ? done : invalid) << source;
        EXPECT_EQ(set_oem(2, 0xD0, {uint8_t(source)}), good ? done : invalid) << source;
    }
}

TEST_F(lan, a_vlan_that_is_on_has_an_id_from_1_to_4094)
{
    EXPECT_EQ(set({1, 0x14, 0x64, 0x80}), done);  // 100
    EXPECT_EQ(get(1, 0x14).data, (bytes{0x11, 0x64, 0x80}));
    EXPECT_EQ(set({1, 0x14, 0xFE, 0x8F}), done);  // 4094
    EXPECT_EQ(set({1, 0x14, 0xFF, 0x8F}), out_of_range);
    EXPECT_EQ(set({1, 0x14, 0x00, 0x80}), out_of_range);
    for (const uint8_t reserved : bytes{0x90, 0xA0, 0xC0, 0x10})
        EXPECT_EQ(set({1, 0x14, 0x64, reserved}), invalid) << int(reserved);
    EXPECT_EQ(get(1, 0x14).data, (bytes{0x11, 0xFE, 0x8F}));
    EXPECT_EQ(set({1, 0x14, 0x00, 0x00}), done);  // off
    EXPECT_EQ(get(1, 0x14).data, (bytes{0x11, 0x00, 0x00}));
}

TEST_F(lan, ipv6_addresses_come_with_their_last_byte_first)
{
    EXPECT_EQ(set_oem(1, 0xCC, fe80_1_2), done);
    EXPECT_EQ(state_of("lan")["1"]["ipv6_address"], "fe80::1:2");
    bytes answer = {0x11, 0xD9, 0x7E, 0x00};
    answer.insert(answer.end(), fe80_1_2.begin(), fe80_1_2.end());
    EXPECT_EQ(get(1, 0xCC), (reply{0x00, answer}));
    EXPECT_EQ(set_oem(2, 0xCE, fe80_1_2), done);
    EXPECT_EQ(state_of("lan")["2"]["ipv6_gateway"], "fe80::1:2");
    EXPECT_EQ(set_oem(1, 0xCC, bytes(16, 0)), done);  // none
    EXPECT_EQ(state_of("lan")["1"]["ipv6_address"], "::");
    bytes multicast(16, 0);
    multicast[15] = 0xFF;
    EXPECT_EQ(set_oem(1, 0xCC, multicast), invalid);
    EXPECT_EQ(set_oem(1, 0xCE, multicast), invalid);
}

TEST_F(lan, an_ipv6_prefix_has_up_to_128_bits)
{
    EXPECT_EQ(set_oem(1, 0xCD, {128}), done);
    EXPECT_EQ(set_oem(1, 0xCD, {129}), out_of_range);
    EXPECT_EQ(set_oem(1, 0xCD, {200}), out_of_range);
    EXPECT_EQ(set_oem(1, 0xCD, {0}), done);
    EXPECT_EQ(get(1, 0xCD).data.back(), 0);
}

TEST_F(lan, has_its_state_in_json)
{
    EXPECT_EQ(state_of("lan")["1"].dump(),
              R"({"set_in_progress":false,"source":"static","address":"192.0.2.10","mask":"255.255.255.0",)"
              R"("gateway":"192.0.2.1","hardware_address":"02 00 00 00 00 01","vlan_enabled":false,"vlan_id":0,)"
              R"("ipv6_source":"static","ipv6_address":"::","ipv6_prefix_length":64,"ipv6_gateway":"::"})");
    const json wanted = {{"2",
                          {{"set_in_progress", true},
                           {"source", "dhcp"},
                           {"address", "10.0.0.5"},
                           {"mask", "255.0.0.0"},
                           {"gateway", "10.0.0.1"},
                           {"hardware_address", "02 00 00 00 00 FF"},
                           {"vlan_enabled", true},
                           {"vlan_id", 7},
                           {"ipv6_source", "dhcp"},
                           {"ipv6_address", "2001:db8::5"},
                           {"ipv6_prefix_length", 48},
                           {"ipv6_gateway", "2001:db8::1"}}}};
    board.from_json({{"lan", wanted}});
    EXPECT_EQ(state_of("lan")["2"], wanted["2"]);
    EXPECT_EQ(get(2, 0x00).data[1], 1);
    EXPECT_EQ(get(2, 0x04).data[1], 2);
    EXPECT_EQ(get(2, 0x05).data.back(), 0xFF);
    EXPECT_EQ(get(2, 0x14).data, (bytes{0x11, 0x07, 0x80}));
    board.reset();
    EXPECT_EQ(get(2, 0x03).data, (bytes{0x11, 198, 51, 100, 10}));
}

TEST_F(lan, refuses_a_state_that_does_not_fit)
{
    for (const json &wrong :
         {json{{"address", "10.0.0"}}, json{{"address", ""}}, json{{"address", "224.0.0.1"}}, json{{"address", 1}},
          json{{"gateway", "127.0.0.1"}}, json{{"mask", "255.0.255.0"}}, json{{"source", "unspecified"}},
          json{{"source", "bios"}}, json{{"ipv6_source", "unspecified"}}, json{{"vlan_enabled", true}},
          json{{"vlan_id", 4096}}, json{{"ipv6_address", "10.0.0.1"}}, json{{"ipv6_address", "ff02::1"}},
          json{{"ipv6_gateway", "ff02::1"}}, json{{"ipv6_prefix_length", 129}}, json{{"hardware_address", "02 00"}},
          json{{"name", "eth0"}}})
        EXPECT_THROW(board.from_json({{"lan", {{"1", wrong}}}}), bad_state) << wrong;
    EXPECT_THROW(board.from_json({{"lan", {{"3", json::object()}}}}), bad_state);
    EXPECT_EQ(get(1, 0x03).data, (bytes{0x11, 192, 0, 2, 10}));
}

TEST_F(lan, speaks_in_the_trace)
{
    static const std::string request = "request 0C/01 Set LAN Configuration Parameters: ";
    const std::pair<bytes, const char *> cases[] = {
        {{1, 0, 1}, "01 00 01 (channel 1, Set In Progress: set in progress)"},
        {{1, 0, 0}, "01 00 00 (channel 1, Set In Progress: set complete)"},
        {{2, 3, 10, 0, 0, 5}, "02 03 0A 00 00 05 (channel 2, IP address 10.0.0.5)"},
        {{1, 3, 10}, "01 03 0A (channel 1, IP address)"},
        {{1, 4, 2}, "01 04 02 (channel 1, IP address source dhcp)"},
        {{1, 4, 9}, "01 04 09 (channel 1, IP address source 9)"},
        {{1, 0x14, 0xFE, 0x8F}, "01 14 FE 8F (channel 1, VLAN 4094, on)"},
        {{1, 0xCD, 0xD9, 0x7E, 0, 200}, "01 CD D9 7E 00 C8 (channel 1, IPv6 prefix length /200)"},
        {{1, 0xCD, 0xD9, 0x7E, 1, 200}, "01 CD D9 7E 01 C8 (channel 1, IPv6 prefix length)"},
        {{1, 0xCE, 0xD9, 0x7E, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80, 0xFE},
         "01 CE D9 7E 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 80 FE (channel 1, IPv6 gateway fe80::1)"},
        {{1, 0x77, 5}, "01 77 05 (channel 1, parameter 0x77)"},
        {{5, 0x04, 1}, "05 04 01 (channel 5, parameter 0x04)"},
    };
    for (const auto &[data, words] : cases)
        EXPECT_EQ(lines(0x0C, 0x01, data)[0], request + words);
    EXPECT_EQ(lines(0x0C, 0x02, {1, 6, 0, 0}),
              (expected{"request 0C/02 Get LAN Configuration Parameters: 01 06 00 00 (channel 1, subnet mask)",
                        "answer  00 done: 11 FF FF FF 00"}));
}

}  // namespace ipmcd
