/// The lock of adduser, on a file that may be gone or changed once it is granted.
#include "user/add_lock.h"

#include "tests/platform/test_folder.h"
#include "tests/unit/failing_call.h"
#include "tests/unit/platform_stub.h"

#include <cerrno>

class add_lock : public test_folder
{
protected:
    void SetUp() override
    {
        reset_stub();
        stub.lock_file = path("lock");
    }
    void TearDown() override { reset_stub(); }
};

TEST_F(add_lock, is_taken_on_a_file_that_is_made)
{
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
    EXPECT_EQ(entries(folder), 1);
}

TEST_F(add_lock, is_not_taken_where_its_file_cannot_be_examined)
{
    for (const char *call : {"fstat", "lstat"}) {
        g_error_code = 0;
        const failing_call broken(call, EIO);
        add_user_lock lock;
        EXPECT_FALSE(lock.take()) << call;
        EXPECT_EQ(g_error_code, 0x50000003U) << call;
    }
}
