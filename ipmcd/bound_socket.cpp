#include "ipmcd/bound_socket.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace ipmcd
{

descriptor::descriptor(descriptor &&other) noexcept : number(std::exchange(other.number, -1)) {}

descriptor &descriptor::operator=(descriptor &&other) noexcept
{
    std::swap(number, other.number);
    return *this;
}

descriptor::~descriptor()
{
    if (number >= 0)
        close(number);
}

[[noreturn]] static void refuse(const std::filesystem::path &path, const std::string &why)
{
    throw std::runtime_error(path.string() + ": " + why);
}

static sockaddr_un address_of(const std::filesystem::path &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string &name = path.native();
    if (name.empty() || name.size() >= sizeof address.sun_path)
        refuse(path, "a socket's path has 1 to " + std::to_string(sizeof address.sun_path - 1) + " characters");
    name.copy(address.sun_path, name.size());
    return address;
}

/// Whoever may write in the folder of a socket can put another one in its place.
static void check_folder_of(const std::filesystem::path &path)
{
    const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
    struct stat about {
    };
    if (stat(folder.c_str(), &about) != 0)
        return;  // whoever goes there says why it failed
    if (about.st_uid != 0 && about.st_uid != geteuid())
        refuse(folder, "a folder for sockets has to be yours or root's, and this one is not");
    if ((about.st_mode & (S_IWGRP | S_IWOTH)) != 0)
        refuse(folder, "others may write in this folder, which is to hold sockets; it needs mode 0755");
}

void make_socket_folder(const std::filesystem::path &folder)
{
    const mode_t before = umask(022);
    std::error_code problem;
    std::filesystem::create_directories(folder, problem);
    umask(before);
    if (problem)
        refuse(folder, problem.message());
}

static descriptor open_socket(const std::filesystem::path &path, int type)
{
    descriptor opened(socket(AF_UNIX, type | SOCK_CLOEXEC, 0));
    if (opened.get() < 0)
        refuse(path, strerror(errno));
    return opened;
}

static int connect_to(const descriptor &from, const sockaddr_un &address)
{
    return connect(from.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address);
}

/// The holder of a lock removes its file when it ends. A lock on a file that is no longer at the path protects nothing.
static bool is_still_at(const std::filesystem::path &path, const descriptor &opened)
{
    struct stat at_path {
    }, at_descriptor{};
    return stat(path.c_str(), &at_path) == 0 && fstat(opened.get(), &at_descriptor) == 0 &&
           at_path.st_ino == at_descriptor.st_ino && at_path.st_dev == at_descriptor.st_dev;
}

static descriptor take_lock(const std::filesystem::path &path, const std::filesystem::path &lock_path)
{
    for (;;) {
        descriptor opened(open(lock_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
        if (opened.get() < 0)
            refuse(lock_path, strerror(errno));
        if (flock(opened.get(), LOCK_EX | LOCK_NB) != 0)
            refuse(path, "another ipmcd is running there");
        if (is_still_at(lock_path, opened))
            return opened;
    }
}

/// Removes a socket that nobody listens on any more.
static void remove_stale(const std::filesystem::path &path, int type, const sockaddr_un &address)
{
    struct stat there {
    };
    if (lstat(path.c_str(), &there) != 0)
        return;
    if (!S_ISSOCK(there.st_mode))
        refuse(path, "there is something that is no socket");
    if (connect_to(open_socket(path, type), address) == 0)
        refuse(path, "another program is serving it");
    if (errno != ECONNREFUSED || unlink(path.c_str()) != 0)
        refuse(path, strerror(errno));
}

/// From the mode of the socket the file at the path gets its own, less what the umask takes: right from the first
/// moment. Datagrams come with their sender's account.
static descriptor bind_socket(const std::filesystem::path &path, int type, mode_t mode)
{
    const sockaddr_un address = address_of(path);
    descriptor made = open_socket(path, type | SOCK_NONBLOCK);
    const int yes = 1;
    if ((type == SOCK_DGRAM && setsockopt(made.get(), SOL_SOCKET, SO_PASSCRED, &yes, sizeof yes) != 0) ||
        fchmod(made.get(), mode) != 0 ||
        bind(made.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        refuse(path, strerror(errno));
    chmod(path.c_str(), mode);  // whatever the umask was
    return made;
}

bound_socket::bound_socket(std::filesystem::path path_, int type_, mode_t mode_)
    : path(std::move(path_)), lock_path(path.native() + ".lock"), type(type_), mode(mode_)
{
    const sockaddr_un address = address_of(path);
    check_folder_of(path);
    lock = take_lock(path, lock_path);
    try {
        remove_stale(path, type, address);
        socket = std::make_shared<const descriptor>(bind_socket(path, type, mode));
    } catch (...) {
        unlink(lock_path.c_str());
        throw;
    }
}

/// The new one is bound beside the path, under a name that is no longer, and renamed.
void bound_socket::renew()
{
    const auto beside = path.parent_path() / "next";
    remove_stale(beside, type, address_of(beside));
    auto made = std::make_shared<const descriptor>(bind_socket(beside, type, mode));
    if (rename(beside.c_str(), path.c_str()) != 0) {
        const int why = errno;
        unlink(beside.c_str());
        refuse(path, strerror(why));
    }
    shutdown(socket->get(), SHUT_RD);
    socket = std::move(made);
}

bound_socket::~bound_socket()
{
    unlink(path.c_str());
    unlink(lock_path.c_str());
}

descriptor connect_stream(const std::filesystem::path &path)
{
    const sockaddr_un address = address_of(path);
    check_folder_of(path);
    descriptor opened = open_socket(path, SOCK_STREAM);
    if (connect_to(opened, address) != 0)
        refuse(path, strerror(errno));
    return opened;
}

}  // namespace ipmcd
