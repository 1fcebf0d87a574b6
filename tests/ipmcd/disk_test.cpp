/// Files on the controller's disk.
#include "ipmcd/disk.h"
#include "tests/ipmcd/board.h"

#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace ipmcd
{

struct disk : testing::Test {
    std::string refusal(const std::filesystem::path &where, const char *name = "a")
    {
        try {
            write_new_file(folder.path(), where, name, "new");
            return "written";
        } catch (const std::runtime_error &problem) {
            const std::string why = problem.what();
            const std::string start = folder.path().string() + "/";
            return why.starts_with(start) ? why.substr(start.size()) : why;
        }
    }
    std::string content_of(const char *file) const
    {
        std::ifstream in(folder / file);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    scratch_folder folder;
};

TEST_F(disk, folders_are_made)
{
    write_new_file(folder.path(), "tmp/screen", "a", std::string_view("x\0y", 3));
    EXPECT_EQ(content_of("tmp/screen/a"), std::string("x\0y", 3));
    write_new_file(folder.path(), "tmp/screen", "b", "");
    EXPECT_EQ(names_in(folder.path() / "tmp/screen"), (std::set<std::string>{"a", "b"}));
    struct stat seen {
    };
    ASSERT_EQ(stat((folder / "tmp/screen/a").c_str(), &seen), 0);
    EXPECT_EQ(seen.st_mode & 0111, 0U);
}

TEST_F(disk, what_is_there_is_never_written_over)
{
    write_new_file(folder.path(), "tmp", "a", "old");
    EXPECT_EQ(refusal("tmp"), "tmp/a: File exists");
    EXPECT_EQ(content_of("tmp/a"), "old");
}

TEST_F(disk, a_file_can_be_replaced)
{
    replace_file(folder.path(), "tmp", "a", "old");
    replace_file(folder.path(), "tmp", "a", "new");
    EXPECT_EQ(content_of("tmp/a"), "new");
    std::ofstream(folder / "elsewhere") << "precious";
    std::filesystem::create_symlink(folder / "elsewhere", folder / "tmp/b");
    replace_file(folder.path(), "tmp", "b", "new");  // the link goes, not what it leads to
    EXPECT_EQ(content_of("tmp/b"), "new");
    EXPECT_EQ(content_of("elsewhere"), "precious");
    std::filesystem::create_directory(folder / "tmp/c");
    EXPECT_THROW(replace_file(folder.path(), "tmp", "c", "new"), std::runtime_error);
}

TEST_F(disk, files_grow_when_they_are_as_long_as_expected)
{
    write_new_file(folder.path(), "tmp", "a", "old");
    EXPECT_TRUE(append_to_file(folder.path(), "tmp", "a", 3, "new"));
    EXPECT_EQ(content_of("tmp/a"), "oldnew");
    EXPECT_FALSE(append_to_file(folder.path(), "tmp", "a", 3, "x"));
    EXPECT_FALSE(append_to_file(folder.path(), "tmp", "none", 0, "x"));
    EXPECT_FALSE(append_to_file(folder.path(), "none", "a", 0, "x"));
    EXPECT_FALSE(append_to_file(folder.path(), "tmp/..", "a", 0, "x"));
    EXPECT_EQ(names_in(folder.path() / "tmp"), (std::set<std::string>{"a"}));
}

TEST_F(disk, only_a_file_of_one_name_grows)
{
    write_new_file(folder.path(), "tmp", "a", "old");
    std::filesystem::create_symlink("a", folder / "tmp/link");
    EXPECT_FALSE(append_to_file(folder.path(), "tmp", "link", 3, "new"));
    ASSERT_EQ(mkfifo((folder / "tmp/pipe").c_str(), 0600), 0);
    EXPECT_FALSE(append_to_file(folder.path(), "tmp", "pipe", 0, "new"));
    std::filesystem::create_hard_link(folder / "tmp/a", folder / "tmp/b");
    EXPECT_FALSE(append_to_file(folder.path(), "tmp", "a", 3, "new"));
    EXPECT_EQ(content_of("tmp/a"), "old");
}

TEST_F(disk, a_file_takes_the_name_of_another)
{
    write_new_file(folder.path(), "tmp", "a", "young");
    write_new_file(folder.path(), "tmp", "b", "old");
    EXPECT_TRUE(rename_file(folder.path(), "tmp", "a", "b"));
    EXPECT_EQ(content_of("tmp/b"), "young");
    EXPECT_FALSE(rename_file(folder.path(), "tmp", "a", "b"));
    EXPECT_FALSE(rename_file(folder.path(), "none", "a", "b"));
    std::filesystem::create_directory(folder / "tmp/c");
    EXPECT_THROW(rename_file(folder.path(), "tmp", "b", "c"), std::runtime_error);
    EXPECT_EQ(content_of("tmp/b"), "young");
}

TEST_F(disk, only_regular_files_are_opened)
{
    write_new_file(folder.path(), "tmp/screen", "a", "content");
    const auto is_open = [&](const char *path) { return open_file(folder.path(), path).get() >= 0; };
    EXPECT_TRUE(is_open("/tmp/screen/a"));
    EXPECT_TRUE(is_open("tmp//screen/./a"));
    for (const char *const path : {"/tmp/screen", "/tmp/screen/", "/tmp/none", "/none/a", "/tmp/screen/a/b", "/", "",
                                   "/tmp/../tmp/screen/a", "/tmp/.."})
        EXPECT_FALSE(is_open(path)) << path;
    std::filesystem::create_symlink("a", folder / "tmp/screen/link");
    std::filesystem::create_directory_symlink("screen", folder / "tmp/pictures");
    EXPECT_FALSE(is_open("/tmp/screen/link"));
    EXPECT_FALSE(is_open("/tmp/pictures/a"));
    ASSERT_EQ(mkfifo((folder / "tmp/pipe").c_str(), 0600), 0);
    EXPECT_FALSE(is_open("/tmp/pipe"));
    std::array<char, 16> buffer{};
    const descriptor file = open_file(folder.path(), "/tmp/screen/a");
    EXPECT_EQ(read(file.get(), buffer.data(), buffer.size()), 7);
    EXPECT_EQ(std::string(buffer.data()), "content");
    EXPECT_LT(open_file(folder / "none", "/tmp/screen/a").get(), 0);
}

TEST_F(disk, links_are_not_followed)
{
    std::filesystem::create_directories(folder / "tmp");
    std::filesystem::create_directories(folder / "elsewhere");
    std::filesystem::create_directory_symlink(folder / "elsewhere", folder / "tmp/screen");
    std::filesystem::create_symlink(folder / "elsewhere/a", folder / "tmp/a");
    EXPECT_EQ(refusal("tmp/screen"), "tmp/screen: Not a directory");
    EXPECT_EQ(refusal("tmp"), "tmp/a: File exists");
    EXPECT_TRUE(names_in(folder / "elsewhere").empty());
}

TEST_F(disk, a_folder_that_cannot_be_is_named)
{
    std::ofstream(folder / "tmp") << "a file";
    EXPECT_EQ(refusal("tmp/screen"), "tmp: Not a directory");
    EXPECT_THROW(write_new_file(folder / "none", "tmp", "a", ""), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

}  // namespace ipmcd
