#include "ipmi/transport.h"

#include "platform/platform.h"
#include "ui/console.h"

uint32_t g_error_code;

static constexpr unsigned ipmi_service_port = 2001;
static constexpr uint8_t requester_address = 0x63;
static constexpr int max_attempts = 5;
static constexpr unsigned retry_delay_us = 50000;
static constexpr unsigned max_payload = 1024;
static constexpr unsigned payload_start = 32;  // of the response record
static constexpr unsigned completion_code = 38, data_start = 39;

static uint8_t next_sequence;  // counts all calls of both variants; the lower six bits go on the wire

/// The frame sent. It may hold a password, so nothing is left of it.
struct frame_copy {
    uint8_t byte[sizeof(ipmi_msg)];
    const uint8_t length;  // without the checksum at the end

    frame_copy(const ipmi_msg &request, uint8_t length_) : length(length_) { memcpy(byte, request.byte, length); }
    ~frame_copy() { vos_memset(byte, sizeof byte, 0, length + 1U); }
    frame_copy(const frame_copy &) = delete;
    frame_copy &operator=(const frame_copy &) = delete;
};

/// With it, the bytes covered add up to 0 modulo 256.
static uint8_t checksum(const uint8_t *begin, const uint8_t *end)
{
    uint8_t sum = 0;
    for (; begin < end; ++begin)
        sum = uint8_t(sum + *begin);
    return uint8_t(-sum);
}

static void complete_frame(frame_copy &frame)
{
    frame.byte[0] = 0x00;
    frame.byte[1] &= 0xFC;  // LUN 0
    frame.byte[2] = checksum(frame.byte, frame.byte + 2);
    frame.byte[3] = requester_address;
    frame.byte[4] = uint8_t((next_sequence++ & 0x3F) << 2);
    frame.byte[frame.length] = checksum(frame.byte + 3, frame.byte + frame.length);  // the first three add up to 0
}

static bool receive(ipmi_rsp &response, int waits)
{
    while (waits-- > 0)
        if (ipc_msg_recv(&response) != -1)
            return true;
    return false;
}

static bool belongs_to(const frame_copy &frame, const ipmi_rsp &response)
{
    const uint8_t *answer = response.byte + payload_start;
    return (answer[1] >> 2) - 1 == frame.byte[1] >> 2 && answer[5] == frame.byte[5] && answer[3] == frame.byte[0] &&
           answer[4] >> 2 == frame.byte[4] >> 2;
}

static unsigned payload_length(const ipmi_rsp &response) { return unsigned(response.byte[8] | response.byte[9] << 8); }

static int failed(uint32_t reason)
{
    g_error_code = reason;
    return 0;
}

static int send_recv(const ipmi_msg *request, ipmi_rsp *response, uint8_t length, int waits_per_send)
{
    if (request == nullptr)
        return 0;
    if (length >= sizeof(ipmi_msg))  // no room for the checksum
        return failed(error_not_sent);

    frame_copy frame(*request, length);
    complete_frame(frame);
    for (int attempt = 1;; ++attempt) {
        if (ipc_msg_send(frame.byte, length + 1U, 0, ipmi_service_port) != 0) {
            if (attempt == max_attempts)
                return failed(error_not_sent);
            vos_task_delay_us(retry_delay_us);
        } else if (!receive(*response, waits_per_send)) {
            if (attempt == max_attempts) {
                say("Select OutTime ");  // Kept: a blank behind it
                return failed(error_no_answer);
            }  // Kept: the one retry without a pause
        } else if (!belongs_to(frame, *response)) {
            if (attempt == max_attempts)
                return failed(error_not_matched);
            vos_memset(response, sizeof *response, 0,
                       sizeof *response);  // nothing of it behind the end of the next one
            vos_task_delay_us(retry_delay_us);
        } else if (const unsigned got = payload_length(*response); got == 0 || got > max_payload) {
            say("rsp->data_len err(0x%x) ", got);  // Kept: a blank behind it
            return failed(error_no_answer);
        } else {
            return 1;
        }
    }
}

int ipmi_send_recv(const ipmi_msg *request, ipmi_rsp *response, uint8_t length)
{
    return send_recv(request, response, length, 1);
}

int ipmi_send_recv_patient(const ipmi_msg *request, ipmi_rsp *response, uint8_t length)
{
    return send_recv(request, response, length, 5);
}

ipmi_answer::ipmi_answer(const ipmi_request &request, transport &send_and_receive)
    : netfn(request.netfn()), command(request.command())
{
    if (!request.fits()) {
        g_error_code = error_not_sent;
        return;
    }
    vos_memset(&response, sizeof response, 0, sizeof response);
    if (send_and_receive(&request.record, &response, request.length) != 1)
        return;

    completion = response.byte[completion_code];  // even where the length ends before it
    how = completion == 0 ? end::answered : end::refused;
    if (const unsigned past = payload_start + payload_length(response); past > data_start)
        data = std::span(response.byte).subspan(data_start, past - data_start);
}

ipmi_answer exchange(const ipmi_request &request) { return {request, ipmi_send_recv}; }

ipmi_answer exchange_patient(const ipmi_request &request) { return {request, ipmi_send_recv_patient}; }

uint32_t ipmi_answer::error_code(uint8_t selector) const
{
    return unanswered() ? g_error_code : composite_code(selector);
}

uint32_t ipmi_answer::composite_code(uint8_t selector) const
{
    return uint32_t(netfn) << 24 | uint32_t(command) << 16 | uint32_t(selector) << 8 | completion;
}
