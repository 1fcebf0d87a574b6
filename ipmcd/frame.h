/// IPMB frames: what a datagram on the socket holds.
///
///   request  responder address, netFn and LUN, checksum, requester address, sequence and requester LUN, command,
///            data, checksum
///   answer   requester address, netFn + 1 and requester LUN, checksum, responder address, sequence and LUN, command,
///            completion code, data, checksum
///
/// Each checksum makes the bytes it covers sum to 0: the first the two bytes before it, the second all from byte 3 on.
#pragma once

#include "ipmcd/completion.h"

#include <cstdint>
#include <span>
#include <vector>

namespace ipmcd
{

struct request_frame {
    uint8_t responder = 0;
    uint8_t netfn = 0;
    uint8_t lun = 0;
    uint8_t requester = 0;
    uint8_t sequence = 0;
    uint8_t requester_lun = 0;
    uint8_t command = 0;
    std::span<const uint8_t> data;
};

/// Why a datagram is no request: the controller keeps silent on those, as it would on its bus.
enum class frame_error { none, too_short, bad_checksum, not_a_request };

/// Takes a datagram apart. `frame.data` points into it.
frame_error parse(std::span<const uint8_t> datagram, request_frame &frame);

struct answer_frame {
    /// The frame that answers `request`, without data.
    answer_frame(const request_frame &request, completion code);
    std::vector<uint8_t> encode() const;

    uint8_t requester;
    uint8_t netfn;
    uint8_t requester_lun;
    uint8_t responder;
    uint8_t sequence;
    uint8_t lun;
    uint8_t command;
    completion code;
    std::vector<uint8_t> data;
};

}  // namespace ipmcd
