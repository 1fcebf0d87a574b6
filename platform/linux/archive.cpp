/// Archives, made by the system's tar. It is given the folder as its own, the names as a list on its input and the
/// archive as its output, so no name is ever a word of a command line.
#include "platform/linux/exported.h"
#include "platform/linux/files.h"
#include "platform/linux/processes.h"

#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

/// Regular files only: no link is followed, and neither a FIFO nor a device is opened.
static bool is_wanted(int folder, const char *name, const char *pattern)
{
    struct stat about;
    return fnmatch(pattern, name, FNM_PERIOD) == 0 && fstatat(folder, name, &about, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISREG(about.st_mode);
}

static int by_name(const dirent **left, const dirent **right) { return strcmp((*left)->d_name, (*right)->d_name); }

/// Writes the names, a 0 byte behind each, in the order of the alphabet.
static bool list_files(int folder, const char *pattern, int list)
{
    dirent **entries = nullptr;
    const int count = scandirat(folder, ".", &entries, nullptr, by_name);
    bool good = count >= 0;
    for (int n = 0; n < count; ++n) {
        const char *name = entries[n]->d_name;
        if (good && is_wanted(folder, name, pattern))
            good = write_whole(list, name, strlen(name) + 1);
        free(entries[n]);
    }
    free(entries);
    return good && lseek(list, 0, SEEK_SET) == 0;
}

static bool set_up(posix_spawn_file_actions_t *actions, int folder, int list, int archive)
{
    return posix_spawn_file_actions_addfchdir_np(actions, folder) == 0 &&
           posix_spawn_file_actions_adddup2(actions, list, STDIN_FILENO) == 0 &&
           posix_spawn_file_actions_adddup2(actions, archive, STDOUT_FILENO) == 0 &&
           // The screen is the tool's; that it failed is told by the exit status.
           posix_spawn_file_actions_addopen(actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0) == 0;
}

static bool run_tar(int folder, int list, int archive)
{
    static const char *const words[] = {"/bin/tar", "-czf", "-", "--null", "--no-recursion", "-T", "-", nullptr};
    posix_spawn_file_actions_t actions;
    if (posix_spawn_file_actions_init(&actions) != 0)
        return false;
    const bool packed = set_up(&actions, folder, list, archive) &&
                        run_program(words[0], const_cast<char *const *>(words), plain_environment, &actions) == 0;
    posix_spawn_file_actions_destroy(&actions);
    return packed;
}

int tar_gzip_pack(const char *directory, const char *pattern, const char *archive)
{
    char name[PATH_MAX];
    if (pattern == nullptr || archive == nullptr || !without_slashes(directory, name))
        return -1;
    const descriptor folder(open(name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    const descriptor list(memfd_create("names", MFD_CLOEXEC));
    if (folder.fd < 0 || list.fd < 0 || !list_files(folder.fd, pattern, list.fd))
        return -1;
    new_file packed(archive, 0666);
    return packed.fd() >= 0 && run_tar(folder.fd, list.fd, packed.fd()) && packed.take_place() ? 0 : -1;
}
