/// A template: what is a board's own of platform/platform.h, in little. The other calls are the same on any Linux and
/// are taken from platform/linux; docs/porting.md has the command that makes one library of both.
///
/// The messages work: one AF_UNIX datagram a frame, to a service at /run/zentro/2001. Put the board's own message
/// library in their place. The board's hardware is not there yet, and every call says so: write those that the board
/// has, and leave the others as they are.
#include "platform/linux/exported.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

// Message library ---------------------------------------------------------------------------------------------------

static constexpr unsigned ipmi_service = 2001;  // the tool sends to no other port
static constexpr size_t header = 32, max_payload = 1024;
static int channel = -1;  // to the service, once it is reached

/// Connected before it has an address, so that nobody but the service can answer. No wait is longer than two seconds.
static bool reach_service()
{
    const sockaddr_un service{AF_UNIX, "/run/zentro/2001"};
    const sockaddr own{AF_UNIX, {}};  // an address of the kernel's choice
    const timeval limit{2, 0};
    channel = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    return channel >= 0 && setsockopt(channel, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit) == 0 &&
           setsockopt(channel, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit) == 0 &&
           connect(channel, reinterpret_cast<const sockaddr *>(&service), sizeof service) == 0 &&
           bind(channel, &own, sizeof own.sa_family) == 0;
}

int ipc_no_listen_init(int) { return 0; }  // the first message opens the channel

int ipc_msg_send(const void *message, unsigned length, unsigned, unsigned port)
{
    if (port == ipmi_service && (channel >= 0 || reach_service()) &&
        send(channel, message, length, MSG_NOSIGNAL) == ssize_t(length))
        return 0;
    ipc_exit();  // the next message looks for the service anew
    return -1;
}

int ipc_msg_recv(void *message)
{
    auto *record = static_cast<unsigned char *>(message);
    const ssize_t got = channel >= 0 ? recv(channel, record + header, max_payload, MSG_TRUNC) : -1;
    if (got < 0)
        return -1;
    const size_t length = std::min(size_t(got), size_t(0xFFFF));  // the true one, of a message that was cut as well
    memset(record, 0, header);
    record[8] = static_cast<unsigned char>(length & 0xFF);
    record[9] = static_cast<unsigned char>(length >> 8);
    return 0;
}

void ipc_exit()
{
    if (channel >= 0)
        close(channel);
    channel = -1;
}

// Board access: none of it yet --------------------------------------------------------------------------------------

static constexpr int not_supported = -10;

int cpld_init() { return -1; }
int fpga_Init() { return -1; }
void cpld_clean() {}
void fpga_clean() {}
int get_mac_num() { return 0; }  // unknown: MAC_Num of /data/cli.conf counts
int i2c_write_read(int, int, const unsigned char *, int, unsigned char *, int, int) { return -ENODEV; }
int get_bios(const char *, unsigned) { return -ENODEV; }
int set_bios_owner(int) { return -ENODEV; }
int spi_flash_copy(const char *, unsigned, const char *, unsigned, unsigned, int, int) { return -ENODEV; }
int set_bios_print_flag(int) { return not_supported; }
