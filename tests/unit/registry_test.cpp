#include "cli/options.h"
#include "cli/registry.h"
#include "ipmi/privilege.h"
#include "tests/unit/platform_stub.h"

#include <cstring>
#include <gtest/gtest.h>
#include <set>

static std::vector<command_entry *> all_tables()
{
    std::vector<command_entry *> tables{top_level_dataitems, eth1_dataitems, smbios_dataitems};
    for (unsigned n = 0; targets[n].name != nullptr; ++n)
        tables.push_back(target_dataitems[n]);
    return tables;
}

TEST(registry, every_command_row_is_enabled_for_administrators_and_has_a_handler)
{
    for (const command_entry *table : all_tables())
        for (const command_entry *row = table; row->name != nullptr; ++row) {
            EXPECT_EQ(row->flags, 0x104U) << row->name;
            EXPECT_EQ(row->level(), 4) << row->name;
            EXPECT_EQ(row->state(), 1) << row->name;
            EXPECT_NE(row->handler, nullptr) << row->name;
            EXPECT_LE(strlen(row->help), 50U) << row->name;
        }
    for (const command_entry *row = targets; row->name != nullptr; ++row) {
        EXPECT_EQ(row->flags, 0x100U) << row->name;
        EXPECT_EQ(row->handler, nullptr) << row->name;
    }
}

TEST(registry, names_keep_to_their_length)
{
    std::vector<command_entry *> tables = all_tables();
    tables.push_back(targets);
    for (const command_entry *table : tables)
        for (const command_entry *row = table; row->name != nullptr; ++row)
            EXPECT_LE(strlen(row->name), command_entry::longest_name) << row->name;
}

TEST(registry, sizes)
{
    const auto rows = [](const command_entry *table) {
        unsigned count = 0;
        while (table[count].name != nullptr)
            ++count;
        return count;
    };
    EXPECT_EQ(rows(top_level_dataitems), 25U);
    EXPECT_EQ(rows(targets), 8U);
    EXPECT_EQ(rows(fru0_dataitems), 4U);
    EXPECT_EQ(rows(led_dataitems), 1U);
    EXPECT_EQ(rows(eth0_dataitems), 7U);
    EXPECT_EQ(rows(sensor_dataitems), 9U);
    EXPECT_EQ(rows(trap_dataitems), 9U);
    EXPECT_EQ(rows(service_dataitems), 2U);
    EXPECT_EQ(rows(user_dataitems), 1U);
    EXPECT_EQ(rows(maintenance_dataitems), 6U);
    EXPECT_EQ(rows(eth1_dataitems), 5U);
    EXPECT_EQ(rows(smbios_dataitems), 1U);
}

TEST(registry, both_power_rows_have_one_handler)
{
    for (const char *name : {"powerstate", "frucontrol", "shutdowntimeout", "sel"}) {
        const row_matches top = find_rows(top_level_dataitems, name), fru0 = find_rows(fru0_dataitems, name);
        EXPECT_EQ(top_level_dataitems[top.first].handler, fru0_dataitems[fru0.first].handler) << name;
    }
}

TEST(registry, every_row_is_found_by_its_name_alone)
{
    for (const command_entry *table : all_tables())
        for (unsigned row = 0; table[row].name != nullptr; ++row) {
            const row_matches found = find_rows(table, table[row].name);
            EXPECT_EQ(found.count, 1U) << table[row].name;
            EXPECT_EQ(found.first, row) << table[row].name;
            EXPECT_EQ(found.mask, 1U << row) << table[row].name;
        }
}

TEST(options, a_missing_dataitem_lists_the_top_level)
{
    const std::string text = printed([] { dispatch(0, nullptr, nullptr, 0, nullptr); });
    EXPECT_EQ(text.substr(0, 100), "\r\ninput parameter<-d> error\r\n    -d <dataitem>\r\n"
                                   "       fanmode                Set fan mode,you can c");
}

TEST(options, the_running_command_is_kept_as_typed)
{
    reset_stub();
    char word[] = "x";
    char *words[] = {word, nullptr};
    printed([&] { dispatch(0, nullptr, "rese", 1, words); });
    EXPECT_STREQ(current_command, "rese");
}

TEST(options, a_target_that_is_none_lists_the_targets_and_runs_nothing)
{
    const std::string text = printed([] { dispatch(1, "nothing", "fanlevel", 0, nullptr); });
    EXPECT_TRUE(text.starts_with("input parameter[-t] error\r\n    -t <target>\r\n       fru0 "));
    EXPECT_EQ(text.find("Usage"), std::string::npos);
}
