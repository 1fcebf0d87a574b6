#include "cli/blacklist.h"

#include "cli/registry.h"
#include "tests/unit/failing_call.h"
#include "tests/unit/naive_blacklist.h"

#include <cerrno>
#include <climits>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

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

/// "TABLE ROW" of every row that is disabled, which is enabled again.
static names disabled_rows_enabled_again()
{
    names found;
    for (const named_table &table : tables)
        for (command_entry *row = table.rows; row->name != nullptr; ++row)
            if (row->state() == command_entry::disabled) {
                EXPECT_EQ(row->flags, row->handler != nullptr ? 0x204U : 0x200U);
                found.insert(std::string(table.name) + " " + row->name);
                row->flags = (row->flags & 0xFF) | command_entry::enabled << 8;
            }
    return found;
}

/// What the first `length` bytes of a blacklist disable.
static names disabled_by(const std::string &text, unsigned long length = ULONG_MAX)
{
    const int file = memfd_create("blacklist", MFD_CLOEXEC);
    EXPECT_EQ(write(file, text.data(), text.size()), ssize_t(text.size()));
    lseek(file, 0, SEEK_SET);
    apply_blacklist(file, length);
    close(file);
    return disabled_rows_enabled_again();
}

static names disabled_by_naive_reading(const std::string &text)
{
    const naive_blacklist::rows rows = naive_blacklist::rows_disabled_by(text);
    for (const named_table &table : tables)
        for (command_entry *row = table.rows; row->name != nullptr; ++row)
            if (std::find(rows.begin(), rows.end(), row) != rows.end())
                row->disable();
    return disabled_rows_enabled_again();
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

TEST(blacklist, no_more_is_read_than_was_measured)
{
    const std::string text = "cfgtool -d sel\ncfgtool -d reset\n";
    EXPECT_EQ(disabled_by(text, 0), names{});
    EXPECT_EQ(disabled_by(text, 13), names{});
    EXPECT_EQ(disabled_by(text, 14), names{"-d sel"});
    EXPECT_EQ(disabled_by(text, text.size()), (names{"-d sel", "-d reset"}));
    const std::string long_text = std::string(100000, 'x') + "\n" + text;
    EXPECT_EQ(disabled_by(long_text, 100001 + 14), names{"-d sel"});
}

TEST(blacklist, reading_ends_where_it_fails)
{
    const failing_call broken("read", EIO, 1);
    EXPECT_EQ(disabled_by("cfgtool -d sel\n" + std::string(20000, 'x') + "\ncfgtool -d reset\n"), names{"-d sel"});
}

TEST(blacklist, a_line_may_have_any_length)
{
    const std::string gap(1000000, 'x');
    check({
        {"cfgtool -d " + gap + "sel" + gap, {"-d sel"}},
        {"1234567 -d " + gap + "sel" + gap + "cfgtool", {"-d sel"}},
        {"cfgtool -d " + gap + "sel" + gap + "reset" + gap + "\n1234567 -t " + gap + "trap", {"-d reset", "-t trap"}},
        {"cfgtool -t " + gap + "user" + gap + "fru0", {"-t fru0"}},
        {"cfgtool -t " + gap + "maintenance" + gap, {"-t maintenance"}},
        {"cfgtool -t " + gap + "maintenance" + gap + "-d", {}},
        {"cfgtool -t trap" + gap + "user" + gap + "-d", {"trap user"}},
        {"cfgtool -t " + gap + "service" + gap + "state" + gap + "-d trap", {"trap state"}},
        {"cfgtool -t " + gap + "state" + gap + "trap" + gap + "-d", {"trap state"}},
        {"cfgtool -x " + gap + "sel", {}},
        {gap + "cfgtool -d sel", {}},
        {"1234567 -d " + gap + "sel", {}},
    });
}

static constexpr size_t buffer_size = 16384;  // near that of the reader, or its multiples, it matters where a name lies

TEST(blacklist, a_name_may_lie_across_the_end_of_what_is_read_at_once)
{
    const std::string beginnings[] = {"1234567 -d ", "cfgtool -d sel\n1234567 -t", "cfgtool -t -d trap state "};
    const std::string ends[] = {"cfgtool bioswriteprotect", "-d sensor uppernonrecoverable", "maintenance", "rap"};
    for (const std::string &beginning : beginnings)
        for (const std::string &end : ends)
            for (const size_t multiple : {1U, 2U})
                for (size_t before = 0; before < (multiple == 1 ? 60 : 150); ++before) {
                    std::string text = beginning;
                    text.resize(multiple * buffer_size - before, 'x');
                    text += end + std::string(40, 'x');
                    ASSERT_EQ(disabled_by(text), disabled_by_naive_reading(text)) << beginning << end << before;
                }
}

/// Lines of names and gaps, most of which look like a blacklist's.
static std::string random_blacklist(std::mt19937 &random)
{
    static const char *const columns[] = {"cfgtool -d ", "cfgtool -t ", "1234567 -t ", "1234567 -d ", ""};
    static const char *const ends[] = {"\n", "\r\n", "\r", "\n\n"};
    static const size_t gaps[] = {0, 1, 10, 1000, buffer_size - 20, buffer_size, 3 * buffer_size};
    std::vector<std::string> words{"cfgtool", "-d", "-d", "-t", "smbios", "eth", "cfg", std::string(1, '\0'), "\1"};
    for (const named_table &table : tables)
        for (const command_entry *row = table.rows; row->name != nullptr; ++row)
            words.push_back(row->name);
    const auto below = [&](size_t limit) { return random() % limit; };

    std::string text;
    for (size_t lines = 1 + below(8); lines > 0; --lines) {
        text += columns[below(std::size(columns))];
        for (size_t count = below(6); count > 0; --count) {
            if (const size_t gap = gaps[below(std::size(gaps))]; gap > 0)
                text.append(gap - below(std::min<size_t>(gap, 30)), " x-"[below(3)]);
            text += words[below(words.size())];
        }
        text += ends[below(std::size(ends))];
    }
    if (below(2) == 0)
        text.resize(text.size() - below(std::min<size_t>(text.size(), 20)));
    return text;
}

TEST(blacklist, disables_what_a_naive_reading_does)
{
    std::mt19937 random(1);
    size_t disabled = 0;
    for (int n = 0; n < 400; ++n) {
        const std::string text = random_blacklist(random);
        const names found = disabled_by(text);
        ASSERT_EQ(found, disabled_by_naive_reading(text)) << n;
        disabled += found.size();
    }
    EXPECT_GT(disabled, 200U);  // or the comparison says little
}
