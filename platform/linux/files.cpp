#include "platform/linux/files.h"

#include "platform/linux/exported.h"
#include "platform/linux/system_log.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>

int open_regular(const char *path, off_t *size, int mode)
{
    if (path == nullptr)
        return -1;
    const int fd = open(path, mode | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat about;
    if (fd < 0)
        return -1;
    if (fstat(fd, &about) != 0 || !S_ISREG(about.st_mode)) {
        close(fd);
        errno = EINVAL;
        return -1;
    }
    *size = about.st_size;
    return fd;
}

bool same_file(int fd, const char *path)
{
    struct stat opened, named;
    return path != nullptr && fstat(fd, &opened) == 0 && stat(path, &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

/// As much of `count` bytes as there is before the end of the file; -1 = an error.
static ssize_t read_up_to(int fd, char *bytes, size_t count)
{
    size_t done = 0;
    while (done < count) {
        const ssize_t got = read(fd, bytes + done, count - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return -1;
        if (got == 0)
            break;
        done += size_t(got);
    }
    return ssize_t(done);
}

char *read_whole(const char *path, size_t limit, size_t *length)
{
    off_t size = 0;
    const descriptor file(open_regular(path, &size));
    if (file.fd < 0 || size < 0 || uintmax_t(size) > limit)
        return nullptr;

    auto *text = static_cast<char *>(malloc(size_t(size) + 1));
    const ssize_t got = text != nullptr ? read_up_to(file.fd, text, size_t(size)) : -1;
    if (got < 0) {
        free(text);
        return nullptr;
    }
    text[got] = '\0';
    *length = size_t(got);
    return text;
}

bool write_whole(int fd, const void *bytes, size_t count)
{
    const auto *next = static_cast<const char *>(bytes);
    while (count > 0) {
        const ssize_t done = write(fd, next, count);
        if (done < 0 && errno == EINTR)
            continue;
        if (done <= 0)
            return false;
        next += done;
        count -= size_t(done);
    }
    return true;
}

bool read_at(int fd, void *bytes, size_t count, off_t offset)
{
    return lseek(fd, offset, SEEK_SET) == offset && read_up_to(fd, static_cast<char *>(bytes), count) == ssize_t(count);
}

bool without_slashes(const char *path, char (&name)[PATH_MAX])
{
    if (path == nullptr)
        return false;
    size_t length = strlen(path);
    while (length > 0 && path[length - 1] == '/')
        --length;
    if (length == 0 || length >= sizeof name)
        return false;
    memcpy(name, path, length);
    name[length] = '\0';
    return true;
}

static const char *kind_of(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFDIR:
        return "folder";
    case S_IFIFO:
        return "FIFO";
    case S_IFSOCK:
        return "socket";
    default:
        return "device";
    }
}

/// Nothing is there, or something that a file of ours may replace. Anything else may have been put there to stop us:
/// the system's log gets to know who did.
static bool may_be_replaced(const char *path)
{
    struct stat about;
    if (lstat(path, &about) != 0)
        return errno == ENOENT;
    if (S_ISREG(about.st_mode) || S_ISLNK(about.st_mode))
        return true;
    char reason[64];
    snprintf(reason, sizeof reason, "not written: a %s of user %u is in the way", kind_of(about.st_mode), about.st_uid);
    log_warning(path, reason);
    return false;
}

static void warn_of_failure(const char *path)
{
    char reason[128];
    snprintf(reason, sizeof reason, "not written: %s", strerror(errno));
    log_warning(path, reason);
}

bool new_file::name_beside()
{
    const char *slash = strrchr(path, '/');
    const int folder = slash != nullptr ? int(slash - path) + 1 : 0;
    const int length =
        snprintf(temporary, sizeof temporary, "%.*s.zentro-%08x%08x", folder, path, vos_rand(), vos_rand());
    return length > 0 && size_t(length) < sizeof temporary;
}

new_file::new_file(const char *path_, mode_t mode) : path(path_)
{
    if (path == nullptr || strlen(path) >= PATH_MAX || !may_be_replaced(path))
        return;
    for (int attempt = 0; opened < 0 && attempt < 8; ++attempt) {
        if (!name_beside())
            return;
        opened = open(temporary, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
        if (opened < 0 && errno != EEXIST) {
            warn_of_failure(path);
            return;
        }
    }
}

new_file::~new_file()
{
    if (opened >= 0) {
        close(opened);
        unlink(temporary);
    }
}

bool new_file::take_place()
{
    if (opened < 0)
        return false;
    const bool written = close(opened) == 0;
    opened = -1;
    if (written && rename(temporary, path) == 0)
        return true;
    warn_of_failure(path);
    unlink(temporary);
    return false;
}
