/// The message library: AF_UNIX datagrams, one frame each, without the header that the received record carries. Port N
/// is the socket FOLDER/N; FOLDER is /run/zentro, or what the environment variable ZENTRO_IPC_DIR names.
///
/// The client's socket is connected to the port it sends to before it gets an address of its own, so at no moment can
/// anybody but that service put a message into it. FOLDER has to belong to root or to the caller, and nobody else may
/// write there: whoever may could put a service of his own in its place. Every wait is bounded: 2000 ms, or
/// ZENTRO_IPC_TIMEOUT_MS (1 to 60000).
#include "platform/linux/exported.h"
#include "platform/linux/settings.h"
#include "platform/linux/system_log.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <time.h>
#include <unistd.h>

static constexpr char default_folder[] = "/run/zentro";
static constexpr long default_timeout_ms = 2000, longest_timeout_ms = 60000;
static constexpr int most_tries = 4;  // a busy service may replace its socket again while this side connects to it
static constexpr size_t header_size = 32, max_payload = 1024;  // of the received record

static struct {
    bool started = false;
    int socket = -1;
    bool connected = false;  // and with an address of its own
    unsigned port = 0;       // that it is connected to
    long timeout_ms = default_timeout_ms;
} client;

static long timeout_wanted()
{
    const char *text = setting("ZENTRO_IPC_TIMEOUT_MS", nullptr);
    if (text == nullptr)
        return default_timeout_ms;
    char *end = nullptr;
    errno = 0;
    const long wanted = strtol(text, &end, 10);
    const bool good = errno == 0 && end != text && *end == '\0' && wanted >= 1 && wanted <= longest_timeout_ms;
    return good ? wanted : default_timeout_ms;
}

static void close_socket()
{
    if (client.socket >= 0)
        close(client.socket);
    client.socket = -1;
    client.connected = false;
}

/// A socket without an address: nothing can be sent to it yet.
static bool open_socket()
{
    close_socket();
    client.socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const timeval wait{client.timeout_ms / 1000, client.timeout_ms % 1000 * 1000};
    return client.socket >= 0 && setsockopt(client.socket, SOL_SOCKET, SO_RCVTIMEO, &wait, sizeof wait) == 0;
}

/// The kernel chooses the address, a name that is no file; the service answers to it.
static bool take_address()
{
    sockaddr own{};
    own.sa_family = AF_UNIX;
    return bind(client.socket, &own, sizeof own.sa_family) == 0;
}

/// Why a folder may hold sockets of somebody else; null = it does not, or is not there.
static const char *reason_against(const char *folder)
{
    struct stat about;
    if (stat(folder, &about) != 0)
        return nullptr;
    if (about.st_uid != 0 && about.st_uid != geteuid())
        return "not used for messages: it belongs to neither root nor the caller";
    return (about.st_mode & (S_IWGRP | S_IWOTH)) != 0 ? "not used for messages: others may write there" : nullptr;
}

/// Says why not, once.
static bool is_the_services(const char *folder)
{
    static bool said = false;
    const char *reason = reason_against(folder);
    if (reason != nullptr && !said)
        log_warning(folder, reason);
    said = said || reason != nullptr;
    return reason == nullptr;
}

static bool connect_to(unsigned port)
{
    sockaddr_un service{};
    service.sun_family = AF_UNIX;
    const char *folder = setting("ZENTRO_IPC_DIR", "");
    if (*folder == '\0')
        folder = default_folder;
    const int length = snprintf(service.sun_path, sizeof service.sun_path, "%s/%u", folder, port);
    if (length < 0 || size_t(length) >= sizeof service.sun_path || !is_the_services(folder))
        return false;

    if (connect(client.socket, reinterpret_cast<sockaddr *>(&service), sizeof service) != 0 || !take_address())
        return false;
    client.connected = true;
    client.port = port;
    return true;
}

/// A socket takes an address once in its life, so another port, or a service that came back, gets a new one.
static bool reach(unsigned port)
{
    if ((client.connected || client.socket < 0) && !open_socket())
        return false;
    return connect_to(port);
}

static int64_t now_ms()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

/// Waits until `event` or the moment `end`, whatever signals come. True = the event is there.
static bool wait_for(short event, int64_t end)
{
    for (;;) {
        const int64_t left = end - now_ms();
        pollfd socket{client.socket, event, 0};
        const int ready = left > 0 ? poll(&socket, 1, int(left)) : 0;
        if (ready >= 0 || errno != EINTR)
            return ready > 0;
    }
}

static bool send_now(const void *message, size_t length)
{
    return send(client.socket, message, length, MSG_DONTWAIT | MSG_NOSIGNAL) == ssize_t(length);
}

/// A service that does not read its messages is given the time-out, as one that does not answer is.
static bool send_bounded(const void *message, size_t length)
{
    if (send_now(message, length))
        return true;
    for (const int64_t end = now_ms() + client.timeout_ms; errno == EAGAIN && wait_for(POLLOUT, end);)
        if (send_now(message, length))
            return true;
    return false;
}

/// EPIPE: it reads no longer from the socket that this one is connected to, but perhaps from a new one at the same
/// path.
static bool service_went_away()
{
    return errno == ECONNREFUSED || errno == ECONNRESET || errno == ENOTCONN || errno == EPIPE;
}

int ipc_no_listen_init(int)  // the address of a client is the kernel's choice, so its port identity is not needed
{
    client.timeout_ms = timeout_wanted();
    client.started = open_socket();
    return client.started ? 0 : -1;
}

int ipc_msg_send(const void *message, unsigned length, unsigned flags, unsigned port)
{
    if (!client.started || flags != 0 || (message == nullptr && length != 0))
        return -1;
    bool reached = client.connected && client.port == port;
    for (int tries = 0; tries < most_tries; ++tries, reached = false) {
        if ((reached || reach(port)) && send_bounded(message, length))
            return 0;
        if (!service_went_away())
            return -1;
    }
    return -1;
}

/// The socket's own time-out does it in one call. A signal cuts that short; then the whole time-out starts again, once.
static ssize_t receive_bounded(void *payload)
{
    ssize_t got = recv(client.socket, payload, max_payload, MSG_TRUNC);
    if (got >= 0 || errno != EINTR)
        return got;
    const int64_t end = now_ms() + client.timeout_ms;
    do {
        if (!wait_for(POLLIN, end))
            return -1;
        got = recv(client.socket, payload, max_payload, MSG_TRUNC | MSG_DONTWAIT);
    } while (got < 0 && (errno == EINTR || errno == EAGAIN));
    return got;
}

int ipc_msg_recv(void *message)
{
    if (!client.connected || message == nullptr)  // nobody was asked, nobody can answer
        return -1;
    auto *record = static_cast<unsigned char *>(message);
    const ssize_t got = receive_bounded(record + header_size);
    if (got < 0)
        return -1;

    // What is longer than the record holds is cut, and its true length says so.
    const size_t length = got < 0xFFFF ? size_t(got) : 0xFFFF;
    memset(record, 0, header_size);
    record[8] = static_cast<unsigned char>(length & 0xFF);
    record[9] = static_cast<unsigned char>(length >> 8);
    return 0;
}

void ipc_exit()
{
    close_socket();
    client.started = false;
}
