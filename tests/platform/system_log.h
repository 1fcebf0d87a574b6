/// A system's log for the library to send to, which the test reads.
#pragma once

#include "tests/platform/test_folder.h"

#include <sys/socket.h>
#include <sys/un.h>

inline sockaddr_un address_of(const std::string &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

class system_log
{
public:
    explicit system_log(const std::string &path) : there("ZENTRO_SYSLOG", path), address(address_of(path))
    {
        EXPECT_EQ(bind(fd, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    }
    ~system_log() { close(fd); }
    system_log(const system_log &) = delete;
    system_log &operator=(const system_log &) = delete;

    std::string next() const
    {
        char got[5000];
        const ssize_t length = recv(fd, got, sizeof got, MSG_DONTWAIT);
        return length < 0 ? "nothing" : std::string(got, size_t(length));
    }
    /// As somebody who sends faster than it reads.
    void fill() const
    {
        const int other = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        while (sendto(other, "x", 1, MSG_DONTWAIT, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 1) {
        }
        close(other);
    }

private:
    const variable there;
    const sockaddr_un address;
    const int fd = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
};
