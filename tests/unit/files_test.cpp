/// Files of the controller, where calls are interrupted or fail.
#include "system/files.h"

#include "tests/platform/test_folder.h"
#include "tests/unit/failing_call.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class controller_file : public test_folder
{
protected:
    static std::span<const uint8_t> bytes(const char *text)
    {
        return {reinterpret_cast<const uint8_t *>(text), strlen(text)};
    }
    replaced replace(const char *text) const { return replace_file(path("file").c_str(), bytes(text)); }
    std::string read_three() const
    {
        char text[4] = "";
        const int file = open(path("file").c_str(), O_RDONLY);
        EXPECT_EQ(lseek(file, 0, SEEK_SET), 0);
        const size_t length = read_up_to(file, text, 3);
        close(file);
        return {text, length};
    }
    void expect_only_the_old_one() const
    {
        EXPECT_EQ(contents(path("file")), "old");
        EXPECT_EQ(entries(folder), 1U);
    }
};

TEST_F(controller_file, opening_goes_on_behind_a_signal)
{
    const failing_call interrupted("open", EINTR);
    const int file = open_regular(write("file", "abc").c_str());
    EXPECT_GE(file, 0);
    close(file);
}

TEST_F(controller_file, one_that_cannot_be_examined_is_not_opened)
{
    const failing_call broken("fstat", EIO);
    EXPECT_EQ(open_regular(write("file", "abc").c_str()), -1);
}

TEST_F(controller_file, reading_goes_on_behind_a_signal)
{
    write("file", "abc");
    const failing_call interrupted("read", EINTR);
    EXPECT_EQ(read_three(), "abc");
}

TEST_F(controller_file, reading_ends_where_it_fails)
{
    write("file", "abc");
    const failing_call broken("read", EIO);
    EXPECT_EQ(read_three(), "");
}

TEST_F(controller_file, a_new_one_has_what_the_umask_leaves)
{
    for (const mode_t mask : {0022U, 0077U, 0026U, 0000U, 0777U}) {
        write("file", "old");
        const mode_t before = umask(mask);
        EXPECT_EQ(replace("new"), replaced::yes);
        EXPECT_EQ(umask(before), mask);
        struct stat about;
        ASSERT_EQ(stat(path("file").c_str(), &about), 0);
        EXPECT_EQ(about.st_mode, mode_t(S_IFREG | (0666 & ~mask)));
        ASSERT_EQ(chmod(path("file").c_str(), 0600), 0);
        EXPECT_EQ(contents(path("file")), "new");
        EXPECT_EQ(entries(folder), 1U);
    }
}

TEST_F(controller_file, writing_goes_on_behind_a_signal)
{
    const failing_call interrupted("write", EINTR);
    EXPECT_EQ(replace("new"), replaced::yes);
    EXPECT_EQ(contents(path("file")), "new");
}

TEST_F(controller_file, what_cannot_be_written_whole_replaces_nothing)
{
    write("file", "old");
    const struct {
        const char *call;
        int error;
    } failures[] = {{"write", ENOSPC}, {"write", 0}, {"fchmod", EPERM}, {"close", EIO}};
    for (const auto &[call, error] : failures) {
        const failing_call failing(call, error);
        EXPECT_EQ(replace("new"), replaced::not_written) << call;
        expect_only_the_old_one();
    }
}

TEST_F(controller_file, a_folder_is_not_replaced)
{
    std::filesystem::create_directory(path("file"));
    EXPECT_EQ(replace("new"), replaced::not_opened);
    EXPECT_EQ(entries(folder), 1U);
}

TEST_F(controller_file, nothing_is_written_where_there_is_no_folder)
{
    EXPECT_EQ(replace_file(path("none/file").c_str(), bytes("new")), replaced::not_opened);
    EXPECT_EQ(entries(folder), 0U);
}
