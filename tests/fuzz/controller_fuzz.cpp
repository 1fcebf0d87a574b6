/// ipmcd's decoder and all its families. An input is steps, each a letter and what belongs to it:
///
///   d LENGTH BYTES        a datagram, as it came
///   f LENGTH BYTES        the same with its checksums put right
///   t SECONDS             time passes, so many to the power of two
///   c TEXT                a line for the control socket, to its end
///   s                     the state is saved and loaded
///   other ROW LENGTH BYTES  a request of this row of the families' tables, its data behind the leading bytes
#include "ipmcd/control.h"
#include "ipmcd/service.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <numeric>
#include <set>

using namespace ipmcd;

/// A clock that goes when it is told to.
class moved_clock final : public scheduler
{
public:
    std::chrono::milliseconds now() const override { return time; }
    std::unique_ptr<timer> make_timer(std::function<void()> when_due) override
    {
        return std::make_unique<moved_timer>(*this, std::move(when_due));
    }
    /// Timers go off in their order, be they started by one another.
    void advance(std::chrono::milliseconds by)
    {
        const std::chrono::milliseconds until = time + by;
        for (unsigned gone_off = 0; gone_off < 1000; ++gone_off) {
            moved_timer *next = nullptr;
            for (moved_timer *const one : timers)
                if (one->due && *one->due <= until && (next == nullptr || *one->due < *next->due))
                    next = one;
            if (next == nullptr)
                break;
            time = std::max(time, *next->due);
            next->due.reset();
            next->act();
        }
        time = until;
    }

private:
    struct moved_timer final : public timer {
        moved_timer(moved_clock &clock_, std::function<void()> when_due) : clock(clock_), act(std::move(when_due))
        {
            clock.timers.insert(this);
        }
        ~moved_timer() override { clock.timers.erase(this); }
        void start(std::chrono::milliseconds delay) override { due = clock.time + delay; }
        void stop() override { due.reset(); }

        moved_clock &clock;
        std::function<void()> act;
        std::optional<std::chrono::milliseconds> due;
    };

    std::chrono::milliseconds time{1'700'000'000'000};
    std::set<moved_timer *> timers;
};

/// The disk of the controller, gone with the fuzzer.
struct scratch_folder {
    std::string path = "/tmp/fuzz.XXXXXX";
    scratch_folder() { mkdtemp(path.data()); }
    ~scratch_folder() { std::filesystem::remove_all(path); }
};

static void check(bool holds)
{
    if (!holds)
        abort();
}

static uint8_t checksum(std::span<const uint8_t> bytes)
{
    return uint8_t(-std::accumulate(bytes.begin(), bytes.end(), 0U));
}

static void put_checksums_right(std::vector<uint8_t> &frame)
{
    if (frame.size() < 7)
        return;
    frame[2] = checksum(std::span(frame).first(2));
    frame.back() = checksum(std::span(frame).subspan(3, frame.size() - 4));
}

static std::vector<uint8_t> frame_of(uint8_t netfn, uint8_t number, std::span<const uint8_t> lead,
                                     std::span<const uint8_t> data)
{
    std::vector<uint8_t> frame{0x00, uint8_t(netfn << 2), 0x00, 0x63, 0x04, number};
    frame.insert(frame.end(), lead.begin(), lead.end());
    frame.insert(frame.end(), data.begin(), data.end());
    frame.push_back(0);
    put_checksums_right(frame);
    return frame;
}

/// The rows of all families' tables.
static const std::vector<const command *> &rows()
{
    static const std::vector<const command *> all = [] {
        moved_clock clock;
        controller board(clock);
        std::vector<const command *> found;
        for (const family_maker make : all_families())
            for (const command &row : make(board)->commands())
                found.push_back(&row);
        return found;
    }();
    return all;
}

/// An answer is a frame that a client takes as the one to its request.
static void check_answer(std::span<const uint8_t> request, std::span<const uint8_t> answer)
{
    check(answer.size() >= 8 && answer.size() <= 1024);
    check(checksum(answer.first(3)) == 0 && checksum(answer.subspan(3)) == 0);
    check(answer[0] == request[3] && answer[1] >> 2 == (request[1] >> 2) + 1);
    check(answer[3] == request[0] && answer[4] >> 2 == request[4] >> 2 && answer[5] == request[5]);
}

/// One controller, from its start to the end of the input.
class session
{
public:
    explicit session(byte_reader given) : left(given)
    {
        board.use_disk(disk().path);
        while (left.left() > 0)
            step();
    }

private:
    static const scratch_folder &disk()
    {
        static const scratch_folder own;
        return own;
    }

    void step()
    {
        switch (const uint8_t letter = left.u8()) {
        case 'd':
            return send(datagram(), false);
        case 'f':
            return send(datagram(), true);
        case 't':
            return clock.advance(std::chrono::seconds(1LL << (left.u8() & 31)));
        case 'c':
            return order();
        case 's':
            return save_and_load();
        default:
            const command &row = *rows()[left.u8() % rows().size()];
            const auto data = left.bytes(left.u8());
            send(frame_of(row.netfn, row.number, row.lead, data), true);
        }
    }

    std::vector<uint8_t> datagram()
    {
        const auto bytes = left.bytes(left.u8());
        return {bytes.begin(), bytes.end()};
    }

    void send(std::vector<uint8_t> request, bool make_right)
    {
        if (make_right)
            put_checksums_right(request);
        ipmi.take(request, 0, [&](const std::optional<delivery> &delivered) {
            if (delivered && !spoiled)
                check_answer(request, delivered->datagram);
        });
        clock.advance(std::chrono::milliseconds(0));  // what is to happen behind the answer
    }

    void order()
    {
        const auto rest = left.bytes(left.left());
        const std::string line(rest.begin(), std::find(rest.begin(), rest.end(), '\n'));
        left = byte_reader(rest.subspan(std::min(line.size() + 1, rest.size())));
        spoiled = true;  // a fault may be ordered
        orders.answer(line).dump(-1, ' ', false, json::error_handler_t::replace);
    }

    /// What was saved is what is loaded.
    void save_and_load()
    {
        const json saved = board.to_json();
        board.shown();
        board.from_json(json::parse(saved.dump()));
        check(board.to_json() == saved);
    }

    byte_reader left;
    moved_clock clock;
    controller board{clock};
    trace words{[](const std::string &line) { check(!line.empty()); }};
    fault_list faults;
    service ipmi{board, faults, words};
    control orders{board, faults, ipmi, nullptr};
    bool spoiled = false;
};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const session whole(byte_reader({data, size}));
    return 0;
}
