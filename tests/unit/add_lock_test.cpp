/// The lock of adduser, with other runs and with strangers: processes that lock the same file.
#include "user/add_lock.h"

#include "tests/platform/test_folder.h"
#include "tests/unit/failing_call.h"
#include "tests/unit/platform_stub.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <random>
#include <set>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

class add_lock : public test_folder
{
protected:
    void SetUp() override
    {
        reset_stub();
        stub.lock_folder = folder;
        stub.sleeps = true;
    }
    void TearDown() override
    {
        for (const pid_t child : children) {
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
        }
        reset_stub();
    }

    std::string file() const { return path("adduser_mutex"); }
    ino_t inode() const
    {
        struct stat about {
        };
        return stat(file().c_str(), &about) == 0 ? about.st_ino : 0;
    }
    void leave_file() const { write("adduser_mutex", ""); }

    /// A lock of this process, without a wait.
    static bool lock(int opened, short type, off_t start = 40, off_t length = 10, int command = F_SETLK)
    {
        struct flock range {
        };
        range.l_type = type;
        range.l_start = start;
        range.l_len = length;
        return fcntl(opened, command, &range) == 0;
    }

    /// A process that does the first thing, says that it has, and then does the second. It ends with 0 when both went
    /// well.
    pid_t start(const std::function<bool()> &first, const std::function<bool()> &second = live_on)
    {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            const bool good = first() && ::write(ready[1], "", 1) == 1 && second();
            _exit(good ? 0 : 1);
        }
        children.insert(child);
        ::close(ready[1]);
        char byte;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        return child;
    }
    static bool live_on()
    {
        pause();
        return true;
    }
    bool went_well(pid_t child)
    {
        int status = -1;
        children.erase(child);
        return waitpid(child, &status, 0) == child && status == 0;
    }
    /// A stranger can open the file for reading.
    pid_t start_reader(const std::string &name = "adduser_mutex", off_t start_at = 40, off_t length = 10)
    {
        return start([&] { return lock(open(path(name).c_str(), O_RDONLY), F_RDLCK, start_at, length); });
    }
    /// Another run has the lock for some time, with its file in place, and removes it.
    pid_t start_run(unsigned hold_us)
    {
        int opened = -1;
        ino_t own = 0;
        const auto take = [&] {
            opened = open(file().c_str(), O_RDWR | O_CREAT, 0644);
            own = inode();
            return lock(opened, F_WRLCK);
        };
        return start(take, [&] {
            usleep(hold_us);
            return inode() == own && unlink(file().c_str()) == 0 && ::close(opened) == 0;
        });
    }

    std::set<pid_t> children;
};

TEST_F(add_lock, is_taken_on_a_file_that_is_made)
{
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
    EXPECT_EQ(entries(folder), 1);
    lock.release();
    EXPECT_EQ(entries(folder), 0);
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

TEST_F(add_lock, is_not_taken_where_there_are_no_locks)
{
    for (const char *call : {"F_SETLK", "F_SETLKW"}) {
        g_error_code = 0;
        const failing_call broken(call, ENOLCK);
        add_user_lock lock;
        EXPECT_FALSE(lock.take()) << call;
        EXPECT_EQ(g_error_code, 0x50000003U) << call;
        EXPECT_EQ(entries(folder), 0) << call;
    }
}

TEST_F(add_lock, is_taken_where_nobody_can_be_asked_about)
{
    const failing_call broken("F_GETLK", EINVAL);
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
}

TEST_F(add_lock, is_asked_for_again_where_somebody_was_quicker)
{
    for (const int reason : {EAGAIN, EACCES}) {
        const failing_call quicker("F_SETLK", reason);
        add_user_lock lock;
        EXPECT_TRUE(lock.take());
    }
}

TEST_F(add_lock, a_read_lock_has_the_file_made_anew)
{
    const struct {
        off_t start, length;
    } ranges[] = {{40, 10}, {0, 0}, {49, 1}, {40, 1}, {45, 100}, {0, 41}};
    for (const auto &[start, length] : ranges) {
        leave_file();
        const ino_t before = inode();
        start_reader("adduser_mutex", start, length);
        const mode_t mask = umask(027);
        add_user_lock lock;
        EXPECT_TRUE(lock.take()) << start;
        umask(mask);
        EXPECT_NE(inode(), before) << start;
        struct stat about {
        };
        EXPECT_EQ(stat(file().c_str(), &about), 0);
        EXPECT_EQ(about.st_mode & 07777, 0640U);
        EXPECT_EQ(entries(folder), 1);
        lock.release();
        EXPECT_EQ(entries(folder), 0);
    }
}

TEST_F(add_lock, the_lock_of_a_file_made_anew_is_as_good_as_any)
{
    leave_file();
    start_reader();
    add_user_lock taken;
    ASSERT_TRUE(taken.take());
    start([&] {
        const int opened = open(file().c_str(), O_RDWR);
        return !lock(opened, F_RDLCK) && !lock(opened, F_WRLCK) && lock(opened, F_RDLCK, 0, 40) &&
               lock(opened, F_RDLCK, 50, 1);
    });
}

TEST_F(add_lock, a_lock_beside_the_ten_bytes_does_not_matter)
{
    leave_file();
    const ino_t before = inode();
    start_reader("adduser_mutex", 0, 40);
    start_reader("adduser_mutex", 50, 0);
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
    EXPECT_EQ(inode(), before);
}

TEST_F(add_lock, a_file_that_cannot_be_made_anew_is_an_error_and_stays)
{
    for (const auto &[call, calls_before] : {std::pair{"open", 1U}, {"rename", 0U}, {"fchmod", 0U}, {"F_SETLKW", 0U}}) {
        leave_file();
        const ino_t before = inode();
        start_reader();
        g_error_code = 0;
        const failing_call failing(call, EPERM, calls_before);
        add_user_lock lock;
        EXPECT_FALSE(lock.take()) << call;
        EXPECT_EQ(g_error_code, 0x50000002U) << call;
        EXPECT_EQ(inode(), before) << call;
        EXPECT_EQ(access(path("adduser_mutex.new").c_str(), F_OK) == 0, std::string(call) == "F_SETLKW") << call;
    }
}

TEST_F(add_lock, nobody_can_lock_a_file_that_is_being_replaced)
{
    leave_file();
    const pid_t reader = start_reader();
    pid_t run = 0;
    behind = {"fchmod", [&] {
                  kill(reader, SIGKILL);
                  went_well(reader);
                  run = start([&] { return !lock(open(file().c_str(), O_RDWR), F_WRLCK); });
              }};
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
    EXPECT_GT(run, 0);  // it said so, and lives on
}

TEST_F(add_lock, a_file_that_a_run_has_locked_meanwhile_is_not_replaced)
{
    leave_file();
    const pid_t reader = start_reader();
    pid_t run = 0;
    behind = {"F_GETLK", [&] {  // which has found the reader
                  kill(reader, SIGKILL);
                  went_well(reader);
                  run = start_run(50000);
              }};
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
    EXPECT_TRUE(went_well(run));
    EXPECT_EQ(entries(folder), 1);
}

TEST_F(add_lock, a_file_that_another_run_has_replaced_meanwhile_is_not_replaced_again)
{
    for (const char *call : {"F_GETLK", "F_SETLKW"}) {  // of the old file, and of our new one
        leave_file();
        start_reader();
        behind = {call, [&] {
                      start([&] {  // one that is killed, while a third prepares a file
                          write("other", "");
                          fs::rename(path("other"), path("adduser_mutex.new"));
                          fs::rename(path("adduser_mutex.new"), file());
                          write("adduser_mutex.new", "third");
                          return true;
                      });
                  }};
        add_user_lock lock;
        EXPECT_TRUE(lock.take());
        EXPECT_EQ(contents(path("adduser_mutex.new")), "third") << call;
        lock.release();
        fs::remove(path("adduser_mutex.new"));
    }
}

TEST_F(add_lock, the_new_file_that_a_killed_run_left_is_used)
{
    leave_file();
    write("adduser_mutex.new", "");
    start_reader();
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
    EXPECT_EQ(entries(folder), 1);
}

TEST_F(add_lock, a_new_file_that_a_stranger_has_locked_is_an_error)
{
    leave_file();
    write("adduser_mutex.new", "");
    start_reader();
    start_reader("adduser_mutex.new");
    add_user_lock lock;
    EXPECT_FALSE(lock.take());
    EXPECT_EQ(g_error_code, 0x50000002U);
}

TEST_F(add_lock, another_run_is_waited_for)
{
    const pid_t run = start_run(100000);
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
    EXPECT_TRUE(went_well(run));
    EXPECT_FALSE(stub.slept_us.empty());
}

TEST_F(add_lock, a_run_that_is_killed_leaves_it_to_the_next)
{
    const pid_t run = start_run(10000000);
    kill(run, SIGKILL);
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
}

TEST_F(add_lock, a_stranger_who_waits_for_the_same_run_is_no_hindrance)
{
    const pid_t run = start_run(100000);
    for (int n = 0; n < 5; ++n)
        start([] { return true; },
              [&] { return lock(open(file().c_str(), O_RDONLY), F_RDLCK, 0, 0, F_SETLKW) && live_on(); });
    usleep(20000);  // so that they do wait
    add_user_lock lock;
    EXPECT_TRUE(lock.take());
    EXPECT_TRUE(went_well(run));
}

/// What several processes count.
struct shared_counts {
    std::atomic<int> inside{0}, taken{0}, wrong{0};
};

static shared_counts &share()
{
    void *const memory =
        mmap(nullptr, sizeof(shared_counts), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return *new (memory) shared_counts;
}

TEST_F(add_lock, is_one_runs_at_a_time_whatever_strangers_do)
{
    static constexpr int runs = 4, rounds = 30, strangers = 4;
    shared_counts &counts = share();
    const auto use = [&] {
        const ino_t own = inode();
        counts.wrong += ++counts.inside != 1;
        usleep(unsigned(rand()) % 500);
        counts.wrong += inode() != own || own == 0;
        --counts.inside;
        ++counts.taken;
    };
    const auto run = [&](int number) {
        srand(unsigned(number));
        for (int round = 0; round < rounds; ++round) {
            const bool is_killed = rand() % 4 == 0;
            const pid_t child = fork();
            if (child == 0) {
                add_user_lock lock;
                counts.wrong += !lock.take();
                use();
                if (!is_killed)
                    lock.release();
                _exit(0);
            }
            waitpid(child, nullptr, 0);
        }
        return true;
    };
    const auto disturb = [&](int number) {
        srand(unsigned(number));
        for (;;) {
            const int opened = open(file().c_str(), O_RDONLY);
            if (opened >= 0 && lock(opened, F_RDLCK, rand() % 50, 0, rand() % 2 == 0 ? F_SETLK : F_SETLKW))
                usleep(unsigned(rand()) % 3000);
            ::close(opened);
        }
        return true;
    };
    for (int n = 0; n < strangers; ++n)
        start([] { return true; }, [&] { return disturb(n); });
    std::vector<pid_t> all;
    for (int n = 0; n < runs; ++n)
        all.push_back(start([] { return true; }, [&] { return run(n); }));
    for (const pid_t each : all)
        EXPECT_TRUE(went_well(each));
    EXPECT_EQ(counts.wrong, 0);
    EXPECT_EQ(counts.taken, runs * rounds);
    munmap(&counts, sizeof counts);
}
