/// Lines of a blacklist, as they stand in the file.
#include "cli/blacklist.h"

#include "cli/registry.h"
#include "tests/fuzz/platform.h"
#include "tests/fuzz/process.h"

static std::vector<command_entry *> all_rows()
{
    std::vector<command_entry *> rows;
    const auto add = [&](command_entry *table) {
        for (; table->name != nullptr; ++table)
            rows.push_back(table);
    };
    for (command_entry *table : {top_level_dataitems, targets, eth1_dataitems, smbios_dataitems})
        add(table);
    for (command_entry *row = targets; row->name != nullptr; ++row)
        add(target_dataitems[row - targets]);
    return rows;
}

static std::vector<uint32_t> flags_of(const std::vector<command_entry *> &rows)
{
    std::vector<uint32_t> flags;
    for (const command_entry *row : rows)
        flags.push_back(row->flags);
    return flags;
}

static void apply(const std::string &text)
{
    std::vector<char> own(text.begin(), text.end());  // ends where it ends
    own.push_back('\0');
    apply_blacklist(own.data(), text.size());
}

/// A row is disabled or left alone, is disabled only where its name stands in the text, and a second time changes
/// nothing.
static void check_blacklist(const std::string &text)
{
    const std::vector<command_entry *> rows = all_rows();
    const std::vector<uint32_t> before = flags_of(rows);
    apply(text);
    const std::vector<uint32_t> after = flags_of(rows);
    for (size_t n = 0; n < rows.size(); ++n) {
        check(after[n] == before[n] || after[n] == ((before[n] & ~0xFF00U) | command_entry::disabled << 8));
        check(after[n] == before[n] || text.find(rows[n]->name) != std::string::npos);
    }
    apply(text);
    check(flags_of(rows) == after);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    const std::string text = input.bytes(size);
    play({}, [&] { check_blacklist(text); });
    return 0;
}
