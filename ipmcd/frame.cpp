#include "ipmcd/frame.h"

#include <numeric>

namespace ipmcd
{

static constexpr size_t header_size = 3;  // address, netFn and LUN, checksum
static constexpr size_t smallest_request = 7;

static uint8_t sum(std::span<const uint8_t> bytes) { return uint8_t(std::accumulate(bytes.begin(), bytes.end(), 0U)); }

static uint8_t checksum(std::span<const uint8_t> bytes) { return uint8_t(-sum(bytes)); }

frame_error parse(std::span<const uint8_t> datagram, request_frame &frame)
{
    if (datagram.size() < smallest_request)
        return frame_error::too_short;
    if (sum(datagram.first(header_size)) != 0 || sum(datagram.subspan(header_size)) != 0)
        return frame_error::bad_checksum;
    frame.responder = datagram[0];
    frame.netfn = datagram[1] >> 2;
    frame.lun = datagram[1] & 3;
    frame.requester = datagram[3];
    frame.sequence = datagram[4] >> 2;
    frame.requester_lun = datagram[4] & 3;
    frame.command = datagram[5];
    frame.data = datagram.subspan(6, datagram.size() - smallest_request);
    return frame.netfn % 2 == 0 ? frame_error::none : frame_error::not_a_request;
}

answer_frame::answer_frame(const request_frame &request, completion code_)
    : requester(request.requester), netfn(uint8_t(request.netfn + 1)), requester_lun(request.requester_lun),
      responder(request.responder), sequence(request.sequence), lun(request.lun), command(request.command), code(code_)
{
}

std::vector<uint8_t> answer_frame::encode() const
{
    std::vector<uint8_t> frame{requester, uint8_t(netfn << 2 | requester_lun)};
    frame.push_back(checksum(frame));
    frame.insert(frame.end(), {responder, uint8_t(sequence << 2 | lun), command, uint8_t(code)});
    frame.insert(frame.end(), data.begin(), data.end());
    frame.push_back(checksum(std::span(frame).subspan(header_size)));
    return frame;
}

}  // namespace ipmcd
