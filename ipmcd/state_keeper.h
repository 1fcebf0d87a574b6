/// Keeps the state file as the controller is.
#pragma once

#include "ipmcd/controller.h"

#include <filesystem>
#include <memory>

namespace ipmcd
{

/// Saves the state half a second after anything happened that changed it, beside the event loop, so a controller that
/// is killed has lost nothing older than that.
class state_keeper
{
public:
    state_keeper(std::filesystem::path file, controller &kept, scheduler &timers);
    state_keeper(const state_keeper &) = delete;  // the controller has a reference to it
    state_keeper &operator=(const state_keeper &) = delete;
    ~state_keeper();
    /// Saves it now, and returns when it is on the disk. Throws as save_state does.
    void save();

    static constexpr std::chrono::milliseconds calm{500}, next_try{10'000};

private:
    class writer;

    void look_soon();
    void look();
    void note_end(std::exception_ptr failed);

    controller &board;
    scheduler &machine;
    std::shared_ptr<writer> file;
    std::unique_ptr<timer> next_look;
    bool will_look = false;
    bool has_complained = false;
    std::string known;  // what was written last, or is about to be
};

}  // namespace ipmcd
