/// What goes from /tmp after an archive was unpacked there, and what stays.
#include "sel/tmp_contents.h"

#include "tests/platform/test_folder.h"
#include "tests/unit/failing_call.h"
#include "tests/unit/platform_stub.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

class tmp_contents : public test_folder
{
protected:
    void SetUp() override
    {
        reset_stub();
        stub.tmp = folder;
        stub.account = getuid();
        make_folder("dev");
    }
    void TearDown() override
    {
        tidy_tmp();
        reset_stub();
    }

    static bool note() { return note_tmp("dev"); }
    void make_folder(const std::string &name, mode_t mode = 0755) const
    {
        fs::create_directories(path(name));
        ASSERT_EQ(chmod(path(name).c_str(), mode), 0);
    }
    mode_t mode_of(const std::string &name) const
    {
        struct stat about {
        };
        EXPECT_EQ(lstat(path(name).c_str(), &about), 0);
        return about.st_mode & 07777;
    }
    /// As an archiver does with what it has unpacked.
    void set_time(const std::string &name, time_t changed = 0) const
    {
        const timespec times[] = {{changed, 0}, {changed, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, path(name).c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
    }
    void unpack(const std::string &name, time_t changed = 0) const
    {
        write(name, "brought");
        set_time(name, changed);
    }
    bool is_there(const std::string &name) const { return fs::exists(fs::symlink_status(path(name))); }
};

TEST_F(tmp_contents, what_was_there_stays_whatever_becomes_of_it)
{
    make_folder("theirs");
    for (const char *name : {"old", "theirs/old", "written", "stamped", "moved", "theirs/moved"})
        write(name, "old");
    set_time("old");
    ASSERT_TRUE(note());
    write("written", "new");
    set_time("stamped", 1000);
    fs::rename(path("moved"), path("moved away"));
    fs::rename(path("theirs/moved"), path("moved up"));
    tidy_tmp();
    for (const char *name : {"old", "theirs/old", "written", "stamped", "moved away", "moved up", "dev"})
        EXPECT_TRUE(is_there(name)) << name;
    EXPECT_EQ(contents(path("written")), "new");
}

TEST_F(tmp_contents, what_an_archive_brings_goes)
{
    make_folder("theirs/inner");
    ASSERT_TRUE(note());
    unpack("old");
    unpack("of tomorrow", time(nullptr) + 86400);
    unpack("dev/log");
    unpack("theirs/inner/old");
    make_folder("empty");
    set_time("empty");
    make_folder("full/of/folders");
    unpack("full/of/folders/old");
    make_folder("explicit");
    write("explicit/new", "brought");
    set_time("explicit");
    ASSERT_EQ(mkfifo(path("fifo").c_str(), 0666), 0);
    set_time("fifo");
    tidy_tmp();
    EXPECT_EQ(entries(folder), 2);  // dev and theirs
    EXPECT_EQ(entries(path("dev")), 0);
    EXPECT_EQ(entries(path("theirs/inner")), 0);
}

TEST_F(tmp_contents, what_others_make_meanwhile_stays)
{
    make_folder("theirs");
    ASSERT_TRUE(note());
    for (const char *name : {"new", "theirs/new"})
        write(name, "new");
    make_folder("folder/inner");
    write("folder/inner/new", "new");
    make_folder("empty");
    make_folder("shared");
    write("shared/new", "new");
    unpack("shared/brought");
    tidy_tmp();
    for (const char *name : {"new", "theirs/new", "folder/inner/new", "empty", "shared/new"})
        EXPECT_TRUE(is_there(name)) << name;
    EXPECT_FALSE(is_there("shared/brought"));
}

TEST_F(tmp_contents, links_and_what_could_do_harm_go_whatever_their_time)
{
    ASSERT_TRUE(note());
    fs::create_symlink("/data", path("link"));
    for (const mode_t mode : {04755U, 02755U}) {
        const std::string name = "harm" + std::to_string(mode);
        write(name, "x");
        ASSERT_EQ(chmod(path(name).c_str(), mode), 0);
    }
    tidy_tmp();
    EXPECT_EQ(entries(folder), 1);
}

TEST_F(tmp_contents, a_new_name_of_an_old_file_goes_while_another_is_left)
{
    write("old", "old");
    write("other", "old");
    write("moved", "old");
    fs::create_hard_link(path("other"), path("other's name"));
    ASSERT_TRUE(note());
    fs::create_hard_link(path("old"), path("brought"));
    fs::rename(path("moved"), path("moved away"));
    tidy_tmp();
    EXPECT_FALSE(is_there("brought"));
    for (const char *name : {"old", "other", "other's name", "moved away"})
        EXPECT_EQ(contents(path(name)), "old") << name;
}

TEST_F(tmp_contents, the_work_folder_is_spared)
{
    make_folder("sel_temp");
    make_folder("theirs");
    ASSERT_TRUE(note());
    unpack("sel_temp/log");
    make_folder("theirs/sel_temp");
    unpack("theirs/sel_temp/log");
    tidy_tmp();
    EXPECT_TRUE(is_there("sel_temp/log"));
    EXPECT_FALSE(is_there("theirs/sel_temp"));
}

TEST_F(tmp_contents, tmp_itself_gets_its_mode_back_at_once)
{
    ASSERT_EQ(chmod(folder.c_str(), 01777), 0);
    ASSERT_TRUE(note());
    ASSERT_EQ(chmod(folder.c_str(), 0700), 0);
    give_back_tmp();
    EXPECT_EQ(mode_of(""), 01777U);
    ASSERT_EQ(chmod(folder.c_str(), 0700), 0);
    tidy_tmp();
    EXPECT_EQ(mode_of(""), 01777U);
}

TEST_F(tmp_contents, folders_that_an_archive_has_changed_get_their_mode_back)
{
    for (const char *name : {"entered", "stamped", "changed by its owner", "let alone"})
        make_folder(name, 0700);
    ASSERT_TRUE(note());
    for (const char *name : {"entered", "stamped", "changed by its owner"})
        ASSERT_EQ(chmod(path(name).c_str(), 0755), 0);
    unpack("entered/brought");
    set_time("stamped");
    tidy_tmp();
    EXPECT_EQ(mode_of("entered"), 0700U);
    EXPECT_EQ(mode_of("stamped"), 0700U);
    EXPECT_EQ(mode_of("changed by its owner"), 0755U);
    EXPECT_EQ(mode_of("let alone"), 0700U);
}

TEST_F(tmp_contents, folders_without_any_right_go_too)
{
    ASSERT_TRUE(note());
    make_folder("closed/inner");
    unpack("closed/inner/brought");
    for (const char *name : {"closed/inner", "closed"}) {
        ASSERT_EQ(chmod(path(name).c_str(), 0), 0);
        set_time(name);
    }
    tidy_tmp();
    EXPECT_EQ(entries(folder), 1);
}

TEST_F(tmp_contents, folders_may_be_deep_in_each_other)
{
    for (const int levels : {63, 64, 65, 130}) {
        ASSERT_TRUE(note());
        std::string way = "a";
        for (int n = 1; n < levels; ++n)
            way += "/a";
        make_folder(way);
        unpack(way + "/brought");
        tidy_tmp();
        EXPECT_EQ(entries(folder), 1) << levels;
    }
}

TEST_F(tmp_contents, of_many_files_each_is_known)
{
    for (int n = 0; n < 300; ++n)
        write("old" + std::to_string(n), "old");
    ASSERT_TRUE(note());
    for (int n = 0; n < 300; ++n)
        unpack("brought" + std::to_string(n));
    tidy_tmp();
    EXPECT_EQ(entries(folder), 301);
}

TEST_F(tmp_contents, a_folder_that_could_not_be_listed_is_left_alone)
{
    make_folder("dev/theirs");
    write("dev/theirs/old", "old");
    set_time("dev/theirs/old");
    const auto note_where_fails = [](const char *call, unsigned calls_before) {
        const failing_call failing(call, EIO, calls_before);
        return note();
    };
    ASSERT_TRUE(note_where_fails("fdopendir", 2));  // behind those of /tmp and dev
    unpack("dev/theirs/brought");
    tidy_tmp();
    EXPECT_TRUE(is_there("dev/theirs/brought"));

    int noted = 0;
    for (unsigned calls_before = 0; calls_before < 11; ++calls_before) {  // 4 entries of a folder at most, and its end
        noted += note_where_fails("readdir", calls_before) ? 1 : 0;
        tidy_tmp();
        EXPECT_TRUE(is_there("dev/theirs/old")) << calls_before;
    }
    EXPECT_GE(noted, 4);
}

TEST_F(tmp_contents, nothing_is_noted_where_something_fails)
{
    make_folder("theirs/inner");
    for (const auto &[call, calls_before] :
         {std::pair{"open", 0U}, {"statx", 0U}, {"statx", 1U}, {"fdopendir", 0U}, {"readdir", 0U}, {"realloc", 0U}}) {
        const failing_call failing(call, EIO, calls_before);
        EXPECT_FALSE(note()) << call;
    }
    unpack("brought");
    tidy_tmp();
    EXPECT_TRUE(is_there("brought"));
}

TEST_F(tmp_contents, what_cannot_be_given_back_or_examined_is_passed_over)
{
    ASSERT_TRUE(note());
    unpack("brought");
    {
        const failing_call gone("statx", ENOENT);
        give_back_tmp();
    }
    {
        const failing_call gone("statx", ENOENT);
        tidy_tmp();
    }
    EXPECT_TRUE(is_there("brought"));
}
