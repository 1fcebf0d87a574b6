/// The IPMI service without its socket: a datagram comes in, perhaps one goes out.
#pragma once

#include "ipmcd/controller.h"
#include "ipmcd/faults.h"
#include "ipmcd/trace.h"

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace ipmcd
{

struct delivery {
    std::vector<uint8_t> datagram;
    std::chrono::milliseconds delay{0};
};

/// What is sent in answer to a datagram. None: nothing is, because it was no request or because a fault wants silence.
using answer_sink = std::function<void(std::optional<delivery>)>;

class service
{
public:
    service(controller &behind, fault_list &ordered, trace &shown) : board(behind), faults(ordered), log(shown) {}

    /// Calls `then` once: before this returns, or later when the request takes long.
    void take(std::vector<uint8_t> datagram, uint32_t account, answer_sink then);
    /// An answer could not be handed over: its client is gone, or takes nothing more.
    void note_undelivered() { undelivered++; }
    /// A request was not even looked at: too many of its sender's waited.
    void note_dropped() { dropped++; }
    /// The socket was replaced, because too many answers were not read.
    void note_renewal() { renewals++; }
    /// How many requests came, how many answers left, how many datagrams were no requests and why.
    json counters() const;

private:
    /// A request on its way to its answer.
    struct exchange {
        std::vector<uint8_t> datagram;
        answer_sink then;
        request_frame request{};
        const command *row = nullptr;
        std::optional<fault> ordered{};
    };

    bool is_request(exchange &it);
    void show_request(const exchange &it) const;
    void finish(const exchange &it, completion code, std::span<const uint8_t> data);

    controller &board;
    fault_list &faults;
    trace &log;
    uint64_t requests = 0;
    uint64_t answers = 0;
    uint64_t undelivered = 0;
    uint64_t dropped = 0;
    uint64_t renewals = 0;
    uint64_t too_short = 0;
    uint64_t bad_checksum = 0;
    uint64_t not_a_request = 0;
};

}  // namespace ipmcd
