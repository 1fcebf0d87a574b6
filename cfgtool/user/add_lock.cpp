#include "user/add_lock.h"

#include "ipmi/transport.h"
#include "platform/platform.h"
#include "system/files.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

static constexpr char path[] = "/ipmc/usr/adduser_mutex";
static constexpr uint32_t error_lock_file = 0x50000002, error_lock = 0x50000003;

static int open_lock_file() { return open_file(path, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666); }

static bool wait_for_lock(int file)
{
    struct flock lock {
    };
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = 40;
    lock.l_len = 10;
    int result;
    do {
        result = fcntl(file, F_SETLKW, &lock);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

enum class locked_file { still_there, replaced, unknown };

/// The holder before us may have removed the file that we waited for: another run may be locking a new one. Where it
/// cannot be told, asking again might never end.
static locked_file examine(int file)
{
    struct stat locked, there;
    if (fstat(file, &locked) != 0)
        return locked_file::unknown;
    if (lstat(path, &there) != 0)
        return errno == ENOENT ? locked_file::replaced : locked_file::unknown;
    return locked.st_dev == there.st_dev && locked.st_ino == there.st_ino ? locked_file::still_there
                                                                          : locked_file::replaced;
}

static void remove_lock_file()
{
    char program[] = "/bin/rm", options[] = "-fr", file[] = "/ipmc/usr/adduser_mutex";
    char *const words[] = {program, options, file, nullptr};
    vos_system(program, words);
}

bool add_user_lock::take()
{
    for (;;) {
        file = open_lock_file();
        if (file < 0) {
            g_error_code = error_lock_file;
            return false;
        }
        const bool is_locked = wait_for_lock(file);
        held.emplace();
        const locked_file found = is_locked ? examine(file) : locked_file::unknown;
        if (found == locked_file::still_there)
            return true;
        if (found == locked_file::unknown) {
            release();  // Kept: the file goes, though another run may hold its lock
            g_error_code = error_lock;
            return false;
        }
        close(file);
        held.reset();
    }
}

void add_user_lock::release()
{
    if (file < 0)
        return;
    remove_lock_file();
    close(file);
    file = -1;
}

add_user_lock::~add_user_lock() { release(); }
