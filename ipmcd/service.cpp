#include "ipmcd/service.h"

#include "ipmcd/text.h"

namespace ipmcd
{

bool service::is_request(exchange &it)
{
    switch (parse(it.datagram, it.request)) {
    case frame_error::too_short:
        too_short++;
        log.ignored("too short", it.datagram);
        return false;
    case frame_error::bad_checksum:
        bad_checksum++;
        log.ignored("bad checksum", it.datagram);
        return false;
    case frame_error::not_a_request:
        not_a_request++;
        log.ignored("not a request", it.datagram);
        return false;
    case frame_error::none:
        break;
    }
    return true;
}

void service::take(std::vector<uint8_t> datagram, uint32_t account, answer_sink then)
{
    const auto it = std::make_shared<exchange>(exchange{.datagram = std::move(datagram), .then = std::move(then)});
    if (!is_request(*it))
        return it->then(std::nullopt);
    requests++;
    const request_frame &request = it->request;
    it->row = board.row_of(request.netfn, request.command, request.data);
    it->ordered = faults.take(request);
    const auto kind = it->ordered ? std::optional(it->ordered->kind) : std::nullopt;
    if (kind == fault_kind::silence) {
        show_request(*it);
        return it->then(std::nullopt);
    }
    if (kind == fault_kind::code)
        return finish(*it, completion(it->ordered->value), {});
    if (kind == fault_kind::cancel)
        board.cancel_reservations();
    board.execute(request, account,
                  [this, it](completion code, std::span<const uint8_t> data) { finish(*it, code, data); });
}

/// It is shown when its answer is there, so the two stand together whatever others ask meanwhile.
void service::show_request(const exchange &it) const
{
    const request_frame &request = it.request;
    log.request(request, it.row, board.open_bytes(request.netfn, request.command, request.data));
    if (it.ordered)
        log.fault(*it.ordered);
}

void service::finish(const exchange &it, completion code, std::span<const uint8_t> data)
{
    answer_frame answer(it.request, code);
    if (code == completion::ok)
        answer.data.assign(data.begin(), data.end());
    if (it.ordered)
        spoil(answer, it.ordered->kind);
    show_request(it);
    log.answer(answer, it.row);
    delivery made{.datagram = answer.encode()};
    if (it.ordered && it.ordered->kind == fault_kind::late)
        made.delay = std::chrono::milliseconds(it.ordered->value);
    if (it.ordered && (it.ordered->kind == fault_kind::bad_length || it.ordered->kind == fault_kind::length))
        made.datagram.resize(it.ordered->value);
    answers++;
    it.then(std::move(made));
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
