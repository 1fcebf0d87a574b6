/// A controller without sockets, and with a clock that stands still until a test moves it.
#pragma once

#include "ipmcd/controller.h"
#include "ipmcd/service.h"
#include "ipmcd/text.h"

#include <deque>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>
#include <set>
#include <stdlib.h>
#include <string>
#include <vector>

namespace ipmcd
{

class still_clock final : public scheduler
{
public:
    std::chrono::milliseconds now() const override { return time; }
    std::unique_ptr<timer> make_timer(std::function<void()> when_due) override
    {
        return std::make_unique<still_timer>(*this, std::move(when_due));
    }
    /// Work is done on the spot, unless a test wants to see what goes on meanwhile: then by `finish_work`.
    void in_background(uint32_t account, std::function<void()> work, background_result then) override
    {
        held.push_back([this, account, work = std::move(work), then = std::move(then)] {
            scheduler::in_background(account, work, then);
        });
        if (!hold_work)
            finish_work();
    }
    void finish_work()
    {
        for (; !held.empty(); held.pop_front())
            held.front()();
    }
    void advance(std::chrono::milliseconds by)
    {
        time += by;
        for (still_timer *const one : std::set(timers))
            one->run_if_due();
    }

    bool hold_work = false;

private:
    class still_timer final : public timer
    {
    public:
        still_timer(still_clock &clock_, std::function<void()> when_due) : clock(clock_), act(std::move(when_due))
        {
            clock.timers.insert(this);
        }
        ~still_timer() override { clock.timers.erase(this); }
        void start(std::chrono::milliseconds delay) override { due = clock.time + delay; }
        void stop() override { due.reset(); }
        void run_if_due()
        {
            if (!due || *due > clock.time)
                return;
            due.reset();
            act();
        }

    private:
        still_clock &clock;
        std::function<void()> act;
        std::optional<std::chrono::milliseconds> due;
    };

    std::chrono::milliseconds time{0};
    std::set<still_timer *> timers;
    std::deque<std::function<void()>> held;
};

using bytes = std::vector<uint8_t>;

/// What came back: a completion code and data.
struct reply {
    uint8_t code = 0;
    bytes data;
    bool operator==(const reply &) const = default;
    friend std::ostream &operator<<(std::ostream &out, const reply &it)
    {
        return out << text("code %02X, data [%s]", it.code, hex(it.data).c_str());
    }
};

// Nothing but the completion code, and in OEM answers the enterprise number.
inline const reply done{0x00, {}}, done_oem{0x00, {0xD9, 0x7E, 0x00}};

// Set Fan Level 60 with sequence number 5 (00+B0 = B0, so 50; 63+14+15+00+00+3C = C8, so 38), and its good answer.
inline const bytes set_fan_level_60 = {0x00, 0xB0, 0x50, 0x63, 0x14, 0x15, 0x00, 0x00, 0x3C, 0x38};
inline const bytes level_set = {0x63, 0xB4, 0xE9, 0x00, 0x14, 0x15, 0x00, 0x00, 0xD7};

/// The answer of a board that gives it at once.
inline reply ask_board(controller &board, uint8_t netfn, uint8_t command, const bytes &data, uint8_t lun = 0,
                       uint32_t account = 0)
{
    request_frame request;
    request.netfn = netfn;
    request.lun = lun;
    request.command = command;
    request.data = data;
    std::optional<reply> made;
    board.execute(request, account, [&made](completion code, std::span<const uint8_t> answer) {
        made = {.code = uint8_t(code), .data = {}};
        if (code == completion::ok)
            made->data.assign(answer.begin(), answer.end());
    });
    if (!made)
        throw std::logic_error("the answer comes later");
    return *made;
}

/// What is sent at once in answer to a datagram; none also when that comes later.
inline std::optional<delivery> take_now(service &ipmi, const bytes &datagram)
{
    const auto sent = std::make_shared<std::optional<delivery>>();
    ipmi.take(datagram, 0, [sent](std::optional<delivery> made) { *sent = std::move(made); });
    return *sent;
}

struct board_test : testing::Test {
    explicit board_test(std::span<const family_maker> makers = all_families(),
                        const board_description &described = default_board())
        : board(clock, makers, described)
    {
    }

    reply ask(uint8_t netfn, uint8_t command, const bytes &data, uint8_t lun = 0)
    {
        return ask_board(board, netfn, command, data, lun, account);
    }
    json state_of(const char *family) const { return board.to_json()[family]; }

    still_clock clock;
    controller board;
    uint32_t account = 0;  // that asks
};

/// A folder of its own for each test, removed with all that is in it.
class scratch_folder
{
public:
    scratch_folder()
    {
        std::string made = (std::filesystem::temp_directory_path() / "ipmcd.XXXXXX").string();
        if (!mkdtemp(made.data()))
            throw std::runtime_error("no scratch folder");
        folder = made;
    }
    ~scratch_folder() { std::filesystem::remove_all(folder); }
    scratch_folder(const scratch_folder &) = delete;
    scratch_folder &operator=(const scratch_folder &) = delete;
    std::filesystem::path operator/(const char *name) const { return folder / name; }
    const std::filesystem::path &path() const { return folder; }

private:
    std::filesystem::path folder;
};

/// The names of what is in a folder.
inline std::set<std::string> names_in(const std::filesystem::path &folder)
{
    std::set<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

}  // namespace ipmcd
