/// A listening socket in the file system that only one process at a time has.
#pragma once

#include <filesystem>
#include <memory>
#include <sys/types.h>

namespace ipmcd
{

/// A descriptor that closes itself.
class descriptor
{
public:
    explicit descriptor(int fd = -1) : number(fd) {}
    descriptor(descriptor &&other) noexcept;
    descriptor &operator=(descriptor &&other) noexcept;
    ~descriptor();
    int get() const { return number; }

private:
    int number;
};

/// Makes a folder, and those above it, that any account can reach sockets in, whatever the umask. One that is there is
/// left as it is. Throws std::runtime_error, with the folder in its text.
void make_socket_folder(const std::filesystem::path &folder);

/// Non-blocking, bound to a path. Holds a lock on "<path>.lock" while it lives; takes over what a dead process left
/// behind and removes both files in the end.
class bound_socket
{
public:
    /// `type` is SOCK_DGRAM or SOCK_STREAM, `mode` who may connect. Throws std::runtime_error, with the path in its
    /// text, when somebody alive has the path, when it is no socket, when others may write in its folder or own it, or
    /// when it cannot be bound.
    bound_socket(std::filesystem::path path, int type, mode_t mode);
    ~bound_socket();
    bound_socket(const bound_socket &) = delete;
    bound_socket &operator=(const bound_socket &) = delete;

    int get() const { return socket->get(); }
    /// The same, for whoever needs it to stay open.
    std::shared_ptr<const descriptor> share() const { return socket; }
    /// Puts a new socket in the place of this one, at no moment without one. The old one takes nothing more: who is
    /// connected to it gets EPIPE. What already waits in it can be read, by who shares it, and answered. Throws as
    /// above, and leaves the old one as it is.
    void renew();

private:
    std::filesystem::path path;
    std::filesystem::path lock_path;
    int type;
    mode_t mode;
    descriptor lock;
    std::shared_ptr<const descriptor> socket;
};

/// Connects a stream socket. Throws std::runtime_error with the path in its text, also when others may write in its
/// folder or own it.
descriptor connect_stream(const std::filesystem::path &path);

}  // namespace ipmcd
