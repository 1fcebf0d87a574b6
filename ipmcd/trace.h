/// The traffic in words.
#pragma once

#include "ipmcd/family.h"
#include "ipmcd/faults.h"
#include "ipmcd/frame.h"

#include <functional>
#include <string>

namespace ipmcd
{

class trace
{
public:
    using sink = std::function<void(const std::string &line)>;

    /// Without a sink nothing is decoded. Lines come without a line end.
    explicit trace(sink take = nullptr) : show(std::move(take)) {}

    /// `row` is null for a request that no family knows. `open` counts the data bytes that may show; the rest is
    /// masked.
    void request(const request_frame &request, const command *row, size_t open) const;
    void fault(const fault &ordered) const;
    void answer(const answer_frame &answer, const command *row) const;
    /// Shows the header only: a damaged frame does not say whether it carries a secret.
    void ignored(const char *why, std::span<const uint8_t> datagram) const;

private:
    sink show;
};

}  // namespace ipmcd
