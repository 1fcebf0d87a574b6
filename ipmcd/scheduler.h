/// The time, and timers for families whose state changes by itself.
#pragma once

#include <chrono>
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

class scheduler
{
public:
    virtual ~scheduler() = default;
    /// Since 1970-01-01 00:00 UTC.
    virtual std::chrono::milliseconds now() const = 0;
    virtual std::unique_ptr<timer> make_timer(std::function<void()> when_due) = 0;
};

}  // namespace ipmcd
