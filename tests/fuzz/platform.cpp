#include "tests/fuzz/platform.h"

#include "platform/platform.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

fuzz_input input;

static std::vector<uint8_t> request;

uint8_t fuzz_input::u8()
{
    if (left == 0)
        return 0;
    --left;
    return *next++;
}

std::string fuzz_input::text()
{
    const size_t length = std::min<size_t>(u8(), left);
    std::string taken(reinterpret_cast<const char *>(next), length);
    next += length;
    left -= length;
    return taken.c_str();
}

void begin(const uint8_t *data, size_t size)
{
    static FILE *const nowhere = freopen("/dev/null", "w", stdout);
    if (nowhere == nullptr)
        abort();
    input = {data, size};
    request.clear();
}

// Messages ----------------------------------------------------------------------------------------------------------

int ipc_msg_send(const void *data, unsigned int length, unsigned int, unsigned int)
{
    const auto *bytes = static_cast<const uint8_t *>(data);
    request.assign(bytes, bytes + length);
    return 0;
}

/// An answer is kind, completion code, number of data bytes, data. Most kinds belong to the request, so that the search
/// gets past the transport.
int ipc_msg_recv(void *message)
{
    static constexpr uint8_t silence = 0xFF, stray = 0xFE, short_one = 0xFD, no_length = 0xFC;
    if (input.left == 0)
        return -1;
    const uint8_t kind = input.u8();
    if (kind == silence)
        return -1;
    auto *record = static_cast<uint8_t *>(message);
    uint8_t *frame = record + 32;
    frame[1] = uint8_t((request[1] & 0xFC) + 4);
    frame[3] = request[0];
    frame[4] = kind == stray ? uint8_t(request[4] + 4) : request[4];
    frame[5] = request[5];
    frame[6] = input.u8();
    const unsigned count = input.u8();
    for (unsigned n = 0; n < count; ++n)
        frame[7 + n] = input.u8();
    const unsigned length = kind == short_one ? input.u8() % 8U : kind == no_length ? input.u8() * 256U : 7 + count;
    record[8] = uint8_t(length);
    record[9] = uint8_t(length >> 8);
    return 0;
}

// The rest: what the routines under test call, with results from the input where they matter
// ---------------------------

int vos_memset(void *to, size_t to_size, int value, size_t count)
{
    if (count > to_size)
        abort();
    memset(to, value, count);
    return 0;
}

int vos_memcpy(void *to, size_t to_size, const void *from, size_t count)
{
    if (count > to_size)
        abort();
    memcpy(to, from, count);
    return 0;
}

void vos_task_delay(unsigned int) {}
void vos_task_delay_us(unsigned int) {}
unsigned int vos_rand() { return input.u8(); }
