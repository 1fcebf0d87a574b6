/// Whose turn it is. Delays are counted in requests of others.
#include "ipmcd/requests.h"

#include <gtest/gtest.h>

namespace ipmcd
{

struct requests : testing::Test {
    /// Request `number` of a socket.
    bool add(uint32_t account, const std::string &socket, uint8_t number = 0)
    {
        return queue.add({.from = {account, socket}, .via = nullptr, .datagram = {number}});
    }
    void add_many(size_t count, uint32_t account, const std::string &socket)
    {
        for (size_t i = 0; i < count; i++)
            add(account, socket);
    }
    /// "socket number" of the next one, which is answered at once; empty when there is none.
    std::string serve()
    {
        const auto taken = queue.next();
        if (!taken)
            return "";
        queue.done(taken->from);
        return taken->from.address + " " + std::to_string(taken->datagram[0]);
    }
    /// How many others come first.
    size_t served_before(const std::string &socket)
    {
        size_t count = 0;
        for (std::string one = serve(); !one.empty() && !one.starts_with(socket + " "); one = serve())
            count++;
        return count;
    }

    request_queue queue;
};

TEST_F(requests, of_one_socket_keep_their_order)
{
    for (uint8_t i = 0; i < 3; i++)
        EXPECT_TRUE(add(0, "a", i));
    EXPECT_EQ(serve(), "a 0");
    EXPECT_EQ(serve(), "a 1");
    EXPECT_TRUE(add(0, "a", 3));
    EXPECT_EQ(serve(), "a 2");
    EXPECT_EQ(serve(), "a 3");
    EXPECT_EQ(serve(), "");
    EXPECT_TRUE(queue.empty());
}

TEST_F(requests, of_a_socket_that_floods_go_ahead_of_another_once)
{
    add_many(1000, 0, "flood");
    add(0, "other");
    EXPECT_EQ(served_before("other"), 1U);
}

TEST_F(requests, of_an_account_that_floods_go_ahead_of_another_once)
{
    for (int i = 0; i < 5000; i++)
        add_many(100, 1000, "flood " + std::to_string(i));
    add(0, "other");
    EXPECT_EQ(served_before("other"), 1U);
}

TEST_F(requests, wait_while_the_one_before_them_is_not_answered)
{
    add(0, "slow", 0);
    add(0, "slow", 1);
    add(0, "other", 0);
    const auto slow = queue.next();
    ASSERT_TRUE(slow);
    EXPECT_EQ(serve(), "other 0");
    EXPECT_EQ(serve(), "");
    EXPECT_TRUE(add(0, "slow", 2));
    EXPECT_EQ(serve(), "");
    queue.done(slow->from);
    EXPECT_EQ(serve(), "slow 1");
    EXPECT_EQ(serve(), "slow 2");
}

TEST_F(requests, beyond_what_a_socket_may_have_are_dropped)
{
    add_many(request_queue::most_of_socket, 0, "flood");
    EXPECT_FALSE(add(0, "flood"));
    EXPECT_TRUE(add(0, "other"));
    EXPECT_EQ(serve(), "flood 0");
    EXPECT_TRUE(add(0, "flood"));
    EXPECT_FALSE(add(0, "flood"));
}

TEST_F(requests, of_many_sockets_of_an_account_leave_room_for_one_of_each)
{
    for (size_t i = 0; i < request_queue::many_of_account; i++)
        EXPECT_TRUE(add(1000, std::to_string(i % 100)));
    EXPECT_FALSE(add(1000, "0"));
    EXPECT_TRUE(add(1000, "one more"));
    EXPECT_FALSE(add(1000, "one more"));
    for (size_t i = request_queue::many_of_account + 1; i < request_queue::most_of_account; i++)
        EXPECT_TRUE(add(1000, "more " + std::to_string(i)));
    EXPECT_FALSE(add(1000, "too many"));
    EXPECT_TRUE(add(0, "of another account"));
    size_t left = 0;
    while (!serve().empty())
        left++;
    EXPECT_EQ(left, request_queue::most_of_account + 1);
    EXPECT_TRUE(add(1000, "too many"));
}

}  // namespace ipmcd
