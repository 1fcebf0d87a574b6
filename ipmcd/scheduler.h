/// The time, timers for families whose state changes by itself, and work that takes long.
#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>

namespace ipmcd
{

/// Goes off once per start; starting it again sets the time anew. Stops when it is destroyed.
class timer
{
public:
    virtual ~timer() = default;
    virtual void start(std::chrono::milliseconds delay) = 0;
    virtual void stop() = 0;
};

/// What is called when work is done: with what it threw, or null.
using background_result = std::function<void(std::exception_ptr)>;

class scheduler
{
public:
    virtual ~scheduler() = default;
    /// Since 1970-01-01 00:00 UTC.
    virtual std::chrono::milliseconds now() const = 0;
    virtual std::unique_ptr<timer> make_timer(std::function<void()> when_due) = 0;
    /// Runs `work`, which touches nothing that anybody else uses, for an account, and then calls `then`. Where there is
    /// an event loop it goes on meanwhile; without one, both are over when this returns.
    virtual void in_background(uint32_t account, std::function<void()> work, background_result then);
};

}  // namespace ipmcd
