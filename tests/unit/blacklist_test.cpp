#include "cli/blacklist.h"

#include "cli/registry.h"
#include "tests/unit/platform_stub.h"

#include <climits>
#include <gtest/gtest.h>
#include <set>
#include <string>

using names = std::set<std::string>;

struct named_table {
    const char *name;
    command_entry *rows;
};
static const named_table tables[] = {
    {"-d", top_level_dataitems},  {"-t", targets},          {"fru0", fru0_dataitems},
    {"led", led_dataitems},       {"eth0", eth0_dataitems}, {"sensor", sensor_dataitems},
    {"trap", trap_dataitems},     {"user", user_dataitems}, {"service", service_dataitems},
    {"smbios", smbios_dataitems}, {"eth1", eth1_dataitems}, {"maintenance", maintenance_dataitems},
};

/// What a blacklist disables, as "TABLE ROW"; enabled again afterwards.
static names disabled_by(const std::string &lines)
{
    std::string text = lines;  // its line ends are overwritten
    apply_blacklist(text.data(), text.size());
    names found;
    for (const named_table &table : tables)
        for (command_entry *row = table.rows; row->name != nullptr; ++row)
            if (row->state() == command_entry::disabled) {
                found.insert(std::string(table.name) + " " + row->name);
                row->flags = (row->flags & 0xFF) | command_entry::enabled << 8;
            }
    return found;
}

struct blacklist_fact {
    std::string text;
    names disabled;
};

static void check(std::initializer_list<blacklist_fact> facts)
{
    for (const blacklist_fact &fact : facts)
        EXPECT_EQ(disabled_by(fact.text), fact.disabled) << fact.text.substr(0, 100);
}

TEST(blacklist, a_line_disables_one_row)
{
    check({
        {"cfgtool -d fanmode", {"-d fanmode"}},
        {"cfgtool -d httphost\n", {"-d httphost"}},
        {"cfgtool -t trap", {"-t trap"}},
        {"cfgtool -t maintenance", {"-t maintenance"}},
        {"cfgtool -t fru0 -d sel", {"fru0 sel"}},
        {"cfgtool -t led -d ledstate", {"led ledstate"}},
        {"cfgtool -t eth0 -d vlan", {"eth0 vlan"}},
        {"cfgtool -t sensor -d lowernoncritical", {"sensor lowernoncritical"}},
        {"cfgtool -t smbios -d serialnumber", {"smbios serialnumber"}},
        {"cfgtool -t trap -d auth_priv_protocol", {"trap auth_priv_protocol"}},
        {"cfgtool -t service -d port", {"service port"}},
        {"cfgtool -t user -d unlock", {"user unlock"}},
    });
}

TEST(blacklist, of_several_names_the_first_row_in_table_order)
{
    check({
        {"cfgtool -d passwordcomplexity", {"-d password"}},
        {"cfgtool -d fanlevel fanmode", {"-d fanmode"}},
        {"cfgtool -d xxsel", {"-d sel"}},  // a part of a word
        {"cfgtool -t trap fru0", {"-t fru0"}},
        {"cfgtool -t disabled", {"-t led"}},
        {"cfgtool -t eth0 -d gateway6", {"eth0 gateway"}},
        {"cfgtool -t eth0 -d ipaddr6", {"eth0 ipaddr"}},
        {"cfgtool -t fru0 -d sel powerstate", {"fru0 powerstate"}},
    });
}

TEST(blacklist, the_table_is_the_first_word_in_a_fixed_order)
{
    check({
        {"cfgtool -t trap -d user", {"trap user"}},
        {"cfgtool -t trap -d state service", {"trap state"}},
        {"cfgtool -t user -d port service", {"service port"}},
        {"cfgtool -t user -d unlock led", {}},  // the LED table has no unlock
        {"cfgtool -t led -d ledstate fru0", {}},
        {"cfgtool -t trap -d state smbios", {}},
        {"cfgtool -t smbios -d serialnumber sensor", {}},
        {"cfgtool -t eth0 -d mode trap", {"eth0 mode"}},
        {"cfgtool -t sensor -d test eth0", {}},
        {"cfgtool -t nothing -d state", {}},
        {"cfgtool -t eth1 -d state", {}},
        {"cfgtool -t trap-door", {}},  // holds a -d, and no dataitem
    });
}

TEST(blacklist, maintenance_dataitems_cannot_be_named)
{
    for (const command_entry *row = maintenance_dataitems; row->name != nullptr; ++row)
        check({{std::string("cfgtool -t maintenance -d ") + row->name, {}}});
    check({{"cfgtool -t maintenance -d unlock user", {"user unlock"}}});
}

TEST(blacklist, the_name_counts_anywhere_the_option_at_its_columns_only)
{
    check({
        {"cfgtool_-d sel", {"-d sel"}},
        {"cfgtool\t-dsel", {"-d sel"}},
        {"1234567 -d sel cfgtool", {"-d sel"}},
        {"1234567 -t trap cfgtool", {"-t trap"}},
        {"cfgtool  -d sel", {}},
        {"cfgtool-d sel", {}},
        {" cfgtool -d sel", {}},
        {"cfgtool -x sel", {}},
        {"cfgtool sel", {}},
        {"CFGTOOL -d sel", {}},
        {"1234567 -d sel", {}},
        {"cfgtool -D sel", {}},
    });
}

TEST(blacklist, short_lines_end_where_they_end)
{
    check({
        {"", {}},
        {"\n", {}},
        {"cfgtool", {}},
        {"cfgtool -", {}},
        {"cfgtool -d", {}},
        {"cfgtool -t", {}},
        {"cfgtool\n-d sel cfgtool", {}},
        {"cfgtool\n-d______-t trap state", {}},
    });
}

TEST(blacklist, lines_end_in_any_way)
{
    const names both{"-d sel", "-d reset"};
    check({
        {"cfgtool -d sel\ncfgtool -d reset", both},
        {"cfgtool -d sel\rcfgtool -d reset\r", both},
        {"cfgtool -d sel\r\ncfgtool -d reset\r\n", both},
        {"\n\n\rcfgtool -d sel\n\n\ncfgtool -d reset\n\n", both},
        {std::string("\0\0cfgtool -d sel\0cfgtool -d reset\0", 34), both},
        {std::string(1000000, '\0') + "cfgtool -d sel\ncfgtool -d reset", both},
        {"cfgtool  -d hangs\ncfgtool -d sel\ncfgtool\ncfgtool -d reset", both},
        {std::string("cfgtool -d s\0el", 15), {}},
        {"cfgtool -d " + std::string(1000000, 'x') + "sel\ncfgtool -d reset", both},
        {"\x80\xFF\x01 -d \xFE\ncfgtool -d sel\n\xFF\ncfgtool -d reset", both},
    });
}

TEST(blacklist, a_target_line_directly_behind_a_dataitem_line_need_not_name_the_tool)
{
    check({
        {"cfgtool -d sel\n1234567 -t trap", {"-d sel", "-t trap"}},
        {"cfgtool -d sel\n1234567 -t trap -d user", {"-d sel", "trap user"}},
        {"cfgtool -d nothing\n1234567 -t trap", {"-t trap"}},
        {"cfgtool -d sel\n1234567 -t trap\n1234567 -t led", {"-d sel", "-t trap"}},
        {"cfgtool -d sel\n1234567 -d reset", {"-d sel"}},  // a dataitem line does
        {"cfgtool -d sel\n1234567 -x\n1234567 -t trap", {"-d sel"}},
        {"cfgtool -d sel\n\n1234567 -t trap", {"-d sel"}},
        {"cfgtool -d sel\r\n1234567 -t trap", {"-d sel"}},
        {"1234567 -d sel\n1234567 -t trap", {}},
        {"cfgtool -t led\n1234567 -t trap", {"-t led"}},
        {"cfgtool -d sel\ncfgtool  -d x\n1234567 -t trap", {"-d sel"}},
    });
}

#if defined(__has_feature)
#define ENDS_AT_HUGE_ALLOCATIONS __has_feature(address_sanitizer)
#elif defined(__SANITIZE_ADDRESS__)
#define ENDS_AT_HUGE_ALLOCATIONS 1
#else
#define ENDS_AT_HUGE_ALLOCATIONS 0
#endif

TEST(blacklist, a_file_beyond_all_memory_disables_nothing_and_says_nothing)
{
    if (ENDS_AT_HUGE_ALLOCATIONS)
        GTEST_SKIP() << "AddressSanitizer ends the program where malloc would fail";
    reset_stub();
    stub.file_length = LONG_MAX - 1;
    EXPECT_EQ(printed(read_blacklist), "");
    EXPECT_EQ(disabled_by(""), names{});
    reset_stub();
}
