/// libc as the tool finds it: the controller's folders lie in a folder of the run, its user and terminal are made up.
/// Outside a run the calls are this program's own.
#include "tests/faults/platform.h"
#include "tests/scripted/parts.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

int blocks_taken;

#define WRAPPED(result, name, ...)                                                                                     \
    result __real_##name(__VA_ARGS__);                                                                                 \
    result __wrap_##name(__VA_ARGS__)

extern "C" int __real_poll(pollfd *files, nfds_t count, int timeout);

/// A call of the tool's, not of this program.
static bool tool_fails(const char *name) { return played != nullptr && fails(name); }

// Files -------------------------------------------------------------------------------------------------------------

int descriptors_open()
{
    static constexpr int most_descriptors = 64;
    pollfd all[most_descriptors];
    for (int file = 0; file < most_descriptors; ++file)
        all[file] = {file > STDERR_FILENO ? file : -1, 0, 0};
    const auto closed = __real_poll(all, most_descriptors, 0);
    return most_descriptors - (STDERR_FILENO + 1) - closed;
}

/// The controller's path of an open file.
static std::string path_of(int file)
{
    static const std::string root = found_at("/data").substr(0, found_at("/data").size() - strlen("/data"));
    char path[PATH_MAX];
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    const std::string place(path, length > 0 ? size_t(length) : 0);
    return place.starts_with(root) ? place.substr(root.size()) : place;
}

bool is_to_fail(const char *call, const std::string &path)
{
    for (const auto &[failing, of] : played->failures) {
        if (failing == call && of == path) {
            errno = EIO;
            return true;
        }
    }
    return false;
}

static std::string lock_path;
static int lock_file = -1;
static std::vector<std::pair<std::string, unsigned>> given;  // owners that the tool has changed

static bool any_failures() { return played != nullptr && !played->failures.empty(); }

extern "C" {
int __real_open(const char *path, int flags, ...);
int __wrap_open(const char *path, int flags, mode_t mode)
{
    if (played == nullptr)
        return __real_open(path, flags, mode);
    if ((flags & (O_CREAT | O_WRONLY | O_RDWR)) != 0)
        touch_files();
    if (fails("open") || is_to_fail("open", path))
        return -1;
    const int file = __real_open(found_at(path).c_str(), flags, mode);
    if ((flags & O_CREAT) != 0) {
        lock_path = path;
        lock_file = file;
    }
    return file;
}

WRAPPED(int, close, int file)
{
    const bool failed = tool_fails("close");
    if (file >= 0 && file == lock_file)
        lock_file = -1;
    return __real_close(file) != 0 || failed ? -1 : 0;
}

WRAPPED(int, mkostemp, char *path, int flags)
{
    touch_files();
    if (fails("mkostemp"))
        return -1;
    std::string place = found_at(path);
    const int file = __real_mkostemp(place.data(), flags);
    memcpy(path, place.c_str() + place.size() - strlen(path), strlen(path));
    return file;
}

WRAPPED(int, rename, const char *from, const char *to)
{
    touch_files();
    return fails("rename") ? -1 : __real_rename(found_at(from).c_str(), found_at(to).c_str());
}

WRAPPED(int, unlink, const char *path)
{
    if (played == nullptr)
        return __real_unlink(path);
    touch_files();
    return fails("unlink") ? -1 : __real_unlink(found_at(path).c_str());
}

WRAPPED(int, stat, const char *path, struct stat *about)
{
    return tool_fails("stat") ? -1 : __real_stat(played != nullptr ? found_at(path).c_str() : path, about);
}

WRAPPED(int, fstat, int file, struct stat *about) { return tool_fails("fstat") ? -1 : __real_fstat(file, about); }
WRAPPED(int, fchmod, int file, mode_t mode) { return tool_fails("fchmod") ? -1 : __real_fchmod(file, mode); }

/// What is there belongs to the tool's user, unless it is said to be another's.
WRAPPED(int, lstat, const char *path, struct stat *about)
{
    if (played == nullptr)
        return __real_lstat(path, about);
    if (fails("lstat") || __real_lstat(found_at(path).c_str(), about) != 0)
        return -1;
    about->st_uid = played->user;
    for (const auto *owners : {&played->owners, const_cast<const decltype(given) *>(&given)})
        for (const auto &[owned, owner] : *owners)
            if (owned == path)
                about->st_uid = owner;
    return 0;
}

WRAPPED(int, fchown, int file, uid_t owner, gid_t)
{
    if (fails("fchown"))
        return -1;
    if (result_of("fchown") != 0) {
        errno = EPERM;
        return -1;
    }
    given.emplace_back(path_of(file), owner);
    return 0;
}

WRAPPED(int, mkdir, const char *path, mode_t mode)
{
    if (played == nullptr)
        return __real_mkdir(path, mode);
    touch_files();
    return fails("mkdir") || result_of("mkdir") != 0 ? -1 : __real_mkdir(found_at(path).c_str(), mode);
}

WRAPPED(off_t, lseek, int file, off_t offset, int from)
{
    if (tool_fails("lseek"))
        return -1;
    if (played != nullptr && (result_of("lseek") != 0 || (any_failures() && is_to_fail("lseek", path_of(file)))))
        return -1;
    return __real_lseek(file, offset, from);
}

WRAPPED(ssize_t, write, int file, const void *from, size_t size)
{
    return tool_fails("write") || (any_failures() && is_to_fail("write", path_of(file)))
               ? -1
               : __real_write(file, from, size);
}

/// Reads up to the damage, and fails there.
WRAPPED(ssize_t, read, int file, void *to, size_t size)
{
    if (tool_fails("read"))
        return -1;
    if (played == nullptr || played->damages.empty())
        return __real_read(file, to, size);
    const off_t at = __real_lseek(file, 0, SEEK_CUR);
    const std::string path = path_of(file);
    for (const unreadable &damage : played->damages) {
        if (damage.path != path || at + off_t(size) <= damage.from || at >= damage.to)
            continue;
        if (at >= damage.from) {
            errno = EIO;
            return -1;
        }
        size = size_t(damage.from - at);
    }
    return __real_read(file, to, size);
}

// A folder is listed from the last name in the alphabet to the first, whatever the disk's order.

static DIR *listed;
static std::vector<dirent> entries;

dirent *__real_readdir(DIR *folder);
WRAPPED(DIR *, opendir, const char *path)
{
    if (played == nullptr)
        return __real_opendir(path);
    listed = fails("opendir") ? nullptr : __real_opendir(found_at(path).c_str());
    entries = sorted_entries(listed, __real_readdir);
    return listed;
}

dirent *__wrap_readdir(DIR *folder)
{
    static dirent entry;
    if (folder != listed)
        return tool_fails("readdir") ? nullptr : __real_readdir(folder);
    if (fails("readdir") || entries.empty())
        return nullptr;
    entry = entries.back();
    entries.pop_back();
    return &entry;
}

// Inside a folder that is open

WRAPPED(DIR *, fdopendir, int folder) { return tool_fails("fdopendir") ? nullptr : __real_fdopendir(folder); }

int __real_openat(int folder, const char *name, int flags, ...);
int __wrap_openat(int folder, const char *name, int flags, mode_t mode)
{
    return tool_fails("openat") ? -1 : __real_openat(folder, name, flags, mode);
}

WRAPPED(int, statx, int folder, const char *name, int flags, unsigned wanted, struct statx *about)
{
    return tool_fails("statx") ? -1 : __real_statx(folder, name, flags, wanted, about);
}

WRAPPED(int, unlinkat, int folder, const char *name, int flags)
{
    return tool_fails("unlinkat") ? -1 : __real_unlinkat(folder, name, flags);
}

// The add-user lock -------------------------------------------------------------------------------------------------

int __real_fcntl(int file, int command, ...);
int __wrap_fcntl(int file, int command, void *value)
{
    if (played != nullptr && command == F_GETLK) {
        if (const long held = result_of("lock_held"); held != 0) {
            static_cast<struct flock *>(value)->l_type = held == 1 ? F_RDLCK : F_WRLCK;
            return 0;
        }
    }
    if (played == nullptr || command != F_SETLKW)
        return __real_fcntl(file, command, value);
    const long result = called("lock", lock_path);
    if (result > 0)  // granted once its holder has removed the file
        __real_unlink(found_at(lock_path.c_str()).c_str());
    if (result < -1)  // -1 is a failure that has said why
        errno = int(-result);
    return result < 0 ? -1 : __real_fcntl(file, F_SETLK, value);
}

// Memory ------------------------------------------------------------------------------------------------------------

WRAPPED(void *, malloc, size_t size)
{
    void *const block = tool_fails("malloc") ? nullptr : __real_malloc(size);
    blocks_taken += block != nullptr ? 1 : 0;
    return block;
}

WRAPPED(void *, calloc, size_t count, size_t size)
{
    void *const block = tool_fails("calloc") ? nullptr : __real_calloc(count, size);
    blocks_taken += block != nullptr ? 1 : 0;
    return block;
}

WRAPPED(void *, realloc, void *before, size_t size)
{
    void *const block = tool_fails("realloc") ? nullptr : __real_realloc(before, size);
    blocks_taken += block != nullptr && before == nullptr ? 1 : 0;
    return block;
}

WRAPPED(void, free, void *block)
{
    blocks_taken -= block != nullptr ? 1 : 0;
    __real_free(block);
}

// The caller --------------------------------------------------------------------------------------------------------

WRAPPED(uid_t, geteuid) { return played != nullptr ? played->user : __real_geteuid(); }
WRAPPED(uid_t, getuid) { return played != nullptr ? played->real_user : __real_getuid(); }

/// The process stays one that can look into itself.
int __real_prctl(int option, ...);
int __wrap_prctl(int option, unsigned long value)
{
    if (played == nullptr || option != PR_SET_DUMPABLE)
        return __real_prctl(option, value);
    written->is_dumpable = value != 0;
    return 0;
}

// The terminal: there is one where keys are typed -------------------------------------------------------------------

static termios mode = [] {
    termios usual{};
    usual.c_iflag = ICRNL;
    usual.c_lflag = ICANON | ECHO | ECHONL | ISIG;
    return usual;
}();
static const termios usual_mode = mode;

static bool has_terminal() { return played != nullptr && !played->keys.empty(); }
static bool is_cooked() { return (mode.c_lflag & ICANON) != 0; }

static size_t next_batch, next_key;  // of the keys that are typed together
static std::string line;             // what the terminal has made of them, where it hands them over line by line
static size_t next_in_line;

/// The erasing keys do their work, and the end of input hands over what was typed before it.
static void edit_line(const concealed &keys)
{
    static constexpr char end_of_input = 4, erase = 0x7F, erase_all = 0x15;
    line.clear();
    next_in_line = 0;
    for (size_t n = 0; n < keys.size(); ++n) {
        const char key = char(keys.at(n));
        if (key == erase && !line.empty())
            line.pop_back();
        else if (key == erase_all)
            line.clear();
        else if (key != erase && key != end_of_input)
            line += key == '\r' ? '\n' : key;
    }
}

static bool more_typed()
{
    if (next_in_line < line.size())
        return true;
    return next_batch > 0 && !is_cooked() && next_key < played->keys[next_batch - 1].size();
}

static int typed_key()
{
    if (fails(is_cooked() && next_in_line > 0 ? "key of the rest" : "key") || !has_terminal())
        return EOF;
    if (!more_typed() && next_batch < played->keys.size()) {
        next_key = 0;
        if (is_cooked())
            edit_line(played->keys[next_batch]);
        ++next_batch;
    }
    if (!more_typed())
        return EOF;
    if (is_cooked())
        return uint8_t(line[next_in_line++]);
    written->typed_secret = true;
    if (!played->secrets.empty() && written->is_dumpable)
        written->typed_while_dumpable = true;
    return played->keys[next_batch - 1].at(next_key++);
}

WRAPPED(int, isatty, int file)
{
    if (file != STDIN_FILENO || played == nullptr)
        return __real_isatty(file);
    return !fails("isatty") && has_terminal();
}
WRAPPED(int, getchar) { return played != nullptr ? typed_key() : __real_getchar(); }
WRAPPED(int, getc, FILE *from) { return played != nullptr ? typed_key() : __real_getc(from); }
WRAPPED(int, fgetc, FILE *from) { return played != nullptr ? typed_key() : __real_fgetc(from); }
WRAPPED(pid_t, tcgetpgrp, int file) { return played != nullptr ? getpgrp() : __real_tcgetpgrp(file); }

WRAPPED(int, poll, pollfd *files, nfds_t count, int timeout)
{
    if (played == nullptr || count != 1 || files->fd != STDIN_FILENO)
        return __real_poll(files, count, timeout);
    if (fails("poll"))
        return -1;
    files->revents = more_typed() ? POLLIN : short(0);
    return more_typed() ? 1 : 0;
}

WRAPPED(int, tcgetattr, int file, termios *now)
{
    if (played == nullptr || file != STDIN_FILENO)
        return __real_tcgetattr(file, now);
    if (fails("tcgetattr"))
        return -1;
    if (!has_terminal() || result_of("tcgetattr") != 0) {
        errno = ENOTTY;
        return -1;
    }
    *now = mode;
    return 0;
}

WRAPPED(int, tcsetattr, int file, int when, const termios *wanted)
{
    if (played == nullptr || file != STDIN_FILENO)
        return __real_tcsetattr(file, when, wanted);
    const bool is_usual = memcmp(wanted, &usual_mode, sizeof mode) == 0;
    if (fails(is_usual ? "tcsetattr back" : "tcsetattr"))
        return -1;
    if (!has_terminal() || result_of("tcsetattr") != 0) {
        errno = ENOTTY;
        return -1;
    }
    mode = *wanted;
    written->terminal_changed = memcmp(&mode, &usual_mode, sizeof mode) != 0;
    return 0;
}
}
