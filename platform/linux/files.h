/// Files as this library handles them: opened without surprises, read whole or not at all, written whole or not at all.
#pragma once

#include <climits>
#include <cstddef>
#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

struct descriptor {
    const int fd;

    explicit descriptor(int opened) : fd(opened) {}
    ~descriptor()
    {
        if (fd >= 0)
            close(fd);
    }
    descriptor(const descriptor &) = delete;
    descriptor &operator=(const descriptor &) = delete;
};

/// Opens a regular file; links are followed. -1 = it cannot be opened, errno tells why, or is something else: a FIFO or
/// a device never blocks the caller.
///   size  of the file
int open_regular(const char *path, off_t *size, int mode = O_RDONLY);

/// Whether a path leads to a file that is open already.
bool same_file(int fd, const char *path);

/// The contents of a regular file, a 0 byte behind them, for the caller to free. Null: no such file, it is something
/// else, it is longer than `limit`, or memory is short.
char *read_whole(const char *path, size_t limit, size_t *length);

/// Writes all of it. False: not all of it was written.
bool write_whole(int fd, const void *bytes, size_t count);

/// Reads exactly `count` bytes at `offset`. False: there are less, or they cannot be read.
bool read_at(int fd, void *bytes, size_t count, off_t offset);

/// Without the slashes at its end, which would have the system follow a link of that name. False: nothing is left, or
/// it does not fit PATH_MAX.
bool without_slashes(const char *path, char (&name)[PATH_MAX]);

/// A new file that takes its place under `path` only once it is whole. Until then it stands beside it under a name of
/// its own, and is removed when it never gets there. A link at `path` is replaced, not followed; a folder, a device or
/// the like is left alone and refused.
class new_file
{
public:
    new_file(const char *path, mode_t mode);
    ~new_file();
    new_file(const new_file &) = delete;
    new_file &operator=(const new_file &) = delete;

    /// To write to; -1 = it could not be made.
    int fd() const { return opened; }
    /// Closes it and gives it its name. False: it could not be, and nothing has changed at `path`.
    bool take_place();

private:
    bool name_beside();

    const char *const path;
    int opened = -1;
    char temporary[PATH_MAX];
};
