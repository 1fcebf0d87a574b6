#include "user/add_lock.h"

#include "ipmi/transport.h"
#include "platform/platform.h"
#include "system/files.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

static constexpr char lock_path[] = "/ipmc/usr/adduser_mutex";
static constexpr char new_path[] = "/ipmc/usr/adduser_mutex.new";  // of the file that takes the place of the other
static constexpr uint32_t error_lock_file = 0x50000002, error_lock = 0x50000003;

static int open_lock_file(const char *path, mode_t mode)
{
    return open_file(path, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, mode);
}

// The ten bytes -----------------------------------------------------------------------------------------------------

static struct flock ten_bytes(short type)
{
    struct flock range {
    };
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = 40;
    range.l_len = 10;
    return range;
}

static bool lock(int file, int command, short type)
{
    struct flock range = ten_bytes(type);
    int result;
    do {
        result = fcntl(file, command, &range);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

/// What kind of lock somebody else has on them: F_RDLCK, F_WRLCK or F_UNLCK. A run that adds a user has write locks
/// only.
static short lock_of_others(int file)
{
    struct flock range = ten_bytes(F_WRLCK);
    return fcntl(file, F_GETLK, &range) == 0 ? range.l_type : short(F_UNLCK);
}

enum class located { at_path, elsewhere, unknown };

/// Whoever had the lock before us may have removed the file that we waited for: another run may be locking a new one.
static located locate(int file, const char *path)
{
    struct stat locked, found;
    if (fstat(file, &locked) != 0)
        return located::unknown;
    if (lstat(path, &found) != 0)
        return errno == ENOENT ? located::elsewhere : located::unknown;
    return locked.st_dev == found.st_dev && locked.st_ino == found.st_ino ? located::at_path : located::elsewhere;
}

enum class wait_end { locked, behind_reader, file_gone, failed };

/// Waits while another run has the lock of a file. It asks again and again whether that is so: in a queue, a stranger's
/// read lock could get in front of us when the run ends, and stay.
static wait_end wait_for_lock(int file, const char *path)
{
    static constexpr unsigned pause_us = 50000;
    for (;;) {
        const short others = lock_of_others(file);
        if (others == F_UNLCK && lock(file, F_SETLK, F_WRLCK))
            break;
        if (others == F_UNLCK && errno != EAGAIN && errno != EACCES)
            return wait_end::failed;
        if (locate(file, path) == located::elsewhere)
            return wait_end::file_gone;
        if (others == F_RDLCK)
            return wait_end::behind_reader;
        vos_task_delay_us(pause_us);
    }
    return lock(file, F_SETLKW, F_WRLCK) ? wait_end::locked : wait_end::failed;  // again, and without a wait
}

// The lock ----------------------------------------------------------------------------------------------------------

/// Puts a new file, with our lock on it, in the place of one that a stranger has read-locked. One run at a time may do
/// that: the one that has the lock of the new file under its first name, where no stranger can open it. Our own read
/// lock keeps every run from locking the old file meanwhile, so it is not in use.
///   file     the old one, then the new one
///   returns  locked; file_gone = it is in use, or another run was quicker; failed
static wait_end replace(int &file, std::optional<hold_signals> &held)
{
    const int new_file = open_lock_file(new_path, 0600);
    if (new_file < 0)
        return wait_end::failed;
    const wait_end end = wait_for_lock(new_file, new_path);
    if (end == wait_end::locked)
        held.emplace();
    if (end != wait_end::locked || locate(new_file, new_path) != located::at_path) {
        close(new_file);
        return end == wait_end::behind_reader ? wait_end::failed : end == wait_end::failed ? end : wait_end::file_gone;
    }

    const bool is_unused = lock(file, F_SETLK, F_RDLCK) && locate(file, lock_path) == located::at_path;
    if (is_unused && fchmod(new_file, mode_of_new_file()) == 0 && rename(new_path, lock_path) == 0) {
        close(file);
        file = new_file;
        return wait_end::locked;
    }
    unlink(new_path);
    close(new_file);
    return is_unused ? wait_end::failed : wait_end::file_gone;
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
        file = open_lock_file(lock_path, 0666);
        if (file < 0) {
            g_error_code = error_lock_file;
            return false;
        }
        wait_end end = wait_for_lock(file, lock_path);
        if (end == wait_end::behind_reader && (end = replace(file, held)) == wait_end::failed) {
            close(file);
            file = -1;
            g_error_code = error_lock_file;
            return false;
        }
        if (!held)
            held.emplace();
        const located found = end == wait_end::locked ? locate(file, lock_path) : located::elsewhere;
        if (found == located::at_path)
            return true;
        if (found == located::unknown || end == wait_end::failed) {
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
