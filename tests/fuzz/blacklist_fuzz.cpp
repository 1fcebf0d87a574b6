/// Lines of a blacklist, as they are in the file, against a reading of the whole text.
#include "cli/blacklist.h"

#include "cli/registry.h"
#include "tests/fuzz/platform.h"
#include "tests/fuzz/process.h"
#include "tests/unit/naive_blacklist.h"

#include <climits>
#include <sys/mman.h>
#include <unistd.h>

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
    const int file = memfd_create("blacklist", MFD_CLOEXEC);
    check(write(file, text.data(), text.size()) == ssize_t(text.size()) && lseek(file, 0, SEEK_SET) == 0);
    apply_blacklist(file, ULONG_MAX);
    close(file);
}

/// The naive reading disables the same rows, and a second time changes nothing.
static void check_blacklist(const std::string &text)
{
    const std::vector<command_entry *> rows = all_rows();
    const std::vector<uint32_t> before = flags_of(rows);
    const naive_blacklist::rows named = naive_blacklist::rows_disabled_by(text);
    apply(text);
    const std::vector<uint32_t> after = flags_of(rows);
    for (size_t n = 0; n < rows.size(); ++n) {
        const bool is_named = std::find(named.begin(), named.end(), rows[n]) != named.end();
        check(after[n] == (is_named ? (before[n] & ~0xFF00U) | command_entry::disabled << 8 : before[n]));
    }
    apply(text);
    check(flags_of(rows) == after);
}

/// A byte from FCh on is so many characters that few of them fill the reader's buffer.
static std::string expanded(const std::string &bytes)
{
    static constexpr size_t run = 2711;
    std::string text;
    for (const char byte : bytes)
        if (uint8_t(byte) >= 0xFC)
            text.append((uint8_t(byte) & 3U) * run, 'x');
        else
            text += byte;
    return text;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static constexpr size_t longest = 50000;
    begin(data, size);
    const std::string text = expanded(input.bytes(size)).substr(0, longest);
    play({}, [&] { check_blacklist(text); });
    return 0;
}
