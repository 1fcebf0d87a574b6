#include "ipmcd/service.h"

#include "ipmcd/text.h"

namespace ipmcd
{

/// The request carried out, or refused as ordered.
answer_frame service::answer_to(const request_frame &request, const std::optional<fault> &ordered)
{
    if (ordered && ordered->kind == fault_kind::code)
        return {request, completion(ordered->value)};
    if (ordered && ordered->kind == fault_kind::cancel)
        board.cancel_reservations();
    byte_writer data;
    answer_frame answer(request, board.execute(request.netfn, request.lun, request.command, request.data, data));
    if (answer.code == completion::ok)
        answer.data.assign(data.written().begin(), data.written().end());
    return answer;
}

std::optional<delivery> service::take(std::span<const uint8_t> datagram)
{
    request_frame request;
    switch (parse(datagram, request)) {
    case frame_error::too_short:
        too_short++;
        log.ignored("too short", datagram);
        return std::nullopt;
    case frame_error::bad_checksum:
        bad_checksum++;
        log.ignored("bad checksum", datagram);
        return std::nullopt;
    case frame_error::not_a_request:
        not_a_request++;
        log.ignored("not a request", datagram);
        return std::nullopt;
    case frame_error::none:
        break;
    }
    requests++;
    const command *row = board.row_of(request.netfn, request.command, request.data);
    log.request(request, row, board.open_bytes(request.netfn, request.command, request.data));
    const std::optional<fault> ordered = faults.take(request);
    if (ordered)
        log.fault(*ordered);
    if (ordered && ordered->kind == fault_kind::silence)
        return std::nullopt;

    answer_frame answer = answer_to(request, ordered);
    if (ordered)
        spoil(answer, ordered->kind);
    log.answer(answer, row);
    delivery made{.datagram = answer.encode()};
    if (ordered && ordered->kind == fault_kind::late)
        made.delay = std::chrono::milliseconds(ordered->value);
    if (ordered && (ordered->kind == fault_kind::bad_length || ordered->kind == fault_kind::length))
        made.datagram.resize(ordered->value);
    answers++;
    return made;
}

json service::counters() const
{
    return {{"requests", requests},
            {"answers", answers},
            {"undelivered", undelivered},
            {"dropped", dropped},
            {"renewals", renewals},
            {"ignored", {{"too_short", too_short}, {"bad_checksum", bad_checksum}, {"not_a_request", not_a_request}}}};
}

}  // namespace ipmcd
