#include "ui/arguments.h"
#include "ui/invocation.h"

#include <gtest/gtest.h>
#include <string>

static const std::string many_nines(100000, '9');

struct number_fact {
    const char *text;
    int32_t number;
};

TEST(words, parse_number)
{
    const number_fact facts[] = {
        {"", 0},
        {"0", 0},
        {"02", 2},
        {"010", 10},  // no octal
        {" 7", 7},
        {"+5", 5},
        {"-0", 0},
        {"0x1", 1},
        {"0X10", 16},
        {"0xfF", 255},
        {"2147483647", 2147483647},
        {"2147483648", 2147483647},
        {"0xFFFFFFFFF", 2147483647},
        {many_nines.c_str(), 2147483647},
        {" ", -1},
        {"x", -1},
        {"0x", -1},    // too short to be hexadecimal
        {" 0x1", -1},  // does not begin with it
        {"0x-5", -1},
        {"0xg", -1},
        {"1x", -1},
        {"1 ", -1},
        {"1.0", -1},
        {"-1", -1},
        {"-2147483648", -1},
        {"-99999999999999999999", -1},
        {"--1", -1},
    };
    for (const number_fact &fact : facts)
        EXPECT_EQ(parse_number(fact.text), fact.number) << '"' << std::string(fact.text).substr(0, 40) << '"';
}

struct unsigned_fact {
    const char *text;
    uint32_t number;
};

TEST(words, parse_unsigned)
{
    const unsigned_fact facts[] = {
        {"", 0},
        {"0", 0},
        {"4294967294", 4294967294U},
        {"4294967295", 4294967295U},
        {"0xFFFFFFFE", 4294967294U},
        {" 7", 7},
        {"+5", 5},
        {"-5", 4294967291U},           // as strtoul
        {" -4294967295", 1},           // as strtoul
        {"-4294967296", 4294967295U},  // does not fit: the largest, whatever the sign
        {"4294967296", 4294967295U},
        {many_nines.c_str(), 4294967295U},
        {"44x", 4294967295U},
        {"x", 4294967295U},
        {"0x", 4294967295U},
        {"1.5", 4294967295U},
    };
    for (const unsigned_fact &fact : facts)
        EXPECT_EQ(parse_unsigned(fact.text), fact.number) << '"' << std::string(fact.text).substr(0, 40) << '"';
}

TEST(words, leading_number)
{
    const number_fact facts[] = {
        {"", 0},
        {"7", 7},
        {" 12abc", 12},
        {"-3x", -3},
        {"abc", 0},
        {"0x3", 0},
        {"1.9", 1},
        {"2147483648", 2147483647},
        {"-2147483649", -2147483647 - 1},
        {many_nines.c_str(), 2147483647},
    };
    for (const number_fact &fact : facts)
        EXPECT_EQ(leading_number(fact.text), fact.number) << '"' << std::string(fact.text).substr(0, 40) << '"';
}

TEST(words, has_values)
{
    char dash_v[] = "-v", other[] = "-vv", value[] = "1";
    char *right[] = {dash_v, value, nullptr}, *wrong[] = {other, value, nullptr}, *none[] = {nullptr};
    const invocation one_value{4, 2, right, nullptr};
    EXPECT_TRUE(one_value.has_values(1));
    EXPECT_FALSE(one_value.has_values(2));
    EXPECT_STREQ(one_value.value(0), "1");
    EXPECT_FALSE((invocation{4, 1, right, nullptr}.has_values(1)));
    EXPECT_FALSE((invocation{4, 2, wrong, nullptr}.has_values(1)));
    EXPECT_FALSE((invocation{4, 0, none, nullptr}.has_values(1)));
}
