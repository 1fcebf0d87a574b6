#include "ipmcd/worker.h"

#include "ipmcd/wiping.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace ipmcd
{

/// Signals are for the event loop: the thread is made with all of them blocked.
worker::worker(event_base *loop) : any_done(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    const auto ready = [](evutil_socket_t, short, void *self) { static_cast<worker *>(self)->hand_over(); };
    on_done.reset(made(event_new(loop, any_done.get(), EV_READ | EV_PERSIST, ready, this)));
    if (event_add(on_done.get(), nullptr) != 0)
        throw std::runtime_error(std::string("no thread for passwords: ") + strerror(errno));
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    thread = std::jthread([this](const std::stop_token &end) { work(end); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void worker::run(uint32_t account, std::function<void()> work, background_result then)
{
    const std::lock_guard hold(both);
    waiting[account].push_back({std::move(work), std::move(then), nullptr});
    any_waiting.notify_one();
}

/// The one of the next account that has any.
worker::job worker::next()
{
    auto place = waiting.upper_bound(last_account);
    if (place == waiting.end())
        place = waiting.begin();
    last_account = place->first;
    job taken = std::move(place->second.front());
    place->second.pop_front();
    if (place->second.empty())
        waiting.erase(place);
    return taken;
}

void worker::work(const std::stop_token &end)
{
    std::unique_lock hold(both);
    while (any_waiting.wait(hold, end, [this] { return !waiting.empty(); }) && !end.stop_requested()) {
        job taken = next();
        hold.unlock();
        try {
            taken.work();
        } catch (...) {
            taken.failed = std::current_exception();
        }
        taken.work = nullptr;  // with what it had captured
        wipe_stack();
        hold.lock();
        done.push_back(std::move(taken));
        eventfd_write(any_done.get(), 1);
    }
}

void worker::hand_over()
{
    eventfd_t count = 0;
    eventfd_read(any_done.get(), &count);
    std::deque<job> taken;
    {
        const std::lock_guard hold(both);
        taken.swap(done);
    }
    for (const job &one : taken)
        one.then(one.failed);
}

}  // namespace ipmcd
