/// One Get request to the controller, and what comes back.
#pragma once

#include "ipmi/request.h"
#include "ipmi/transport.h"

#include <cstdint>
#include <span>

/// How long an answer has to be. In front of the value are bytes that every answer of its kind has.
struct answer_shape {
    uint8_t before, value;
};

/// What a request has brought. Owns the bytes.
class reply
{
public:
    bool ok() const { return how == end::answered; }
    /// The controller has no such thing.
    bool has_none() const { return how == end::has_none; }
    /// The value, and perhaps more than was asked for.
    std::span<const uint8_t> value() const { return std::span(data).subspan(before, size - before); }
    /// What is in front of the value.
    uint8_t header(size_t at) const { return data[at]; }
    uint8_t value(size_t at) const { return data[before + at]; }
    ipmi_reader read() const { return ipmi_reader(value()); }

    // What the answer says beside the value may say that it is not the one.
    void set_none() { how = end::has_none; }
    void set_failed() { how = end::failed; }

private:
    friend reply ask(const ipmi_request &, answer_shape, const char *, uint8_t);

    enum class end : uint8_t { answered, has_none, failed } how = end::failed;
    uint16_t before = 0, size = 0;
    uint8_t data[1024];
};

constexpr uint8_t parameter_not_supported = 0x80;  // IPMI 2.0, of boot options and LAN parameters

/// Sends a request. What else comes than an answer of that shape is a complaint about `what`, a path in the document. A
/// refusal with `none_code` is no failure: the controller has no such thing. When several requests in a row have no
/// answer the controller is taken to be gone, and nothing more is sent.
reply ask(const ipmi_request &request, answer_shape shape, const char *what, uint8_t none_code = 0);

/// Whether the value has so many bytes, where only the answer itself says how many it needs. False = it was complained
/// of.
bool has_bytes(const reply &got, size_t count, const char *what);

/// Nothing more will be answered in this run.
bool controller_is_gone();

/// A path with numbers or names in it, good until the next one.
[[gnu::format(printf, 1, 2)]] const char *path(const char *format, ...);
