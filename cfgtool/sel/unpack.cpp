#include "sel/unpack.h"

#include "platform/platform.h"
#include "sel/tmp_contents.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

/// Whether the way to the unpacked log, as far as it is there, is folders that nobody else can change.
static bool take_back_way()
{
    char way[sizeof unpacked_log];
    memcpy(way, unpacked_log, sizeof way);
    for (char *slash = way + strlen(unpacked_folder.name); slash != nullptr; slash = strchr(slash + 1, '/')) {
        *slash = '\0';
        if (!take_back_folder(way))
            return false;
        *slash = '/';
    }
    return true;
}

/// Before the archiver starts: nobody must be able to lead it elsewhere, and no log may lie there.
static bool make_way()
{
    if (!make_folder(unpacked_folder))
        return false;
    if (take_back_way() && (unlink(unpacked_log) == 0 || errno == ENOENT))
        return true;
    remove_folder(unpacked_folder);
    return mkdir(unpacked_folder.path, 0777) == 0;
}

/// A FIFO would keep the archiver waiting for ever, and so might what cannot be examined. What is not there it finds
/// out itself.
static bool may_be_archive(const char *path)
{
    struct stat about;
    return stat(path, &about) == 0 ? S_ISREG(about.st_mode) : errno == ENOENT;
}

static bool is_file_or_nothing(const char *path)
{
    struct stat about;
    return lstat(path, &about) == 0 ? S_ISREG(about.st_mode) : errno == ENOENT;
}

bool unpack_log(char *archive)
{
    char program[] = "/bin/tar", options[] = "-zxf", folder_option[] = "-C", folder[] = "/tmp/";
    char *const words[] = {program, options, archive, folder_option, folder, nullptr};
    if (!may_be_archive(archive) || !make_way() || !note_tmp("dev"))
        return false;
    vos_system(program, words);
    give_back_tmp();  // at once: what is safe in /tmp is so as it is sticky
    return take_back_way() && is_file_or_nothing(unpacked_log);
}
