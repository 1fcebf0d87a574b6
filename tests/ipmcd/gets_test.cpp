/// Whatever can be set can be read back: each Set of IPMI and PICMG has its Get, with the standard's encoding.
#include "ipmcd/families/lan.h"
#include "tests/ipmcd/board.h"

#include <algorithm>

namespace ipmcd
{

std::span<const lan_parameter> lan_lan_parameters();
std::span<const lan_parameter> nic_lan_parameters();
std::span<const lan_parameter> traps_lan_parameters();

struct gets : board_test {
};

/// A setting: the request that makes it, the one that reads it, and what that answers.
struct setting {
    const char *name;
    uint8_t netfn, set;
    bytes value;
    uint8_t get;
    bytes which;
    bytes answer;
};

// The data of OEM requests and of the maker's LAN parameters begin with enterprise number 32473, D9 7E 00; answers of
// Get LAN Configuration Parameters with the revision 0x11; of Get System Boot Options with the version 0x01 and the
// parameter; of PICMG commands with the identifier 0x00.
static const setting settings[] = {
    {"boot flags", 0x00, 0x08, {5, 0xC0, 0x04, 0, 0, 0}, 0x09, {5, 0, 0}, {0x01, 5, 0xC0, 0x04, 0, 0, 0}},
    {"shutdown time-out", 0x00, 0x08, {0x62, 0x78, 0xFF}, 0x09, {0x62, 0, 0}, {0x01, 0x62, 0x78, 0xFF}},
    {"BIOS protection", 0x00, 0x08, {0x63, 1}, 0x09, {0x63, 0, 0}, {0x01, 0x63, 1}},
    // Power is on since the factory; bits 6 and 5 to 4 of the third byte: identify is known, and on until switched off.
    {"identify", 0x00, 0x04, {15, 1}, 0x01, {}, {0x21, 0x00, 0x60}},
    {"fan level", 0x2C, 0x15, {0, 0, 60}, 0x16, {0, 0}, {0, 60}},
    {"fan mode",
     0x30,
     0x91,
     {0xD9, 0x7E, 0x00, 0x01, 1, 0x2C, 0x01, 0, 0},
     0x91,
     {0xD9, 0x7E, 0x00, 0x02},
     {0xD9, 0x7E, 0x00, 1, 0x2C, 0x01, 0, 0, 0}},
    // LED 1: local control is there (1) and overridden (2); what it does by itself: off, red; the override: 100 ms off,
    // 200 ms on, amber.
    {"LED", 0x2C, 0x07, {0, 0, 1, 10, 20, 4}, 0x08, {0, 0, 1}, {0, 0x03, 0, 0, 2, 10, 20, 4}},
    {"UTC offset", 0x0A, 0x5D, {0xF2, 0xFE}, 0x5C, {}, {0xF2, 0xFE}},
    {"time", 0x0A, 0x49, {0x80, 0x51, 0x01, 0x66}, 0x48, {}, {0x80, 0x51, 0x01, 0x66}},
    // Sensor 3, CPU1 Temp: its three upper thresholds can be read, and no lower one.
    {"thresholds", 0x04, 0x26, {3, 0x10, 0, 0, 0, 0, 91, 0}, 0x27, {3}, {0x38, 0, 0, 0, 88, 91, 105}},
    {"hysteresis", 0x04, 0x24, {3, 0xFF, 7, 4}, 0x25, {3, 0xFF}, {7, 4}},
    {"user name",
     0x06,
     0x45,
     {6, 'c', 'a', 'r', 'o', 'l', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
     0x46,
     {6},
     {'c', 'a', 'r', 'o', 'l', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
    // 17 users, bit 6 for "enabled" and 4 who are, 1 fixed name, IPMI messaging (0x10) and operator (3)
    {"user access", 0x06, 0x43, {1, 4, 3}, 0x44, {1, 4}, {17, 0x44, 1, 0x13}},
    {"address", 0x0C, 0x01, {1, 0x03, 10, 1, 2, 3}, 0x02, {1, 0x03, 0, 0}, {0x11, 10, 1, 2, 3}},
    {"address source", 0x0C, 0x01, {1, 0x04, 2}, 0x02, {1, 0x04, 0, 0}, {0x11, 2}},
    {"mask", 0x0C, 0x01, {1, 0x06, 255, 255, 0, 0}, 0x02, {1, 0x06, 0, 0}, {0x11, 255, 255, 0, 0}},
    {"gateway", 0x0C, 0x01, {1, 0x0C, 10, 1, 0, 1}, 0x02, {1, 0x0C, 0, 0}, {0x11, 10, 1, 0, 1}},
    {"VLAN", 0x0C, 0x01, {1, 0x14, 0xFE, 0x8F}, 0x02, {1, 0x14, 0, 0}, {0x11, 0xFE, 0x8F}},
    {"IPv6 address",
     0x0C,
     0x01,
     {1, 0xCC, 0xD9, 0x7E, 0x00, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80, 0xFE},
     0x02,
     {1, 0xCC, 0, 0},
     {0x11, 0xD9, 0x7E, 0x00, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80, 0xFE}},
    {"IPv6 prefix", 0x0C, 0x01, {1, 0xCD, 0xD9, 0x7E, 0x00, 48}, 0x02, {1, 0xCD, 0, 0}, {0x11, 0xD9, 0x7E, 0x00, 48}},
    {"IPv6 gateway",
     0x0C,
     0x01,
     {1, 0xCE, 0xD9, 0x7E, 0x00, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80, 0xFE},
     0x02,
     {1, 0xCE, 0, 0},
     {0x11, 0xD9, 0x7E, 0x00, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80, 0xFE}},
    {"IPv6 source", 0x0C, 0x01, {1, 0xD0, 0xD9, 0x7E, 0x00, 2}, 0x02, {1, 0xD0, 0, 0}, {0x11, 0xD9, 0x7E, 0x00, 2}},
    {"NIC mode", 0x0C, 0x01, {1, 0xD7, 0xD9, 0x7E, 0x00, 3}, 0x02, {1, 0xD7, 0, 0}, {0x11, 0xD9, 0x7E, 0x00, 3}},
    {"shared port", 0x0C, 0x01, {2, 0xC5, 0xD9, 0x7E, 0x00, 0}, 0x02, {2, 0xC5, 0, 0}, {0x11, 0xD9, 0x7E, 0x00, 0}},
    // Of several destinations the set selector says which.
    {"trap port",
     0x0C,
     0x01,
     {1, 0xC0, 0xD9, 0x7E, 0x00, 3, 0x9C, 0x01},
     0x02,
     {1, 0xC0, 3, 0},
     {0x11, 0xD9, 0x7E, 0x00, 3, 0x9C, 0x01}},
    {"trap destinations",
     0x0C,
     0x01,
     {1, 0xC1, 0xD9, 0x7E, 0x00, 4, 0, 4, 0},
     0x02,
     {1, 0xC1, 0, 0},
     {0x11, 0xD9, 0x7E, 0x00, 0x0F, 0, 4, 0}},
    {"traps", 0x0C, 0x01, {1, 0xC2, 0xD9, 0x7E, 0x00, 1}, 0x02, {1, 0xC2, 0, 0}, {0x11, 0xD9, 0x7E, 0x00, 1}},
    {"trap version", 0x0C, 0x01, {1, 0xC3, 0xD9, 0x7E, 0x00, 3}, 0x02, {1, 0xC3, 0, 0}, {0x11, 0xD9, 0x7E, 0x00, 3}},
    {"trap severity",
     0x0C,
     0x01,
     {1, 0xC4, 0xD9, 0x7E, 0x00, 0, 2},
     0x02,
     {1, 0xC4, 0, 0},
     {0x11, 0xD9, 0x7E, 0x00, 0, 2}},
    {"trap address",
     0x0C,
     0x01,
     {1, 0xD1, 0xD9, 0x7E, 0x00, 2, 0, 10, 0, 0, 9},
     0x02,
     {1, 0xD1, 2, 0},
     {0x11, 0xD9, 0x7E, 0x00, 2, 0, 10, 0, 0, 9}},
};

TEST_F(gets, tell_what_a_set_has_written)
{
    for (const setting &one : settings) {
        EXPECT_EQ(ask(one.netfn, one.set, one.value).code, 0x00) << one.name;
        EXPECT_EQ(ask(one.netfn, one.get, one.which), (reply{0x00, one.answer})) << one.name;
    }
}

/// "Set Fan Level" and "Get Fan Level". The maker has no Get for some of its own, and nobody reads a password.
TEST_F(gets, there_is_one_for_each_set)
{
    const std::set<std::string> only_written = {
        "Set Network Service", "Set Password Rules", "Set Serial Direction", "Set Sideband Port",
        "Set Trap Mode",       "Set Trap Protocols", "Set Trap User",        "Set User Password",
    };
    std::set<std::string> names, without;
    for (const auto &make : all_families())
        for (const command &row : make(board)->commands())
            names.insert(row.name);
    for (const std::string &name : names)
        if (name.starts_with("Set ") && !names.contains("Get " + name.substr(4)))
            without.insert(name);
    EXPECT_EQ(without, only_written);
}

TEST_F(gets, only_the_trap_community_is_a_lan_parameter_that_nobody_reads)
{
    std::set<int> settable, without, compared;
    for (const auto rows : {lan_lan_parameters(), nic_lan_parameters(), traps_lan_parameters()})
        for (const lan_parameter &row : rows) {
            if (row.set)
                settable.insert(row.selector);
            if (row.set && !row.get)
                without.insert(row.selector);
        }
    EXPECT_EQ(without, std::set<int>{0x10});
    EXPECT_EQ(ask(0x0C, 0x02, {1, 0x10, 0, 0}), (reply{0x83, {}}));  // write-only

    // The table above leaves none out but the community, and the bracket around all of them.
    for (const setting &one : settings)
        if (one.netfn == 0x0C)
            compared.insert(one.value[1]);
    compared.insert({0x00, 0x10});
    EXPECT_EQ(compared, settable);
}

}  // namespace ipmcd
