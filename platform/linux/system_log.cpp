#include "platform/linux/system_log.h"

#include "platform/linux/files.h"
#include "platform/linux/settings.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

static constexpr char default_socket[] = "/dev/log";
static constexpr size_t name_limit = 1024, reason_limit = 256;
static constexpr timeval one_wait{0, 100000};
static constexpr int most_waits = 10;

void log_line::add(const char *text, size_t count)
{
    memcpy(bytes + used, text, count);
    used += count;
}

void log_line::add(const char *text) { add(text, strlen(text)); }

static bool needs_escape(unsigned char byte) { return byte < 0x20 || byte > 0x7E || byte == '\\'; }

void log_line::add_escaped(const char *text, size_t limit)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    const size_t end = used + limit - (sizeof cut_mark - 1);
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        if (used + (needs_escape(byte) ? 4 : 1) > end)
            return add(cut_mark);
        if (needs_escape(byte)) {
            const char escaped[] = {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
            add(escaped, sizeof escaped);
        } else {
            add(*text);
        }
    }
}

/// A queue that somebody keeps full must not swallow a record at once, nor hold the caller up for long.
static bool send_bounded(int fd, const char *message, size_t length, const sockaddr_un &to)
{
    const auto send = [&](int flags) {
        return sendto(fd, message, length, flags | MSG_NOSIGNAL, reinterpret_cast<const sockaddr *>(&to), sizeof to) ==
               ssize_t(length);
    };
    if (send(MSG_DONTWAIT))
        return true;
    if (errno != EAGAIN || setsockopt(fd, SOL_SOCKET, SO_SNDTIMEO, &one_wait, sizeof one_wait) != 0)
        return false;
    for (int waits = 0; waits < most_waits && (errno == EAGAIN || errno == EINTR); ++waits)
        if (send(0))
            return true;
    return false;
}

bool send_to_system_log(const char *message, size_t length)
{
    const disk_path usual(default_socket);
    const char *path = setting("ZENTRO_SYSLOG", usual.text());
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (*path == '\0' || strlen(path) >= sizeof address.sun_path)
        return false;
    memcpy(address.sun_path, path, strlen(path));
    const descriptor socket_(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    return socket_.fd >= 0 && send_bounded(socket_.fd, message, length, address);
}

void log_warning(const char *name, const char *reason)
{
    const int error = errno;
    log_line text;
    text.add(warning_head);
    text.add_escaped(name, name_limit);
    text.add(": ");
    text.add_escaped(reason, reason_limit);
    send_to_system_log(text.bytes, text.used);
    errno = error;
}
