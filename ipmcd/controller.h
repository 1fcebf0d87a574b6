/// The whole simulated controller: all families, and the way from a request to its handler.
#pragma once

#include "ipmcd/families.h"
#include "ipmcd/frame.h"
#include "ipmcd/scheduler.h"
#include "ipmcd/sensors/board_file.h"

#include <any>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <typeindex>
#include <vector>

namespace ipmcd
{

using command_result = std::function<void(completion, std::span<const uint8_t> data)>;

class controller
{
public:
    explicit controller(scheduler &timers, std::span<const family_maker> makers = all_families(),
                        board_description described = default_board());
    controller(const controller &) = delete;  // its families keep references to it
    controller &operator=(const controller &) = delete;

    /// Carries one request of an account out. `then` gets its completion code, and with completion::ok its answer's
    /// data: before this returns, or later when the request takes long.
    void execute(const request_frame &request, uint32_t account, command_result then);
    /// The row that a request belongs to, or null.
    const command *row_of(uint8_t netfn, uint8_t command, std::span<const uint8_t> data) const;
    /// How many of the data bytes are nobody's secret. A request without a row may be a misspelt one: where rows of its
    /// netFn and command carry secrets, only as many bytes count as such a row begins with.
    size_t open_bytes(uint8_t netfn, uint8_t command, std::span<const uint8_t> data) const;

    /// The families' own: whoever watches the controller hears when their timers go off.
    scheduler &timers() { return clock; }
    /// `happened` is called after anything that may have changed the state. Null: nobody watches.
    void watch(std::function<void()> happened) { watcher = std::move(happened); }
    /// The board that it sits on.
    const board_description &description() const { return board; }
    /// The family of that name. Throws std::out_of_range when there is none.
    family &member(std::string_view name);
    /// What several families have in common, a copyable struct: the one object of its kind, made for the first who
    /// asks.
    template <typename thing>
    thing &shared()
    {
        std::any &place = commons[typeid(thing)];
        return place.has_value() ? std::any_cast<thing &>(place) : place.emplace<thing>();
    }

    /// The folder in which files of the controller's disk lie, /tmp as "tmp". None: it has no disk.
    const std::optional<std::filesystem::path> &disk() const { return disk_folder; }
    void use_disk(std::filesystem::path folder) { disk_folder = std::move(folder); }

    json to_json() const;
    /// The same without its secrets.
    json shown() const;
    /// What a family tells of one of its things. None: no family has things of this kind. Throws std::out_of_range when
    /// none of them has this name.
    std::optional<json> details(std::string_view kind, std::string_view name) const;
    /// Takes over the families that `state` names and leaves the others. Throws bad_state at the first that is wrong.
    void from_json(const json &state);
    void reset();
    /// A cold reset: settings stay, what lives only as long as the controller runs starts anew.
    void restart();
    /// The same, once the answer to the request at hand is out.
    void restart_soon() { restarting->start(std::chrono::milliseconds(0)); }
    void cancel_reservations();

private:
    class watched_scheduler final : public scheduler
    {
    public:
        watched_scheduler(scheduler &machine_, controller &owner_) : machine(machine_), owner(owner_) {}
        std::chrono::milliseconds now() const override { return machine.now(); }
        std::unique_ptr<timer> make_timer(std::function<void()> when_due) override;
        void in_background(uint32_t account, std::function<void()> work, background_result then) override;

    private:
        scheduler &machine;
        controller &owner;
    };
    void note_change() const
    {
        if (watcher)
            watcher();
    }

    struct entry {
        family *owner;
        const command *row;
    };
    const entry *find(uint8_t netfn, uint8_t command, std::span<const uint8_t> data) const;
    completion refusal(uint8_t netfn, uint8_t command, std::span<const uint8_t> data) const;

    std::function<void()> watcher;
    watched_scheduler clock;
    std::unique_ptr<timer> restarting;
    const board_description board;
    std::optional<std::filesystem::path> disk_folder;
    std::map<std::type_index, std::any> commons;
    std::vector<std::unique_ptr<family>> members;
    std::vector<entry> entries;
};

}  // namespace ipmcd
