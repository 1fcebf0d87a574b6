#include "ipmcd/scheduler.h"

namespace ipmcd
{

void scheduler::in_background(uint32_t, std::function<void()> work, background_result then)
{
    std::exception_ptr failed;
    try {
        work();
    } catch (...) {
        failed = std::current_exception();
    }
    then(failed);
}

}  // namespace ipmcd
