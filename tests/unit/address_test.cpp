#include "ui/address.h"

#include "tests/unit/platform_stub.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <regex>
#include <set>

// Dotted quads ------------------------------------------------------------------------------------------------------

/// What IPCheck() says of a text, and prints about it.
struct quad_verdict {
    int result;
    std::string lines;
    bool operator==(const quad_verdict &) const = default;
};
static std::ostream &operator<<(std::ostream &to, const quad_verdict &verdict)
{
    return to << verdict.result << " \"" << verdict.lines << '"';
}

static quad_verdict check(const std::string &text)
{
    quad_verdict verdict{};
    verdict.lines = printed([&] { verdict.result = IPCheck(text.c_str(), unsigned(text.size())); });
    return verdict;
}

TEST(dotted_quad, facts)
{
    const struct {
        const char *text;
        quad_verdict verdict;
    } facts[] = {
        {"192.168.1.1", {1, ""}},
        {"0.0.0.0", {1, ""}},
        {"255.255.255.255", {1, ""}},
        {"192.168.010.1", {1, ""}},
        {"999.999.999.999", {1, ""}},  // no group's value is looked at
        {"1.2.3.4444", {1, ""}},       // nor the length of the last
        {"1.2.3.444444444", {1, ""}},
        {"192.168.100.0100", {0, ""}},  // 16 characters
        {"1.2.3", {0, ""}},
        {"1.2.3.4.5", {0, ""}},
        {"1234", {0, ""}},
        {"", {0, ""}},
        {".", {0, ""}},
        {".1.2.3.4", {0, ""}},
        {"1.2.3.", {0, ""}},
        {"1.2.3.4.", {0, ""}},
        {"1.2.3.4 ", {0, ""}},
        {" 1.2.3.4", {0, ""}},
        {"1.2.3.0x4", {0, ""}},
        {"-1.2.3.4", {0, ""}},
        {"a.b.c.d", {0, ""}},
        {"1..2.3", {0, "IPCheck:go here2!\r\n"}},
        {"1.2.3..", {0, "IPCheck:go here2!\r\n"}},
        {"1.a.2.3", {0, "IPCheck:go here2!\r\n"}},
        {"12345..1", {0, "IPCheck:go here2!\r\n"}},  // before digits are counted
        {"0001.2.3.4", {0, "IPCheck:ucDigitNum=4,i =4\r\n"}},
        {"1.2.00003.4", {0, "IPCheck:ucDigitNum=5,i =9\r\n"}},
        {"1.2.3.4444.5", {0, "IPCheck:ucDigitNum=4,i =10\r\n"}},
        {"1234567890123.1", {0, "IPCheck:ucDigitNum=13,i =13\r\n"}},
    };
    for (const auto &fact : facts)
        EXPECT_EQ(check(fact.text), fact.verdict) << fact.text;
}

TEST(dotted_quad, no_text)
{
    EXPECT_EQ(printed([] { EXPECT_EQ(IPCheck(nullptr, 7), 0); }), "");
}

TEST(dotted_quad, only_the_length_given_is_looked_at)
{
    EXPECT_EQ(IPCheck("1.2.3.4xyz", 7), 1);
    EXPECT_EQ(IPCheck("1.2.3.45", 7), 1);
    EXPECT_EQ(IPCheck("1.2.3.4", 6), 0);
}

/// The same rule in other words: each text has the shape of one of these, or is no quad and nothing is said.
static quad_verdict expected_verdict(const std::string &text)
{
    static const std::regex quad(R"((\d{1,3}\.){3}\d+)"), two_dots(R"((\d{1,3}\.)*\d+\.\D.*)"),
        long_group(R"(((?:\d{1,3}\.)*)(\d{4,})\.\d.*)");
    std::smatch parts;
    if (text.size() > 15)
        return {0, ""};
    if (std::regex_match(text, quad))
        return {1, ""};
    if (std::regex_match(text, two_dots))
        return {0, "IPCheck:go here2!\r\n"};
    if (std::regex_match(text, parts, long_group))
        return {0, "IPCheck:ucDigitNum=" + std::to_string(parts[2].length()) +
                       ",i =" + std::to_string(parts[1].length() + parts[2].length()) + "\r\n"};
    return {0, ""};
}

TEST(dotted_quad, every_text_of_up_to_seven_of_three_characters)
{
    static constexpr char alphabet[] = {'7', '.', 'x'};
    for (unsigned length = 0, texts = 1; length <= 7; ++length, texts *= 3)
        for (unsigned number = 0; number < texts; ++number) {
            std::string text;
            for (unsigned rest = number; text.size() < length; rest /= 3)
                text += alphabet[rest % 3];
            EXPECT_EQ(check(text), expected_verdict(text)) << text;
        }
}

TEST(dotted_quad, quads_drawn_at_random_one_in_two_spoiled)
{
    static const std::string spoilers = "0123456789... x";
    std::mt19937 random(5101);
    unsigned accepted = 0;
    for (int n = 0; n < 5000; ++n) {
        std::string text;
        for (int group = 0; group < 4; ++group)
            text += (group > 0 ? "." : "") + std::to_string(10000 + random() % 10000).substr(1 + random() % 4);
        if (random() % 2 == 0)
            text[random() % text.size()] = spoilers[random() % spoilers.size()];
        const quad_verdict verdict = check(text);
        accepted += verdict.result == 1;
        EXPECT_EQ(verdict, expected_verdict(text)) << text;
    }
    EXPECT_GT(accepted, 500U);  // enough of either kind
    EXPECT_LT(accepted, 4500U);
}

// Masks -------------------------------------------------------------------------------------------------------------

/// The masks of 1 to 32 ones, in front.
static std::set<uint32_t> valid_masks()
{
    std::set<uint32_t> masks;
    for (unsigned length = 1; length <= 32; ++length)
        masks.insert(uint32_t(0x100000000 - (uint64_t(1) << (32 - length))));
    return masks;
}

TEST(mask, facts)
{
    EXPECT_EQ(mask_check(0x00000000), 1);
    EXPECT_EQ(mask_check(0x80000000), 0);
    EXPECT_EQ(mask_check(0xFF000000), 0);
    EXPECT_EQ(mask_check(0xFFFFFF00), 0);
    EXPECT_EQ(mask_check(0xFFFFFFFE), 0);
    EXPECT_EQ(mask_check(0xFFFFFFFF), 0);  // refused elsewhere
    EXPECT_EQ(mask_check(0xFF00FF00), 1);
    EXPECT_EQ(mask_check(0x00FFFFFF), 1);
    EXPECT_EQ(mask_check(0x00000001), 1);
    EXPECT_EQ(mask_check(0x7FFFFFFF), 1);
    EXPECT_EQ(mask_check(0xFFFFFFFD), 1);
}

TEST(mask, prefixes_and_what_lies_one_or_two_bits_beside_them)
{
    const std::set<uint32_t> valid = valid_masks();
    ASSERT_EQ(valid.size(), 32U);
    std::set<uint32_t> prefixes = valid;
    prefixes.insert(0);
    for (const uint32_t prefix : prefixes)
        for (unsigned first = 0; first < 32; ++first)
            for (unsigned second = first; second < 32; ++second) {
                const uint32_t flipped = prefix ^ 1U << first;
                for (const uint32_t mask : {prefix, flipped, flipped ^ 1U << second})
                    ASSERT_EQ(mask_check(mask), valid.count(mask) == 1 ? 0 : 1) << std::hex << mask;
            }
}

TEST(mask, drawn_at_random)
{
    const std::set<uint32_t> valid = valid_masks();
    std::mt19937 random(5102);
    for (int n = 0; n < 100000; ++n) {
        const auto mask = uint32_t(random()) << random() % 32;
        ASSERT_EQ(mask_check(mask), valid.count(mask) == 1 ? 0 : 1) << std::hex << mask;
    }
}

// Interface addresses -----------------------------------------------------------------------------------------------

static constexpr auto accepted = interface_address::accepted, unreadable = interface_address::unreadable,
                      unreasonable = interface_address::unreasonable;

static std::ostream &operator<<(std::ostream &to, interface_address judged)
{
    static constexpr const char *words[] = {"accepted", "unreadable", "unreasonable"};
    return to << words[int(judged)];
}

TEST(interface_addresses, facts)
{
    const struct {
        const char *address, *mask;
        interface_address judged;
        const char *why;
    } facts[] = {
        {"192.168.1.1", "255.255.255.0", accepted, "as most are"},
        {"192.168.010.1", "255.255.255.0", accepted, "a leading 0 is octal"},
        {"10.0.0.1", "0xFF000000", accepted, "the mask may be one number"},
        {"10.0.0.1", "255.0.0.0 x", accepted, "the mask may have something behind a blank"},
        {"10.0.0.1", "0377.0.0.0", accepted, "the mask may be octal"},
        {"192.168.1.5", "255.255.255.252", accepted, "two hosts are a network"},
        {"128.0.0.1", "128.0.0.0", accepted, "the shortest mask there is"},
        {"1.0.0.1", "255.0.0.0", accepted, "the first network"},
        {"126.0.0.1", "255.0.0.0", accepted, "the last one before 127"},
        {"128.0.0.1", "255.0.0.0", accepted, "the first one behind it"},
        {"223.255.255.254", "255.0.0.0", accepted, "the last one before the multicast networks"},

        {"", "255.0.0.0", unreadable, "no address"},
        {"nonsense", "255.0.0.0", unreadable, "no address"},
        {"1.2.3.256", "255.0.0.0", unreadable, "last part above 255"},
        {"1.2.3.4444", "255.0.0.0", unreadable, "though it is a dotted quad"},
        {"1..2.3", "255.0.0.0", unreadable, "two dots in a row, and nothing said of it"},
        {"10.0.0.1", "", unreadable, "no mask"},
        {"10.0.0.1", "255.0.0.256", unreadable, "no mask"},
        {"10.0.0.1", "255.255.255.255", unreadable, "the mask is all ones"},
        {"127.0.0.1", "0xFFFFFFFF", unreadable, "the mask is all ones, however written, whatever the address"},
        {"255.255.255.255", "255.0.0.0", unreadable, "the address is all ones"},
        {"037777777777", "0.0.0.0", unreadable, "the address is all ones, however written, whatever the mask"},

        {"1.2.3", "255.0.0.0", unreasonable, "three parts"},
        {"167772161", "255.0.0.0", unreasonable, "one number"},
        {"0xA.0.0.1", "255.0.0.0", unreasonable, "hexadecimal"},
        {"10.0.0.1 x", "255.0.0.0", unreasonable, "something behind a blank"},
        {"192.168.100.0100", "255.255.255.0", unreasonable, "16 characters"},
        {"192.168.1.1", "255.0.255.0", unreasonable, "mask with a gap"},
        {"192.168.1.1", "255", unreasonable, "mask that is 0.0.0.255"},
        {"192.168.1.1", "0.0.0.0", unreasonable, "mask of zeros"},
        {"10.0.0.0", "255.0.0.0", unreasonable, "host part is zero"},
        {"10.255.255.255", "255.0.0.0", unreasonable, "host part is all ones"},
        {"192.168.1.4", "255.255.255.254", unreasonable, "the only host is zero"},
        {"192.168.1.5", "255.255.255.254", unreasonable, "the only host is all ones"},
        {"1.2.3.4", "128.0.0.0", unreasonable, "network part is zero"},
        {"1.2.3.4", "254.0.0.0", unreasonable, "network part is zero"},
        {"0.0.0.0", "255.0.0.0", unreasonable, "network part is zero"},
        {"0.1.2.3", "255.0.0.0", unreasonable, "network part is zero"},
        {"0.1.2.3", "255.255.0.0", unreasonable, "network 0"},
        {"127.0.0.5", "255.0.0.0", unreasonable, "network 127"},
        {"224.0.0.5", "255.255.255.0", unreasonable, "multicast"},
        {"240.0.0.5", "255.255.255.0", unreasonable, "reserved"},
        {"255.255.255.254", "255.0.0.0", unreasonable, "reserved"},
    };
    for (const auto &fact : facts) {
        uint32_t address, mask;
        const std::string lines = printed([&] {
            EXPECT_EQ(check_interface_address(fact.address, fact.mask, address, mask), fact.judged)
                << fact.address << " " << fact.mask << ": " << fact.why;
        });
        EXPECT_EQ(lines, "") << fact.address;
    }
}

TEST(interface_addresses, values_are_in_host_order)
{
    uint32_t address, mask;
    check_interface_address("192.168.010.1", "255.255.254.0", address, mask);
    EXPECT_EQ(address, 0xC0A80801U);
    EXPECT_EQ(mask, 0xFFFFFE00U);
}

TEST(interface_addresses, a_long_group_is_told_before_the_mask_is_judged_and_after_it_is_read)
{
    const auto told = [](const char *address_text, const char *mask_text) {
        uint32_t address, mask;
        return printed([&] { check_interface_address(address_text, mask_text, address, mask); });
    };
    EXPECT_EQ(told("0001.2.3.4", "255.0.0.0"), "IPCheck:ucDigitNum=4,i =4\r\n");
    EXPECT_EQ(told("0001.2.3.4", "255.0.255.0"), "IPCheck:ucDigitNum=4,i =4\r\n");
    EXPECT_EQ(told("0001.2.3.4", "nonsense"), "");
    EXPECT_EQ(told("0001.2.3.4", "255.255.255.255"), "");
}

static std::string dotted(uint32_t value)
{
    std::string text;
    for (const int shift : {24, 16, 8, 0})
        text += (text.empty() ? "" : ".") + std::to_string(value >> shift & 0xFF);
    return text;
}

/// The same rules by arithmetic on networks and their hosts, for a mask of `length` ones.
static interface_address judged_by_hosts(uint32_t address, unsigned length)
{
    if (address == 0xFFFFFFFF || length == 32)
        return unreadable;
    const uint64_t hosts = uint64_t(1) << (32 - length), host = address % hosts, network = address / hosts;
    const uint32_t first_octet = address / 0x1000000;
    const bool in_a_network = length > 0 && network > 0 && host >= 1 && host + 2 <= hosts;
    const bool in_a_class = (1 <= first_octet && first_octet <= 126) || (128 <= first_octet && first_octet <= 223);
    return in_a_network && in_a_class ? accepted : unreasonable;
}

/// Addresses at the borders of every network of this mask, and some that are not.
static std::vector<uint32_t> addresses_to_try(uint32_t mask, std::mt19937 &random)
{
    std::vector<uint32_t> addresses{0, 1, 0xFFFFFFFF, 0xFFFFFFFE};
    for (uint32_t first_octet = 0; first_octet < 256; ++first_octet) {
        const uint32_t any = first_octet << 24 | uint32_t(random() & 0xFFFFFF);
        for (const uint32_t border : {any & mask, any | ~mask})
            addresses.insert(addresses.end(), {border - 1, border, border + 1});
        addresses.push_back(any);
    }
    return addresses;
}

TEST(interface_addresses, every_prefix_with_many_addresses)
{
    std::mt19937 random(5103);
    unsigned pairs = 0, taken = 0;
    for (unsigned length = 0; length <= 32; ++length) {
        const auto mask = uint32_t(0x100000000 - (uint64_t(1) << (32 - length)));
        for (const uint32_t address : addresses_to_try(mask, random)) {
            uint32_t got_address, got_mask;
            const auto judged =
                check_interface_address(dotted(address).c_str(), dotted(mask).c_str(), got_address, got_mask);
            ASSERT_EQ(judged, judged_by_hosts(address, length)) << dotted(address) << " " << dotted(mask);
            if (judged != unreadable) {
                ASSERT_EQ(got_address, address);
                ASSERT_EQ(got_mask, mask);
            }
            ++pairs;
            taken += judged == accepted;
        }
    }
    EXPECT_GT(pairs, 50000U);
    EXPECT_GT(taken, 10000U);
}

TEST(interface_addresses, no_mask_with_a_gap_goes_with_any_address)
{
    const std::set<uint32_t> valid = valid_masks();
    std::mt19937 random(5104);
    for (int n = 0; n < 50000; ++n) {
        const auto mask = uint32_t(random()) << random() % 24;
        if (valid.count(mask) == 1)
            continue;
        const uint32_t address = 1U << 24 | uint32_t(random() & 0x7EFFFFFF);  // below network 127
        uint32_t got_address, got_mask;
        ASSERT_EQ(check_interface_address(dotted(address).c_str(), dotted(mask).c_str(), got_address, got_mask),
                  unreasonable)
            << dotted(address) << " " << dotted(mask);
    }
}

// Gateways ----------------------------------------------------------------------------------------------------------

TEST(ipv4, every_form_but_all_ones)
{
    const struct {
        const char *text;
        bool accepted;
        uint32_t address;
    } facts[] = {
        {"192.168.1.254", true, 0xC0A801FE},
        {"10.1", true, 0x0A000001},
        {"10.1.2", true, 0x0A010002},
        {"10.65535", true, 0x0A00FFFF},
        {"16909060", true, 0x01020304},
        {"0x01020304", true, 0x01020304},
        {"0xC0.0250.1.0xfe", true, 0xC0A801FE},
        {"0001.2.3.4", true, 0x01020304},
        {"192.168.100.0100", true, 0xC0A86440},
        {"10.1 and more", true, 0x0A000001},
        {"0", true, 0},
        {"0.0.0.0", true, 0},
        {"127.0.0.1", true, 0x7F000001},
        {"224.0.0.1", true, 0xE0000001},
        {"255.255.255.254", true, 0xFFFFFFFE},
        {"255.255.255.255", false, 0},
        {"0xFFFFFFFF", false, 0},
        {"4294967295", false, 0},
        {"255.16777215", false, 0},
        {"4294967296", false, 0},
        {"1.2.3.256", false, 0},
        {"1.2.3.4444", false, 0},
        {"1.2.3.4.5", false, 0},
        {"1..2.3", false, 0},
        {"1.2.3.", false, 0},
        {"1.2.3.08", false, 0},
        {"-1", false, 0},
        {"fe80::1", false, 0},
        {"nonsense", false, 0},
        {"", false, 0},
    };
    for (const auto &fact : facts) {
        uint32_t address = 0;
        EXPECT_EQ(parse_ipv4(fact.text, address), fact.accepted) << fact.text;
        if (fact.accepted) {
            EXPECT_EQ(address, fact.address) << fact.text;
        }
    }
}
