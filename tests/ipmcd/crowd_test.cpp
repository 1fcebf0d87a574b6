/// Clients that do not read, flood, or go away, while others work.
#include "tests/ipmcd/process.h"

#include <atomic>
#include <numeric>
#include <sys/stat.h>
#include <thread>

namespace ipmcd
{

struct crowd : ipmcd_process {
    /// So many requests one after the other, each sent once and answered.
    void expect_answers(int count)
    {
        client calm = connect();
        for (int i = 0; i < count; i++)
            ASSERT_EQ(calm.ask(set_fan_level_60), level_set) << "request " << i;
    }
    /// Sends requests and reads no answer; more than fit the buffer of any one socket.
    std::unique_ptr<client> one_that_never_reads(int requests = 20000) const
    {
        auto made = std::make_unique<client>(ipc + "/2001");
        for (int i = 0; i < requests; i++)
            EXPECT_TRUE(made->send(set_fan_level_60)) << strerror(errno);
        return made;
    }
    json traffic() const { return json::parse(ask("show traffic").substr(2)); }
};

TEST_F(crowd, one_that_never_reads_costs_nobody_an_answer)
{
    const auto running = start();
    client before = connect();
    ASSERT_EQ(before.ask(set_fan_level_60), level_set);
    const auto silent = one_that_never_reads();
    EXPECT_EQ(before.ask(set_fan_level_60), level_set);
    expect_answers(100);
    EXPECT_GT(traffic()["renewals"], 0);
}

TEST_F(crowd, a_new_socket_is_as_the_first)
{
    const mode_t before = umask(077);
    const auto running = start();
    umask(before);
    const auto silent = one_that_never_reads();
    EXPECT_GT(traffic()["renewals"], 0);
    struct stat port {
    };
    ASSERT_EQ(stat((ipc + "/2001").c_str(), &port), 0);
    EXPECT_EQ(port.st_mode & 0777, 0666U);
    EXPECT_EQ(left_behind(), (std::set<std::string>{"2001", "2001.lock", "control", "control.lock"}));
    running->signal(SIGTERM);
    running->end();
    EXPECT_EQ(running->status, 0);
    EXPECT_TRUE(left_behind().empty());
}

TEST_F(crowd, an_answer_that_is_late_comes_by_the_socket_it_was_asked_by)
{
    const auto running = start();
    ask("fail 2C 15 late=500");
    client waiting = connect();
    ASSERT_TRUE(waiting.send(set_fan_level_60));
    const auto silent = one_that_never_reads();
    EXPECT_GT(traffic()["renewals"], 0);
    EXPECT_EQ(waiting.receive(), level_set);
}

TEST_F(crowd, a_folder_without_room_for_a_new_socket_is_reported_once)
{
    std::filesystem::create_directories(ipc + "/next");
    const auto running = start();
    const auto silent = one_that_never_reads();
    EXPECT_EQ(content_of(errors), "ipmcd: answers that nobody reads may hold up others: " + ipc +
                                      "/next: there is something that is no socket\n");
    std::filesystem::remove(ipc + "/next");
    connect().send(set_fan_level_60);  // the buffer is full: this answer is lost, but makes ipmcd try again
    EXPECT_TRUE(eventually([this] { return traffic()["renewals"] > 0; }));
    expect_answers(100);
}

/// Check User Password: netFn, checksum and address 00 C0 40 63; the last byte makes the rest sum to 0.
static bytes check_password(const std::string &name, const std::string &password)
{
    bytes frame = {0x00, 0xC0, 0x40, 0x63, 0x14, 0x91, 0xD9, 0x7E, 0x00, 0x11, 0x00};
    frame.insert(frame.end(), name.begin(), name.end());
    frame.resize(11 + 16);
    frame.insert(frame.end(), password.begin(), password.end());
    frame.resize(11 + 36);
    frame.push_back(uint8_t(-std::accumulate(frame.begin() + 3, frame.end(), 0)));
    return frame;
}
constexpr size_t code_at = 6;

TEST_F(crowd, passwords_are_checked_while_others_are_served)
{
    const auto running = start();
    client patient = connect(), other = connect();
    constexpr int checks = 100;
    for (int i = 0; i < checks; i++)
        ASSERT_TRUE(patient.send(check_password("admin", "Zentro-admin1")));
    EXPECT_EQ(other.ask(set_fan_level_60), level_set);
    int answered = 0;
    while (patient.receive(0ms))
        answered++;
    EXPECT_LT(answered, checks);
}

TEST_F(crowd, answers_keep_the_order_of_requests)
{
    const auto running = start();
    client patient = connect();
    ASSERT_TRUE(patient.send(check_password("admin", "Zentro-admin1")));
    ASSERT_TRUE(patient.send(check_password("admin", "wrong")));
    ASSERT_TRUE(patient.send(set_fan_level_60));
    EXPECT_EQ(patient.receive().value_or(bytes(7)).at(code_at), 0x00);
    EXPECT_EQ(patient.receive().value_or(bytes(7)).at(code_at), 0x82);
    EXPECT_EQ(patient.receive(), level_set);
}

TEST_F(crowd, ends_with_passwords_still_to_check)
{
    const auto running = start();
    client patient = connect();
    for (int i = 0; i < 100; i++)
        patient.send(check_password("admin", "Zentro-admin1"));
    ASSERT_TRUE(patient.receive());
    running->signal(SIGTERM);
    running->end();
    EXPECT_EQ(running->status, 0);
}

/// As another account: whether all of `guesses` get this code.
static bool others_get(const std::string &port, uid_t account, const std::vector<std::string> &guesses, uint8_t code)
{
    const pid_t child = fork();
    if (child == 0) {
        if (setresuid(account, account, account) != 0)
            _exit(2);
        client guessing(port);
        for (const std::string &guess : guesses)
            if (guessing.ask(check_password("admin", guess)).value_or(bytes(code_at + 1)).at(code_at) != code)
                _exit(1);
        _exit(0);
    }
    int status = -1;
    return waitpid(child, &status, 0) == child && status == 0;
}

TEST_F(crowd, no_account_locks_out_another)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "takes several accounts";
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0711));
    const auto running = start();
    const std::string port = ipc + "/2001", right = "Zentro-admin1";
    EXPECT_TRUE(others_get(port, 1000, {"a", "b", "c", "d", "e"}, 0x82));
    EXPECT_TRUE(others_get(port, 1000, {right}, 0x83));
    EXPECT_TRUE(others_get(port, 1001, {right}, 0x00));
    EXPECT_EQ(connect().ask(check_password("admin", right)).value_or(bytes(7)).at(code_at), 0x00);
}

/// Whether a text is anywhere in what a process may write to.
static bool has_in_memory(pid_t process, const std::string &wanted)
{
    std::ifstream maps(text("/proc/%d/maps", int(process)));
    const descriptor memory(open(text("/proc/%d/mem", int(process)).c_str(), O_RDONLY | O_CLOEXEC));
    EXPECT_GE(memory.get(), 0);
    size_t seen = 0;
    for (std::string line; std::getline(maps, line);) {
        unsigned long from = 0, to = 0;
        char may_write = '-';
        if (sscanf(line.c_str(), "%lx-%lx r%c", &from, &to, &may_write) != 3 || may_write != 'w')
            continue;
        if (to - from > 1UL << 30)  // a sanitizer's own
            continue;
        std::string content(to - from, '\0');
        const ssize_t got = pread(memory.get(), content.data(), content.size(), off_t(from));
        content.resize(got > 0 ? size_t(got) : 0);
        seen += content.size();
        if (content.find(wanted) != std::string::npos)
            return true;
    }
    EXPECT_GT(seen, 100000U);
    return false;
}

/// The kernel gives what /proc tells of a process that cannot be dumped to root.
TEST_F(crowd, nobody_of_the_same_account_can_look_into_it)
{
    constexpr uid_t nobody = 65534;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    process running(with_folder(), errors, geteuid() == 0 ? nobody : geteuid());
    if (!running.says_ready())
        GTEST_SKIP() << "another account may not run " << IPMCD_BINARY;
    struct stat seen {
    };
    ASSERT_EQ(stat(text("/proc/%d/maps", int(running.id())).c_str(), &seen), 0);
    EXPECT_EQ(seen.st_uid, 0U);
}

TEST_F(crowd, no_password_stays_in_memory)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "nobody else may look";
    const auto running = start();
    EXPECT_EQ(ask(R"(set /users/6 {"name": "six", "password": "Tea-time4", "enabled": true})"), "0 {\"ok\":true}\n");
    EXPECT_EQ(ask(R"(set /users/6/password Milk-jug7)").substr(0, 1), "1");  // no JSON
    client other = connect();
    EXPECT_EQ(other.ask(check_password("six", "Tea-time4")).value_or(bytes(7)).at(code_at), 0x00);
    EXPECT_EQ(other.ask(check_password("six", "Sugar-pot8")).value_or(bytes(7)).at(code_at), 0x82);
    EXPECT_EQ(other.ask(set_fan_level_60), level_set);
    EXPECT_TRUE(has_in_memory(running->id(), ipc));  // where to look for
    for (const char *const password : {"Tea-time4", "Milk-jug7", "Sugar-pot8"})
        EXPECT_FALSE(has_in_memory(running->id(), password)) << password;
}

/// All of them at once.
TEST_F(crowd, works_on_whoever_misbehaves)
{
    const auto running = start();
    std::atomic<bool> over = false;
    std::vector<std::jthread> others;
    const auto again_and_again = [&](auto act) {
        others.emplace_back([&over, act] {
            while (!over)
                act();
        });
    };

    for (int i = 0; i < 2; i++)
        again_and_again([silent = std::make_shared<client>(ipc + "/2001")] { silent->send(set_fan_level_60); });
    again_and_again([this] { connect().send(set_fan_level_60); });  // gone before the answer comes
    again_and_again([this] {
        const descriptor unlinked(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
        const std::string own = folder / "own";
        const sockaddr_un name = address_of(own), port = address_of(ipc + "/2001");
        if (bind(unlinked.get(), reinterpret_cast<const sockaddr *>(&name), sizeof name) == 0) {
            sendto(unlinked.get(), set_fan_level_60.data(), set_fan_level_60.size(), 0,
                   reinterpret_cast<const sockaddr *>(&port), sizeof port);
            unlink(own.c_str());
        }
    });
    for (int i = 0; i < 10; i++)
        expect_answers(20);
    over = true;
    others.clear();
    EXPECT_EQ(content_of(errors), "");
}

}  // namespace ipmcd
