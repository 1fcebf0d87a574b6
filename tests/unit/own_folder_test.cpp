/// Folders of our own, where others may do something at any moment.
#include "sel/own_folder.h"

#include "tests/platform/test_folder.h"
#include "tests/unit/failing_call.h"
#include "tests/unit/platform_stub.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

class own_folders : public test_folder
{
protected:
    void SetUp() override
    {
        reset_stub();
        stub.account = getuid();
        std::filesystem::create_directory(name);
        ASSERT_EQ(chmod(name.c_str(), 0777), 0);
    }
    void TearDown() override { reset_stub(); }

    std::string name = path("ours");
};

TEST_F(own_folders, one_is_taken_back_from_all_others)
{
    EXPECT_TRUE(take_back_folder(name.c_str()));
    struct stat about;
    ASSERT_EQ(stat(name.c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 07777, 0755U);
}

TEST_F(own_folders, one_that_others_go_on_writing_in_is_not_ours)
{
    const failing_call refused("fchmod", EPERM);
    EXPECT_FALSE(take_back_folder(name.c_str()));
}

TEST_F(own_folders, one_that_cannot_be_examined_is_not_ours)
{
    const failing_call broken("fstat", EIO);
    EXPECT_FALSE(take_back_folder(name.c_str()));
}

TEST_F(own_folders, a_link_put_in_its_place_meanwhile_is_not_ours)
{
    behind = {"fchmod", [this] {
                  std::filesystem::rename(name, path("elsewhere"));
                  std::filesystem::create_symlink("elsewhere", name);
              }};
    EXPECT_FALSE(take_back_folder(name.c_str()));
}
