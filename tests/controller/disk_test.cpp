/// Files on the controller's disk.
#include "controller/disk.h"
#include "tests/controller/board.h"

#include <fstream>
#include <sys/stat.h>

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
