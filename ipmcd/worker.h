/// A thread for what would hold up the event loop: the hash of a password takes some ten milliseconds.
#pragma once

#include "ipmcd/bound_socket.h"
#include "ipmcd/event_owner.h"
#include "ipmcd/scheduler.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <thread>

namespace ipmcd
{

class worker
{
public:
    explicit worker(event_base *loop);
    /// Runs `work` in the thread, then `then` in the event loop. Each account has its turn, in the order of its jobs.
    /// Of those that are not done when this ends, none calls `then`.
    void run(uint32_t account, std::function<void()> work, background_result then);

private:
    struct job {
        std::function<void()> work;
        background_result then;
        std::exception_ptr failed;
    };

    void work(const std::stop_token &end);
    job next();
    void hand_over();

    descriptor any_done;  // readable when some are
    event_owner<event> on_done;
    std::mutex both;  // threads have the four below
    std::condition_variable_any any_waiting;
    std::map<uint32_t, std::deque<job>> waiting;
    uint32_t last_account = 0;
    std::deque<job> done;
    std::jthread thread;
};

}  // namespace ipmcd
