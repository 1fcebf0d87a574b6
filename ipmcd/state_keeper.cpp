#include "ipmcd/state_keeper.h"

#include "ipmcd/state_file.h"
#include "ipmcd/text.h"

#include <mutex>
#include <utility>

namespace ipmcd
{

static constexpr uint32_t no_account = UINT32_MAX;  // its work is nobody's

/// Writes from both threads. A state that is older than the one on the disk is left out.
class state_keeper::writer
{
public:
    explicit writer(std::filesystem::path file) : path(std::move(file)) {}
    uint64_t next_number() { return ++given; }
    void write(uint64_t number, const std::string &state)
    {
        const std::lock_guard hold(one_at_a_time);
        if (number <= written)
            return;
        write_state(path, state);
        written = number;
    }

private:
    const std::filesystem::path path;
    uint64_t given = 0;  // in the event loop
    std::mutex one_at_a_time;
    uint64_t written = 0;
};

state_keeper::state_keeper(std::filesystem::path path, controller &kept, scheduler &timers)
    : board(kept), machine(timers), file(std::make_shared<writer>(std::move(path))),
      next_look(machine.make_timer([this] { look(); }))
{
    board.watch([this] { look_soon(); });
}

state_keeper::~state_keeper() { board.watch(nullptr); }

void state_keeper::look_soon()
{
    if (!std::exchange(will_look, true))
        next_look->start(calm);
}

void state_keeper::look()
{
    will_look = false;
    std::string state = state_text(board);
    if (state == known)
        return;
    known = state;
    machine.in_background(
        no_account, [number = file->next_number(), to = file, state = std::move(state)] { to->write(number, state); },
        [this](std::exception_ptr failed) { note_end(std::move(failed)); });
}

/// What could not be written is tried again, also when nothing more changes.
void state_keeper::note_end(std::exception_ptr failed)
try {
    if (failed)
        std::rethrow_exception(failed);
    has_complained = false;
} catch (const std::exception &problem) {
    if (!std::exchange(has_complained, true))
        report(problem.what());
    known.clear();
    will_look = true;
    next_look->start(next_try);
}

void state_keeper::save()
{
    std::string state = state_text(board);
    file->write(file->next_number(), state);
    known = std::move(state);
}

}  // namespace ipmcd
