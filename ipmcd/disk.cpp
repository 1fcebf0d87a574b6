#include "ipmcd/disk.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace ipmcd
{

[[noreturn]] static void refuse(const std::filesystem::path &path)
{
    throw std::runtime_error(path.string() + ": " + strerror(errno));
}

static descriptor open_folder(int parent, const std::filesystem::path &name)
{
    constexpr int how = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    return descriptor(openat(parent, name.c_str(), how));
}

static void write_whole(int fd, std::string_view content, const std::filesystem::path &path)
{
    while (!content.empty()) {
        const ssize_t written = write(fd, content.data(), content.size());
        if (written < 0)
            refuse(path);
        content.remove_prefix(size_t(written));
    }
}

static void write_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *name,
                       std::string_view content, bool replace)
{
    descriptor at(open(disk.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (at.get() < 0)
        refuse(disk);
    std::filesystem::path path = disk;
    for (const auto &part : folder) {
        path /= part;
        mkdirat(at.get(), part.c_str(), 0755);  // is there already, as a rule; whether it is shows when it is opened
        at = open_folder(at.get(), part);
        if (at.get() < 0)
            refuse(path);
    }
    path /= name;
    if (replace)
        unlinkat(at.get(), name, 0);  // of what is left there all the same, the next call tells
    const descriptor file(openat(at.get(), name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644));
    if (file.get() < 0)
        refuse(path);
    try {
        write_whole(file.get(), content, path);
    } catch (const std::runtime_error &) {
        unlinkat(at.get(), name, 0);  // half a file is none
        throw;
    }
}

void write_new_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *name,
                    std::string_view content)
{
    write_file(disk, folder, name, content, false);
}

void replace_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *name,
                  std::string_view content)
{
    write_file(disk, folder, name, content, true);
}

/// Opens the folder as far as there is one.
static descriptor open_folders(const std::filesystem::path &disk, const std::filesystem::path &folder)
{
    descriptor at(open(disk.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (const auto &part : folder)
        at = part == ".." ? descriptor() : open_folder(at.get(), part);
    return at;
}

/// A regular file; whether it is one shows when it is open, and a pipe is not waited for.
static descriptor open_regular(const descriptor &at, const char *name, int how, struct stat &seen)
{
    descriptor file(openat(at.get(), name, how | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    const bool is_regular = fstat(file.get(), &seen) == 0 && S_ISREG(seen.st_mode);
    return is_regular ? std::move(file) : descriptor();
}

bool append_to_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *name,
                    size_t length, std::string_view content)
{
    const descriptor at = open_folders(disk, folder);
    struct stat seen {
    };
    const descriptor file = open_regular(at, name, O_WRONLY | O_APPEND, seen);
    // With a second name it may be anybody's file.
    if (file.get() < 0 || seen.st_nlink != 1 || size_t(seen.st_size) != length)
        return false;
    try {
        write_whole(file.get(), content, disk / folder / name);
    } catch (const std::runtime_error &) {
        if (ftruncate(file.get(), seen.st_size) != 0)
            unlinkat(at.get(), name, 0);  // it is no longer what it was: the caller has what belongs into it
        throw;
    }
    return true;
}

bool rename_file(const std::filesystem::path &disk, const std::filesystem::path &folder, const char *from,
                 const char *to)
{
    const descriptor at = open_folders(disk, folder);
    if (at.get() < 0)
        return false;
    if (renameat(at.get(), from, at.get(), to) == 0)
        return true;
    if (errno == ENOENT)
        return false;
    refuse(disk / folder / from);
}

descriptor open_file(const std::filesystem::path &disk, const std::filesystem::path &path)
{
    struct stat seen {
    };
    const descriptor at = open_folders(disk, path.relative_path().parent_path());
    return open_regular(at, path.filename().c_str(), O_RDONLY, seen);
}

}  // namespace ipmcd
