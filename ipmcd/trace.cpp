#include "ipmcd/trace.h"

#include "ipmcd/text.h"

#include <algorithm>

namespace ipmcd
{

/// ": 00 3C (60 %)"; nothing when there are no data. The last `secret` bytes are masked.
static std::string with_data(std::span<const uint8_t> data, std::span<const uint8_t> decoded, data_words words,
                             size_t secret = 0)
{
    if (data.empty())
        return "";
    std::string line = ":";
    for (size_t i = 0; i < data.size(); i++)
        line += i < data.size() - secret ? text(" %02X", data[i]) : " **";
    if (words && !decoded.empty()) {
        byte_reader reader(decoded);
        line += " (" + words(reader) + ")";
    }
    return line;
}

/// Of a request that is too short or too long for its row the words would only guess.
static data_words words_of_request(const command *row, size_t length)
{
    return row && length >= row->length.smallest && length <= row->length.largest ? row->request_words : nullptr;
}

void trace::request(const request_frame &request, const command *row, size_t open) const
{
    if (!show)
        return;
    const size_t lead = row ? row->lead.size() : 0;
    show(text("request %02X/%02X %s", request.netfn, request.command, row ? row->name : "unknown") +
         with_data(request.data, request.data.first(open).subspan(lead),
                   words_of_request(row, request.data.size() - lead), request.data.size() - open));
}

void trace::fault(const ipmcd::fault &ordered) const
{
    if (show)
        show(text("fault   %s, %u left", fault_words(ordered).c_str(), ordered.left));
}

void trace::answer(const answer_frame &answer, const command *row) const
{
    if (!show)
        return;
    show(text("answer  %02X %s", uint8_t(answer.code), completion_words(answer.code).c_str()) +
         with_data(answer.data, answer.data, row ? row->answer_words : nullptr));
}

void trace::ignored(const char *why, std::span<const uint8_t> datagram) const
{
    constexpr size_t header_size = 6;  // up to the command
    if (show)
        show(text("ignored %s", why) +
             with_data(datagram, {}, nullptr, datagram.size() - std::min(datagram.size(), header_size)));
}

}  // namespace ipmcd
