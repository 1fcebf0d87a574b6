/// Clients that do not read, flood, or go away, while others work.
#include "tests/ipmcd/process.h"

#include <atomic>
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
        again_and_again([this, silent = std::make_shared<client>(ipc + "/2001")] { silent->send(set_fan_level_60); });
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
