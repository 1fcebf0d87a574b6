#include "controller/disk.h"

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

descriptor open_file(const std::filesystem::path &disk, const std::filesystem::path &path)
{
    descriptor at(open(disk.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (const auto &part : path.relative_path().parent_path())
        at = part == ".." ? descriptor() : open_folder(at.get(), part);
    // Not to wait for a writer, should it be a pipe.
    descriptor file(openat(at.get(), path.filename().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat seen {
    };
    const bool is_regular = fstat(file.get(), &seen) == 0 && S_ISREG(seen.st_mode);
    return is_regular ? std::move(file) : descriptor();
}

}  // namespace ipmcd
