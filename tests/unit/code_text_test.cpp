#include "ipmi/code_text.h"

#include <gtest/gtest.h>

struct code_fact {
    uint8_t code, netfn, command;
    const char *text;
};

TEST(code_text, generic_codes_for_any_command)
{
    const code_fact facts[] = {
        {0x00, 0, 0, "Command completed normally"},
        {0xC0, 0, 0, "Node busy"},
        {0xC1, 0, 0, "Invalid command"},
        {0xC2, 0, 0, "Invalid command on LUN"},
        {0xC3, 0, 0, "Timeout"},
        {0xC4, 0, 0, "Out of space"},
        {0xC5, 0, 0, "Reservation cancelled or invalid"},
        {0xC6, 0, 0, "Request data truncated"},
        {0xC7, 0, 0, "Request data length invalid"},
        {0xC8, 0, 0, "Request data field length limit exceeded"},
        {0xC9, 0, 0, "Parameter out of range"},
        {0xCA, 0, 0, "Cannot return number of requested data bytes"},
        {0xCB, 0, 0, "Requested sensor, data, or record not found"},
        {0xCC, 0, 0, "Invalid data field in request"},
        {0xCD, 0, 0, "Command illegal for specified sensor or record type"},
        {0xCE, 0, 0, "Command response could not be provided"},
        {0xCF, 0, 0, "Cannot execute duplicated request"},
        {0xD0, 0, 0, "SDR Repository in update mode"},
        {0xD1, 0, 0, "Device firmeware in update mode"},
        {0xD2, 0, 0, "BMC initialization in progress"},
        {0xD3, 0, 0, "Destination unavailable"},
        {0xD4, 0, 0, "Insufficient privilege level"},
        {0xD5, 0, 0, "Command not supported in present state"},
        {0xD6, 0, 0, "Parameter is illegal because command b-functionhas been disabled or is unavailable"},
        {0xFF, 0, 0, "Unspecified error"},
    };
    for (const code_fact &fact : facts) {
        EXPECT_STREQ(completion_text(fact.code, 0x30, 0x91), fact.text);
        EXPECT_STREQ(completion_text(fact.code, 0x0A, 0x40), fact.text);
    }
}

TEST(code_text, codes_of_one_command)
{
    static constexpr char progress[] = "attempt to set the'set in progress'value when not in the'set complete'state";
    const code_fact facts[] = {
        {0x80, 0x06, 0x22, "Attempt to start un-initialized watchdog"},
        {0x80, 0x00, 0x08, "parameter not supported"},
        {0x81, 0x00, 0x08, progress},
        {0x82, 0x00, 0x08, "attempt to write read-only parameter"},
        {0x80, 0x00, 0x09, "parameter not supported"},
        {0x81, 0x0A, 0x11, "FRU device busy"},
        {0x81, 0x0A, 0x40, "cannot execute command, SEL erase in progress"},
        {0x80, 0x0C, 0x01, "parameter not supported"},
        {0x81, 0x0C, 0x01, progress},
        {0x82, 0x0C, 0x01, "attempt to write read-only parameter"},
        {0x83, 0x0C, 0x01, "attempt to read write-only parameter"},
        {0x80, 0x0C, 0x02, "parameter not supported"},
        {0x80, 0x04, 0x21, "record changed"},
    };
    for (const code_fact &fact : facts)
        EXPECT_STREQ(completion_text(fact.code, fact.netfn, fact.command), fact.text);
}

TEST(code_text, unknown_codes)
{
    const code_fact facts[] = {
        {0x81, 0x30, 0x91, "Unknown (0x81)"}, {0x83, 0x00, 0x08, "Unknown (0x83)"},
        {0x81, 0x0C, 0x02, "Unknown (0x81)"}, {0xD7, 0x0A, 0x11, "Unknown (0xd7)"},
        {0x01, 0x04, 0x21, "Unknown (0x1)"},  {0x80, 0x04, 0x22, "Unknown (0x80)"},
    };
    for (const code_fact &fact : facts)
        EXPECT_STREQ(completion_text(fact.code, fact.netfn, fact.command), fact.text);
}

TEST(code_text, values_by_their_low_half)
{
    static constexpr value_text table[] = {{1, "one"}, {0x1234, "two"}, {1, "never"}, {}};
    EXPECT_STREQ(val_to_str(1, table), "one");
    EXPECT_STREQ(val_to_str(0xABCD1234, table), "two");
    EXPECT_STREQ(val_to_str(0xABCD00FF, table), "Unknown (0xff)");
}

TEST(code_text, unknown_texts_have_buffers_of_their_own)
{
    static constexpr value_text none[] = {{}};
    const char *code = completion_text(0x85, 0, 0), *value = val_to_str(7, none);
    EXPECT_STREQ(code, "Unknown (0x85)");
    EXPECT_STREQ(value, "Unknown (0x7)");
    EXPECT_STREQ(val_to_str(8, none), "Unknown (0x8)");
    EXPECT_STREQ(value, "Unknown (0x8)");
    EXPECT_STREQ(code, "Unknown (0x85)");
}
