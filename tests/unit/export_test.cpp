/// The export of logs from folders that are only told of: nothing is read or made on the machine's own disk.
#include "sel/export.h"

#include "tests/unit/failing_call.h"
#include "tests/unit/platform_stub.h"

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{
struct told_disk {
    std::vector<std::string> logs = {};     // in /data/share/sel/
    bool has_folder = true;                 // that of the logs
    bool may_make = true;                   // one in /tmp
    bool may_list = true;                   // and what lies there
    std::vector<std::string> entries = {};  // of the folder being listed, still to come
    std::vector<int> at_conversion = {};    // export_progress when a log is opened
    int at_packing = -1;                    // and right before the tables are packed
} * disk;                                   // null: the machine's own
char folder_of_disk;

bool begins(const char *path, const char *with) { return strncmp(path, with, strlen(with)) == 0; }

template <typename routine>
routine real(const char *name)
{
    return reinterpret_cast<routine>(dlsym(RTLD_NEXT, name));
}

/// What an export of these logs does to the progress.
class told_export
{
public:
    explicit told_export(told_disk told) : seen(std::move(told)), mask(umask(0))
    {
        reset_stub();
        stub.has_disk = false;
        export_progress = 0;
        disk = &seen;
        text = printed([this] { result = pack_sel_info(); });
        disk = nullptr;
        reset_stub();
        umask(mask);
    }

    told_disk seen;
    std::string text;
    int result = 1;

private:
    mode_t mask;
};
}  // namespace

extern "C" {

DIR *opendir(const char *path)
{
    if (disk == nullptr)
        return real<DIR *(*)(const char *)>("opendir")(path);
    const bool is_of_logs = strcmp(path, "/data/share/sel/") == 0;
    disk->entries = is_of_logs ? disk->logs : std::vector<std::string>{};
    return (is_of_logs ? disk->has_folder : disk->may_list) ? reinterpret_cast<DIR *>(&folder_of_disk) : nullptr;
}

dirent *readdir(DIR *folder)
{
    static dirent entry;
    if (disk == nullptr)
        return fails("readdir") ? nullptr : real<dirent *(*)(DIR *)>("readdir")(folder);
    if (disk->entries.empty())
        return nullptr;
    snprintf(entry.d_name, sizeof entry.d_name, "%s", disk->entries.front().c_str());
    disk->entries.erase(disk->entries.begin());
    return &entry;
}

int closedir(DIR *folder) { return disk != nullptr ? 0 : real<int (*)(DIR *)>("closedir")(folder); }

int mkdir(const char *path, mode_t mode) noexcept
{
    if (disk != nullptr)
        return disk->may_make ? 0 : -1;
    return real<int (*)(const char *, mode_t)>("mkdir")(path, mode);
}

int open(const char *path, int flags, ...)
{
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    if (fails("open"))
        return -1;
    if (disk == nullptr || !begins(path, "/tmp/"))
        return real<int (*)(const char *, int, ...)>("open")(on_disk(path), flags, mode);
    if (std::string(path).ends_with(".bin"))
        disk->at_conversion.push_back(export_progress);
    errno = ENOENT;
    return -1;
}

int unlink(const char *path) noexcept
{
    if (disk == nullptr)
        return real<int (*)(const char *)>("unlink")(on_disk(path));
    if (strcmp(path, "/tmp/sel.tar") == 0)
        disk->at_packing = export_progress;
    errno = ENOENT;
    return -1;
}
}

TEST(sel_export, of_one_log_goes_from_10_to_90_percent_and_ends_at_100)
{
    const told_export done({.logs = {"sel.bin"}});
    EXPECT_EQ(done.result, 0);
    EXPECT_EQ(done.seen.at_conversion, std::vector<int>{10});
    EXPECT_EQ(done.seen.at_packing, 90);
    EXPECT_EQ(export_progress, 100);
}

TEST(sel_export, shares_out_80_percent_in_whole_numbers)
{
    const told_export done({.logs = {".", "sel_2.tar.gz", "other", "sel.bin", "..", "sel_1.tar.gz"}});
    EXPECT_EQ(done.result, 0);
    EXPECT_EQ(done.seen.at_conversion, (std::vector<int>{10, 36, 62}));  // 80 / 3 = 26
    EXPECT_EQ(done.seen.at_packing, 88);
    EXPECT_EQ(export_progress, 100);
}

TEST(sel_export, of_files_that_are_no_logs_ends_at_100)
{
    const told_export done({.logs = {"messages"}});
    EXPECT_EQ(done.result, 0);
    EXPECT_EQ(done.seen.at_packing, 10);
    EXPECT_EQ(export_progress, 100);
}

TEST(sel_export, that_fails_ends_at_100_too)
{
    EXPECT_EQ(told_export({}).result, -1);
    EXPECT_EQ(export_progress, 100);
    EXPECT_EQ(told_export({.has_folder = false}).result, -1);
    EXPECT_EQ(export_progress, 100);
    EXPECT_EQ(told_export({.logs = {"sel.bin"}, .may_make = false}).result, -1);
    EXPECT_EQ(export_progress, 100);
    EXPECT_EQ(told_export({.logs = {"sel.bin"}, .may_list = false}).result, -1);
    EXPECT_EQ(export_progress, 100);
}

/// Names of a folder, each in a buffer of 8.
static std::vector<std::string> listed(std::vector<std::string> logs, int maximum, std::string &text)
{
    told_disk told{.logs = std::move(logs)};
    char names[8][8];
    int count = 0;
    disk = &told;
    text = printed([&] { count = enum_files("/data/share/sel/", names[0], sizeof names[0], maximum); });
    disk = nullptr;
    return {names, names + count};
}

TEST(enum_files, stores_the_names_in_their_order_without_the_folder_itself)
{
    std::string text;
    EXPECT_EQ(listed({"b", ".", "..", "a", ".c", "..."}, 5, text), (std::vector<std::string>{"b", "a", ".c", "..."}));
    EXPECT_EQ(text, "");
}

TEST(enum_files, cuts_a_name_to_its_buffer)
{
    std::string text;
    EXPECT_EQ(listed({"1234567", "12345678"}, 5, text), (std::vector<std::string>{"1234567", "1234567"}));
}

TEST(enum_files, warns_when_the_last_buffer_is_filled)
{
    static constexpr char warning[] = "enum_files: path(/data/share/sel/), filecount > 2\r\n";
    std::string text;
    EXPECT_EQ(listed({"a"}, 2, text).size(), 1U);
    EXPECT_EQ(text, "");
    EXPECT_EQ(listed({"a", "b"}, 2, text).size(), 2U);
    EXPECT_EQ(text, warning);
    EXPECT_EQ(listed({"a", "b", "c"}, 2, text), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(text, warning);
}
