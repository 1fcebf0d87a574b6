#include "tests/unit/failing_call.h"

#include "tests/unit/platform_stub.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

static failing_call *awaited;
interlude behind;

failing_call::failing_call(std::string call, int error, unsigned calls_before)
    : name(std::move(call)), reason(error), to_come(calls_before)
{
    awaited = this;
}

failing_call::~failing_call()
{
    awaited = nullptr;
    EXPECT_TRUE(failed) << name;
}

bool fails(const char *call)
{
    if (awaited == nullptr || awaited->failed || awaited->name != call || awaited->to_come-- != 0)
        return false;
    awaited->failed = true;
    errno = awaited->reason;
    return true;
}

static void play_interlude(const char *call)
{
    if (behind.call == call)
        std::exchange(behind, {}).act();
}

#define WRAPPED(result, name, ...)                                                                                     \
    result __real_##name(__VA_ARGS__);                                                                                 \
    result __wrap_##name(__VA_ARGS__)

// Not wrapped by their names, which differ where sizes and times are wider than words.

int fstat(int file, struct stat *about) noexcept
{
    return fails("fstat") ? -1 : fstatat(file, "", about, AT_EMPTY_PATH);
}

int lstat(const char *path, struct stat *about) noexcept
{
    return fails("lstat") ? -1 : fstatat(AT_FDCWD, on_disk(path), about, AT_SYMLINK_NOFOLLOW);
}

/// Of a lock, the command fails by its name.
int fcntl(int file, int command, ...)
{
    static const auto real = reinterpret_cast<int (*)(int, int, ...)>(dlsym(RTLD_NEXT, "fcntl64"));
    va_list values;
    va_start(values, command);
    void *const value = va_arg(values, void *);
    va_end(values);
    const char *name = command == F_SETLK    ? "F_SETLK"
                       : command == F_SETLKW ? "F_SETLKW"
                       : command == F_GETLK  ? "F_GETLK"
                                             : nullptr;
    if (name == nullptr)
        return real(file, command, value);
    const int result = fails(name) ? -1 : real(file, command, value);
    play_interlude(name);
    return result;
}

int stat(const char *path, struct stat *about) noexcept { return fstatat(AT_FDCWD, on_disk(path), about, 0); }

extern "C" {

WRAPPED(void *, calloc, size_t count, size_t size) { return fails("calloc") ? nullptr : __real_calloc(count, size); }

WRAPPED(void *, realloc, void *before, size_t size)
{
    return fails("realloc") ? nullptr : __real_realloc(before, size);
}

WRAPPED(DIR *, fdopendir, int folder) { return fails("fdopendir") ? nullptr : __real_fdopendir(folder); }

WRAPPED(int, statx, int folder, const char *name, int flags, unsigned wanted, struct statx *about)
{
    return fails("statx") ? -1 : __real_statx(folder, name, flags, wanted, about);
}

WRAPPED(int, fchown, int file, uid_t owner, gid_t group)
{
    return fails("fchown") ? -1 : __real_fchown(file, owner, group);
}

WRAPPED(ssize_t, read, int file, void *to, size_t size) { return fails("read") ? -1 : __real_read(file, to, size); }

WRAPPED(ssize_t, write, int file, const void *from, size_t size)
{
    if (!fails("write"))
        return __real_write(file, from, size);
    if (errno != 0)
        return -1;
    errno = EINTR;  // as some call before may have left it
    return 0;
}

WRAPPED(int, close, int file)
{
    const int result = __real_close(file);  // a failed one closes too
    return fails("close") ? -1 : result;
}

WRAPPED(int, fchmod, int file, mode_t mode)
{
    const int result = fails("fchmod") ? -1 : __real_fchmod(file, mode);
    play_interlude("fchmod");
    return result;
}

WRAPPED(int, rename, const char *from, const char *to)
{
    return fails("rename") ? -1 : __real_rename(on_disk(from), on_disk(to));
}

WRAPPED(int, inet_pton, int family, const char *text, void *address)
{
    return fails("inet_pton") ? -1 : __real_inet_pton(family, text, address);
}
}
