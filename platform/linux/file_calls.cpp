/// The files of the OS abstraction.
#include "platform/linux/exported.h"
#include "platform/linux/files.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

long vos_get_file_length(const char *path)
{
    struct stat about;
    if (path == nullptr || stat(path, &about) != 0 || !S_ISREG(about.st_mode) || about.st_size > LONG_MAX)
        return -1;
    return long(about.st_size);
}

int vos_get_file_name(const char *path, char *name, size_t name_size)
{
    char whole[PATH_MAX];
    if (!without_slashes(path, whole))
        return -1;
    const char *slash = strrchr(whole, '/');
    return vos_strncpy(name, name_size, slash != nullptr ? slash + 1 : whole, sizeof whole);
}

// Copying -----------------------------------------------------------------------------------------------------------

static bool copy_all(int from, int to)
{
    for (;;) {
        const ssize_t done = sendfile(to, from, nullptr, size_t(1) << 30);
        if (done == 0)
            return true;
        if (done < 0 && errno != EINTR)
            return false;
    }
}

int vos_file_copy(const char *to, const char *from)
{
    off_t size = 0;
    const descriptor source(open_regular(from, &size));
    struct stat about;
    if (source.fd < 0 || same_file(source.fd, to) || fstat(source.fd, &about) != 0)
        return -1;
    new_file target(to, about.st_mode & 0777);
    return target.fd() >= 0 && copy_all(source.fd, target.fd()) && target.take_place() ? 0 : -1;
}

// Removing ----------------------------------------------------------------------------------------------------------

/// Every folder on the way down holds a descriptor. What lies deeper than this is first moved up into the top folder.
static constexpr int deepest = 64;
/// A folder in which somebody goes on making files is given up.
static constexpr int most_passes = 1000;

static bool remove_entry(int folder, const char *name, int top, int depth);

static bool is_dot(const char *name) { return strcmp(name, ".") == 0 || strcmp(name, "..") == 0; }

static bool move_up(int folder, const char *name, int top)
{
    char moved[32];
    snprintf(moved, sizeof moved, ".removed-%08x%08x", vos_rand(), vos_rand());
    return renameat(folder, name, top, moved) == 0;
}

/// One pass over a folder. False: something could not be removed.
static bool empty_folder(int parent, const char *name, int top, int depth)
{
    const int folder = openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    DIR *list = folder >= 0 ? fdopendir(folder) : nullptr;
    if (list == nullptr) {
        if (folder >= 0)
            close(folder);
        return false;
    }
    bool all = true;
    while (const dirent *entry = readdir(list))
        if (!is_dot(entry->d_name) && !remove_entry(folder, entry->d_name, top < 0 ? folder : top, depth + 1))
            all = false;
    closedir(list);
    return all;
}

/// `top` is the folder that the caller asked for, -1 when this entry is it.
static bool remove_entry(int folder, const char *name, int top, int depth)
{
    if (unlinkat(folder, name, 0) == 0)
        return true;
    if (errno != EISDIR && errno != EPERM)
        return false;
    if (depth > deepest)
        return move_up(folder, name, top);

    // A pass leaves behind what was moved up meanwhile and what the system did not list while entries went.
    for (int pass = 0; pass < most_passes; ++pass) {
        if (unlinkat(folder, name, AT_REMOVEDIR) == 0)
            return true;
        if ((errno != ENOTEMPTY && errno != EEXIST) || !empty_folder(folder, name, top, depth))
            return false;
    }
    return false;
}

int vos_rm_filepath(const char *path)
{
    char name[PATH_MAX];
    if (!without_slashes(path, name))
        return -1;
    const char *slash = strrchr(name, '/');
    if (is_dot(slash != nullptr ? slash + 1 : name))
        return -1;
    return remove_entry(AT_FDCWD, name, -1, 0) ? 0 : -1;
}
