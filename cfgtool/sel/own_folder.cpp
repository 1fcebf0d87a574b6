#include "sel/own_folder.h"

#include "platform/platform.h"
#include "system/files.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

static constexpr mode_t writable_by_others = S_IWGRP | S_IWOTH;

static bool is_ours(const char *name)
{
    struct stat about;
    return lstat(name, &about) == 0 && S_ISDIR(about.st_mode) && about.st_uid == geteuid() &&
           (about.st_mode & writable_by_others) == 0;
}

bool make_folder(const own_folder &folder)
{
    static constexpr int most_attempts = 5;  // somebody may be quicker, but hardly every time
    for (int attempt = 0; attempt < most_attempts; ++attempt) {
        if (mkdir(folder.path, 0777) == 0 || is_ours(folder.name))
            return true;
        remove_folder(folder);
    }
    return false;
}

bool take_back_folder(const char *name)
{
    const int folder = open_file(name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0)
        return errno == ENOENT;
    struct stat about;
    const bool taken = fstat(folder, &about) == 0 && fchown(folder, geteuid(), gid_t(-1)) == 0 &&
                       fchmod(folder, about.st_mode & 07777 & ~writable_by_others) == 0;
    close(folder);
    return taken && is_ours(name);  // Until then its owner could still have put another in its place.
}

void remove_folder(const own_folder &folder)
{
    unlink(folder.name);
    vos_rm_filepath(folder.path);
}

void remove_anything(const char *path)
{
    if (unlink(path) != 0 && errno != ENOENT)
        vos_rm_filepath(path);
}
