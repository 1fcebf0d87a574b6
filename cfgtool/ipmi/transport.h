/// One exchange with the controller's IPMI service.
#pragma once

#include "ipmi/request.h"

#include <algorithm>
#include <cstdint>
#include <span>

/// The response record: 32 bytes of message header (payload length, 16 bits little-endian, at bytes 8-9), then the
/// frame; completion code at byte 38, data from byte 39.
struct ipmi_rsp {
    uint8_t byte[1056];
};

/// Why the last exchange or lower routine failed. Zero at start, set by failures only, never cleared.
extern uint32_t g_error_code;
constexpr uint32_t error_not_sent = 0x40000000;     // five sends failed
constexpr uint32_t error_no_answer = 0x40000001;    // nothing came, or with a length of 0 or above 1024
constexpr uint32_t error_not_matched = 0x40000002;  // five answers came that belong to others
constexpr uint32_t error_memory = 0x50000000;       // there is none left

/// Sends one request and waits for the answer that belongs to it. At most five sends, 50 ms apart where the send failed
/// or the answer was another's, at once where none came.
///   request   left as it is; null returns 0 and nothing else
///   response  comes cleared
///   length    6 + the number of data bytes, 253 at the most
///   returns   1 an answer came, perhaps a refusal (completion code at byte 38); 0 none did, and g_error_code says why
int ipmi_send_recv(const ipmi_msg *request, ipmi_rsp *response, uint8_t length);

/// The same for the user-account commands, which may take the controller long: up to five waits after each send.
int ipmi_send_recv_patient(const ipmi_msg *request, ipmi_rsp *response, uint8_t length);

/// How an exchange ended, with the bytes received. Asked how before anything is read of it.
class ipmi_answer
{
public:
    enum class end : uint8_t { no_answer, refused, answered } how = end::no_answer;
    uint8_t netfn, command;         // of the request
    uint8_t completion = 0;         // refused: why
    std::span<const uint8_t> data;  // what follows the completion code

    bool ok() const { return how == end::answered; }
    bool refused() const { return how == end::refused; }
    bool unanswered() const { return how == end::no_answer; }
    /// A completion code with a meaning of its own is asked for by name.
    bool refused_with(uint8_t code) const { return refused() && completion == code; }
    /// What the failure sentences show. No answer: g_error_code; refused: netfn, command, selector and completion code,
    /// the first in the highest byte. The selector is a byte of the request that the command chooses, or 0.
    uint32_t error_code(uint8_t selector = 0) const;
    /// Those four bytes whatever happened; without an answer the completion code in it is 0.
    uint32_t composite_code(uint8_t selector = 0) const;

    ipmi_answer(const ipmi_answer &) = delete;  // `data` would still be the other's
    ipmi_answer &operator=(const ipmi_answer &) = delete;

private:
    using transport = int(const ipmi_msg *, ipmi_rsp *, uint8_t length);
    ipmi_answer(const ipmi_request &request, transport &send_and_receive);
    friend ipmi_answer exchange(const ipmi_request &request);
    friend ipmi_answer exchange_patient(const ipmi_request &request);

    ipmi_rsp response;
};

/// Sends a request as it was built. One that does not fit a frame ends as one that could not be sent.
ipmi_answer exchange(const ipmi_request &request);
/// The same for the user-account commands, as above.
ipmi_answer exchange_patient(const ipmi_request &request);

/// Takes the data of an answer apart in wire order. What lies beyond its end reads as 0.
class ipmi_reader
{
public:
    explicit ipmi_reader(std::span<const uint8_t> data) : next(data.data()), end(next + data.size()) {}

    uint8_t u8() { return next < end ? *next++ : uint8_t(0); }
    uint16_t u16le()
    {
        const uint8_t low = u8();
        return uint16_t(low | u8() << 8);
    }
    uint32_t u32le()
    {
        const uint16_t low = u16le();
        return low | uint32_t(u16le()) << 16;
    }
    /// As many bytes as there is room for.
    void bytes(std::span<uint8_t> to)
    {
        const size_t there = std::min(to.size(), left());
        std::fill(std::copy_n(next, there, to.begin()), to.end(), uint8_t(0));
        next += there;
    }
    ipmi_reader &skip(size_t count)
    {
        next += std::min(count, left());
        return *this;
    }

private:
    size_t left() const { return size_t(end - next); }

    const uint8_t *next, *const end;
};
