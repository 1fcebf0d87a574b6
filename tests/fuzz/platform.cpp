#include "tests/fuzz/platform.h"

#include "platform/platform.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

fuzz_input input;
std::string call_results;

static std::string request;
static unsigned unanswered;  // requests since the end of the input

uint8_t fuzz_input::u8()
{
    if (left == 0)
        return 0;
    --left;
    return *next++;
}

std::string fuzz_input::bytes(size_t count)
{
    const size_t length = std::min(count, left);
    std::string taken(reinterpret_cast<const char *>(next), length);
    next += length;
    left -= length;
    return taken;
}

std::string fuzz_input::text()
{
    const size_t length = u8();
    return bytes(length).c_str();
}

std::string fuzz_input::line()
{
    const auto *feed = left > 0 ? static_cast<const uint8_t *>(memchr(next, '\n', left)) : nullptr;
    std::string taken = bytes(feed != nullptr ? size_t(feed - next) : left);
    u8();
    return taken;
}

void begin(const uint8_t *data, size_t size)
{
    static FILE *const nowhere = freopen("/dev/null", "w", stdout);
    check(nowhere != nullptr);
    input = {data, size};
    call_results.clear();
    request.clear();
    unanswered = 0;
}

void check(bool holds)
{
    if (!holds)
        abort();
}

static int call_result()
{
    if (call_results.empty())
        return 0;
    const int result = static_cast<signed char>(call_results.front()) - '0';
    call_results.erase(0, 1);
    return result;
}

// Messages ----------------------------------------------------------------------------------------------------------

int ipc_no_listen_init(int) { return call_result(); }
void ipc_exit() {}

/// A controller that has fallen silent is asked a few times more, not for ever.
int ipc_msg_send(const void *data, unsigned int length, unsigned int flags, unsigned int port)
{
    static constexpr unsigned most_unanswered = 2000;
    check(length >= 7 && flags == 0 && port == 2001);
    request.assign(static_cast<const char *>(data), length);
    check(input.left > 0 || ++unanswered < most_unanswered);
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
    frame[3] = uint8_t(request[0]);
    frame[4] = uint8_t(kind == stray ? request[4] + 4 : request[4]);
    frame[5] = uint8_t(request[5]);
    frame[6] = input.u8();
    const unsigned count = input.u8();
    for (unsigned n = 0; n < count; ++n)
        frame[7 + n] = input.u8();
    const unsigned length = kind == short_one ? input.u8() % 8U : kind == no_length ? input.u8() * 256U : 7 + count;
    record[8] = uint8_t(length);
    record[9] = uint8_t(length >> 8);
    return 0;
}

// Memory and time: the bounds of a fill or a copy are always right, and nobody sleeps -------------------------------

extern "C" {
int __real_vos_memset(void *to, size_t to_size, int value, size_t count);
int __wrap_vos_memset(void *to, size_t to_size, int value, size_t count)
{
    const int result = __real_vos_memset(to, to_size, value, count);
    check(result == 0);
    return result;
}

int __real_vos_memcpy(void *to, size_t to_size, const void *from, size_t count);
int __wrap_vos_memcpy(void *to, size_t to_size, const void *from, size_t count)
{
    const int result = __real_vos_memcpy(to, to_size, from, count);
    check(result == 0);
    return result;
}

void __wrap_vos_task_delay(unsigned int) {}
void __wrap_vos_task_delay_us(unsigned int) {}
unsigned int __wrap_vos_rand() { return input.u8(); }
}

// Programs and the log ----------------------------------------------------------------------------------------------

/// Only /bin/rm does its work.
int vos_system(const char *path, char *const argv[])
{
    check(argv[0] != nullptr && strcmp(path, argv[0]) == 0);
    if (strcmp(path, "/bin/rm") == 0 && argv[1] != nullptr)
        vos_rm_filepath(argv[2]);
    return call_result();
}
int vos_environ_system(const char *path, char *const argv[]) { return vos_system(path, argv); }

int vos_zentro_log(unsigned int, const char *user, const char *origin, const char *module, const char *record)
{
    check(strlen(user) < 64 && strlen(origin) < 64 && *module != '\0' && strlen(record) < 512);
    return call_result();
}

int tar_gzip_pack(const char *, const char *, const char *) { return call_result(); }

// Board access ------------------------------------------------------------------------------------------------------

int cpld_init() { return call_result(); }
int fpga_Init() { return call_result(); }
void cpld_clean() {}
void fpga_clean() {}
int get_mac_num() { return call_result(); }

int i2c_write_read(int, int, const unsigned char *, int, unsigned char *read, int read_length, int)
{
    memset(read, 'E', size_t(read_length));
    return call_result();
}

int get_bios(const char *, unsigned int) { return call_result(); }
int set_bios_owner(int) { return call_result(); }
int spi_flash_copy(const char *, unsigned int, const char *, unsigned int, unsigned int, int, int)
{
    return call_result();
}
int set_bios_print_flag(int) { return call_result(); }
